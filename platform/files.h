// Files and folders: whole reads, writes that a crash or a full disk cannot halve, searches by
// pattern without regard to case, and the copies of first run. Paths inside the system are
// std::filesystem::path; told names with backslashes are joined by `under`.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

namespace fs = std::filesystem;

// `folder` with `name` behind it, where `name` may hold backslashes or slashes between its parts
// and begin with one. An existing entry is found without regard to the case of its name. Nothing
// else of the name is changed.
fs::path under(const fs::path& folder, std::string_view name);

// A path's text in UTF-8.
std::string pathText(const fs::path& path);

// True for a name that some file system of an installation cannot hold (those of Windows, so that
// a data root can move): one with a control character or any of  < > : " / \ | ? *
// or that ends in a blank or dot, or is empty, or that names a device (nul, com1.txt).
bool isForbiddenFileName(std::string_view name);

// The name that a file has in its folder while it is written, and whether a name is such a one. A
// crash may leave such a file behind: it is nobody's data.
std::string temporaryName();
bool isTemporaryName(std::string_view name);

// True when it is certain that nothing stands under the path: a path that cannot be asked (a
// network that is down) is not missing.
bool isMissing(const fs::path& path);

// The whole content of a regular file. Failure when it is none or cannot be read.
std::string readWholeFile(const fs::path& path);

// Makes an empty file. Failure when it cannot be made or anything stands under the path.
void createEmptyFile(const fs::path& path);

// Replaces the file's content in one step: a temporary file beside it, flushed to the disk, is
// renamed over it. A link is followed, and the old file's permissions stay. After a Failure the old
// file stands whole.
void writeFileAtomically(const fs::path& path, std::string_view bytes);

// Copies a file over another in the same way; write protection is not taken over. Failure when
// either cannot be opened.
void copyFileOver(const fs::path& from, const fs::path& to);

// Copies a folder with all in it to `into` / its name, replacing files of the same name. Failure
// at the first entry that cannot be copied; what was copied stays. Symbolic links are left out.
void copyFolderInto(const fs::path& folder, const fs::path& into);

// Removes a file, or a folder with all in it, as far as it can be removed, write-protected ones
// too; what resists stays. A link goes and what it leads to stays.
void removeTree(const fs::path& path);

// The names in a folder that match a pattern with * and ? (without regard to case; *.* matches
// every name), files and folders alike, sorted ascending by character code. Empty when the folder
// cannot be read.
std::vector<std::string> listFiles(const fs::path& folder, std::string_view pattern);

// The first file that matches, in the order of listFiles; empty when there is none. Folders do not
// count.
std::string findFirst(const fs::path& folder, std::string_view pattern);

// True when the whole name matches the pattern, without regard to case.
bool matchesPattern(std::string_view name, std::string_view pattern);

} // namespace vorna
