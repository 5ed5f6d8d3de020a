// How whoever shows long work follows it and stops it. Without one, work runs to its end; with one
// its results are the same, unless it is cancelled.
#pragma once

#include <cstdint>
#include <string_view>

namespace vorna {

class WorkProgress {
public:
    // Packing and Unpacking count an archive's files, Importing counts clients.
    enum class Work : std::uint8_t { Packing, Unpacking, Importing };

    // `done` of `total` are through, and the next one has this name.
    struct Step {
        Work work = Work::Packing;
        std::uint64_t done = 0;
        std::uint64_t total = 0; // 0 while it is not known yet
        std::string_view name;   // empty while there is no next one
    };

    virtual ~WorkProgress() = default;
    // Called from 0 on, at short distances, several times for a large file; it may give the event
    // loop a turn. False cancels the work at its next safe point.
    virtual bool goesOn(const Step& step) = 0;
};

} // namespace vorna
