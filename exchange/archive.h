// A zip archive under its few operations: a new one is filled and written once at its end, an
// existing one is opened and unpacked whole. One object serves one archive, made afresh for each
// export or import.
//
// Written archives have UTF-8 names in a fixed order and keep the files' times. Archives that are
// read are hostile until proved otherwise: names may not lead out of the folder, and what an entry
// claims is held against what it is. An archive is unpacked whole or not at all.
#pragma once

#include "exchange/work_progress.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace vorna {

// What an archive may ask of the disk.
struct ArchiveLimits {
    std::uint64_t entries = 2'000'000;                     // files and folders
    std::uint64_t plainBytes = std::uint64_t{64} << 20;    // an entry of this size or smaller, or
    std::uint64_t ratio = 200;                             // one packed no tighter than this
    std::uint64_t spareDiskBytes = std::uint64_t{1} << 30; // must stay free
};

struct ArchiveState;

class Archive {
public:
    explicit Archive(WorkProgress* progress = nullptr, const ArchiveLimits& limits = {});
    Archive(const Archive&) = delete;
    Archive& operator=(const Archive&) = delete;
    ~Archive(); // an archive that was not written leaves no trace

    // The results are 1 for success and 0 for failure unless told otherwise.

    // Starts a new, empty archive for this path. Nothing is written yet.
    int newArchive(const std::filesystem::path& file);
    // Adds all files of the folder, and with `recursive` those of its sub-folders, named relative
    // to it. Symbolic links, what is no file and what a crash left half written are left out. Fails
    // when a folder cannot be read and for a name that could not be unpacked everywhere.
    int addFolder(const std::filesystem::path& folder, bool recursive);
    // Of the archive, new or opened.
    [[nodiscard]] std::int64_t entryCount() const;
    // Writes the file, flushes it to the disk and closes the archive. After a failure there is no
    // such file, not even a part of it.
    int writeArchive();

    // Opens an existing file, of which nothing but the list of entries is read yet.
    int openArchive(const std::filesystem::path& file);
    // Unpacks everything below the folder, which must be empty and is made when it is missing, but
    // not the one that it lies in, which may be gone for a while only. The number of files;
    // negative on failure, when nothing of them stays. What was unpacked is flushed to the disk.
    std::int64_t extractAll(const std::filesystem::path& folder);

    // Describes the last failure to the user. It may name files.
    [[nodiscard]] const std::string& lastErrorText() const;
    // Whether the last failure was the user's wish.
    [[nodiscard]] bool cancelled() const;

private:
    std::unique_ptr<ArchiveState> state_;
};

} // namespace vorna
