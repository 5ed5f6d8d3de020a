// A disk that fails where a test wants it. The test binary stands between all code of the process,
// that of the libraries included, and the calls of the operating system that change files or
// folders; what happens below the watched folder is counted and can be made to fail. The process
// flushes nothing to the disk, for speed: what a crash of the machine would take is another matter.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vorna {

struct DiskFault {
    int at = 0;           // the operation that fails, from 1; 0: none
    bool lasting = false; // all that follow fail too
    int error = 0;        // of the operating system: ENOSPC, EIO, EACCES
};

// While it lives, the disk below a folder is watched. One at a time. A write that fails has written
// the first half of its bytes.
class WatchedDisk {
public:
    explicit WatchedDisk(const std::filesystem::path& folder, DiskFault fault = {});
    WatchedDisk(const WatchedDisk&) = delete;
    WatchedDisk& operator=(const WatchedDisk&) = delete;
    ~WatchedDisk();

    // The operations below the folder so far: opening for writing, writing, flushing, renaming,
    // making, removing, cutting, linking, each call one.
    [[nodiscard]] int operations() const;
    // What failed first: "write /folder/file"; empty when nothing did.
    [[nodiscard]] const std::string& failed() const;
    // Operations outside the folder, which were let through.
    [[nodiscard]] const std::vector<std::string>& strays() const;
    // Where files stand whose writing failed halfway.
    [[nodiscard]] std::vector<std::filesystem::path> torn() const;
};

} // namespace vorna
