// What the parts of an archive share: libzip's object, the limits, and the words for what failed.
#pragma once

#include "exchange/zip/archive_sources.h"
#include "exchange/zip/zip_archive.h"

#include <zip.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace vorna {

struct DiscardArchive {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};

struct ArchiveState {
    WorkProgress* progress = nullptr;
    ArchiveLimits limits;
    std::filesystem::path file;
    std::uint64_t fileSize = 0; // of an archive that was opened
    std::string errorText;
    bool cancelled = false;
    FileTrouble trouble; // the archive refers to it
    FilesPacked packed;  // likewise
    bool open = false;   // likewise
    std::unique_ptr<zip_t, DiscardArchive> zip;

    // Keeps the text; the result of a failed operation.
    int fail(std::string text);
    // "The file x cannot be read: access is denied."
    int failOn(const std::filesystem::path& path, std::string_view whatCannotBe, int error);
    int failByCancel();
    // Whether the work goes on; after a false one it has failed.
    bool goesOn(const WorkProgress::Step& step);
};

// What libzip says, in plain words.
std::string zipErrorText(const zip_error_t& error);

// Unpacks an archive that stands open. The number of files, negative on failure.
std::int64_t unpackArchive(ArchiveState& state, const std::filesystem::path& folder);

} // namespace vorna
