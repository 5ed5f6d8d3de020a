// The files that a build step lays down in the installation folder: written when they change, their
// names kept, and removed when a later run has them no more.
#pragma once

#include "platform/files.h"

#include <set>
#include <string>
#include <string_view>

namespace vorna {

bool isFolder(const fs::path& path);

// With the folders above it. Failure when it cannot be made.
void makeFolder(const fs::path& path);

// True for a regular file with just this content.
bool holdsBytes(const fs::path& file, std::string_view bytes);

// Names are relative to the folder, with slashes.
class LaidFiles {
public:
    explicit LaidFiles(fs::path folder) : folder_(std::move(folder)) {}

    // The path of a file that is now laid down, in a folder that there is.
    fs::path place(std::string_view name);
    // Counts as laid down without being touched.
    void keep(std::string_view name) { laid_.insert(std::string(name)); }
    // A file that is as it should be is not touched.
    void write(std::string_view name, std::string_view bytes);
    // A further name of a file that was laid down; a copy where the file system has no links.
    void link(std::string_view name, std::string_view laidName);

    // Removes what the list of an earlier run names and this run did not lay down. A list that
    // cannot be read names nothing.
    void removeStale(const fs::path& list) const;
    // Failure, naming it, when the list cannot be written.
    void writeList(const fs::path& list) const;

private:
    void removeWithEmptyFolders(const fs::path& name) const;

    fs::path folder_;
    std::set<std::string> laid_;
};

} // namespace vorna
