// What libzip reads from and writes to: a file that goes into an archive, an archive that is read,
// and an archive that is written. All of them are freed by libzip.
#pragma once

#include <zip.h>

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string>

namespace vorna {

// What went wrong outside libzip, told by whoever works with the disk.
struct FileTrouble {
    std::filesystem::path file; // empty: nothing went wrong
    int error = 0;              // of the system
};

struct FileToPack {
    std::filesystem::path file;
    std::uint64_t size = 0;
    std::time_t changed = 0;
};

// The files that were opened so far, told by each as it is its turn.
struct FilesPacked {
    std::uint64_t begun = 0;
    std::filesystem::path current;
};

// What the files of an archive tell; it must outlive the archive.
struct PackingReport {
    FileTrouble& trouble;
    FilesPacked& packed;
};

// Opened when it is its turn, and never larger than it was when it was found. Null when there is no
// memory.
zip_source_t* sourceOfFile(zip_t* archive, FileToPack file, const PackingReport& report);

// What may be read of an archive until it stands open: its list of entries is kept in memory, and
// this is its bound.
inline constexpr std::uint64_t largestEntryList = std::uint64_t{256} << 20;

// An existing archive, read through a buffer. `open` tells whether the archive stands open already.
// Null when the file cannot be read, which `trouble` tells; both must outlive the archive.
zip_source_t* sourceOfArchive(const std::filesystem::path& file, const bool& open,
                              FileTrouble& trouble);

// Whether the file begins as an archive does, which may then be damaged further on.
bool beginsLikeArchive(const std::filesystem::path& file);

// A new archive. It is written to a temporary file beside it, which is flushed and takes the
// archive's name when the archive is whole, and goes otherwise. `trouble` must outlive the archive.
zip_source_t* sinkOfArchive(const std::filesystem::path& file, FileTrouble& trouble);

} // namespace vorna
