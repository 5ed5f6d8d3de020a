// A zip archive under its few operations: a new one is filled and written once at its end, an
// existing one is opened and unpacked whole. One object serves one archive, made afresh for each
// export or import. Real: libzip (exchange/zip).
//
// Written archives have UTF-8 names in a fixed order and keep the files' times. Archives that are
// read are hostile until proved otherwise: names may not lead out of the folder, and what an entry
// claims is held against what it is. An archive is unpacked whole or not at all.
#pragma once

#include "exchange/work_progress.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace vorna {

class Archive {
public:
    virtual ~Archive() = default; // an archive that was not written leaves no trace

    // The results are 1 for success and 0 for failure unless told otherwise.

    // Starts a new, empty archive for this path. Nothing is written yet.
    virtual int newArchive(const std::filesystem::path& file) = 0;
    // Adds all files of the folder, and with `recursive` those of its sub-folders, named relative
    // to it. Symbolic links, what is no file and what a crash left half written are left out. Fails
    // when a folder cannot be read and for a name that could not be unpacked everywhere.
    virtual int addFolder(const std::filesystem::path& folder, bool recursive) = 0;
    // Of the archive, new or opened.
    [[nodiscard]] virtual std::int64_t entryCount() const = 0;
    // Writes the file, flushes it to the disk and closes the archive. After a failure there is no
    // such file, not even a part of it.
    virtual int writeArchive() = 0;

    // Opens an existing file, of which nothing but the list of entries is read yet.
    virtual int openArchive(const std::filesystem::path& file) = 0;
    // Unpacks everything below the folder, which must be empty and is made when it is missing, but
    // not the one that it lies in, which may be gone for a while only. The number of files;
    // negative on failure, when nothing of them stays. What was unpacked is flushed to the disk.
    virtual std::int64_t extractAll(const std::filesystem::path& folder) = 0;

    // Describes the last failure to the user. It may name files.
    [[nodiscard]] virtual std::string lastErrorText() const = 0;
    // Whether the last failure was the user's wish.
    [[nodiscard]] virtual bool cancelled() const = 0;
};

// Makes the archive of one export or import, which tells its progress to whoever is given; null:
// nobody looks on. Gives null where archives cannot be had.
using ArchiveMaker = std::function<std::unique_ptr<Archive>(WorkProgress* progress)>;

} // namespace vorna
