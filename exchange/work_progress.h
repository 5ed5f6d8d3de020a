// How whoever shows long work follows it and stops it. Without one, work runs to its end; with one
// its results are the same, unless it is cancelled.
#pragma once

#include <cstdint>

namespace vorna {

class WorkProgress {
public:
    enum class Work : std::uint8_t { Packing, Unpacking, Importing };

    virtual ~WorkProgress() = default;
    // `done` of `total` are through: thousandths of an archive that is written, files of one that
    // is read, clients of an import. Called from 0 on, at short distances; it may give the event
    // loop a turn. False cancels the work at its next safe point.
    virtual bool goesOn(Work work, std::uint64_t done, std::uint64_t total) = 0;
};

} // namespace vorna
