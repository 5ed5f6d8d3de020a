// A folder of one test, in a path with blanks and Czech letters. It goes with all that is in it.
#pragma once

#include "platform/files.h"

#include <string_view>

namespace vorna {

class ScratchFolder {
public:
    ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();

    [[nodiscard]] const fs::path& path() const { return path_; }
    fs::path operator/(std::string_view name) const { return path_ / name; }
    // Writes a file below it, making the folders on the way, and returns its path.
    fs::path write(std::string_view name, std::string_view bytes) const;

private:
    fs::path path_;
};

// A full disk: while it lives, no file of the process grows beyond so many bytes.
class FullDisk {
public:
    explicit FullDisk(unsigned long bytes);
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk();

private:
    unsigned long before_;
};

} // namespace vorna
