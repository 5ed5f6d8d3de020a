// The objects in a .chm file, unpacked by libchm. That library trusts what it reads, so all that it
// follows or calculates with is checked before: a file that is damaged, or was made to harm, is a
// Failure.
#pragma once

#include "platform/chm_directory.h"
#include "platform/files.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct chmFile;

namespace vorna {

class ChmArchive {
public:
    // Failure when the file is no sound .chm file or is larger than 64 MiB.
    explicit ChmArchive(const fs::path& file);

    // The paths of all files in it, each with a leading slash, in the file's own order. What serves
    // the format alone is left out.
    [[nodiscard]] std::vector<std::string> paths() const;

    // A file's bytes; its path is taken without regard to case. Failure when there is none, it is
    // larger than 8 MiB, or the bytes cannot be had.
    [[nodiscard]] std::string read(std::string_view path) const;

private:
    struct Closer {
        void operator()(chmFile* file) const;
    };

    ChmDirectory directory_;
    std::map<std::string, std::size_t> places_; // in the directory, by the folded path of a file
    std::unique_ptr<chmFile, Closer> file_;
};

} // namespace vorna
