// The names of an archive's entries: out of the bytes that the archive holds to a path that stays
// below its folder.
#pragma once

#include "platform/encoding.h"

#include <string>
#include <string_view>

namespace vorna {

// Finds the code page of an archive's names. A name that is valid UTF-8 is UTF-8; all others were
// written by one program, so that all of them decide together whether they are Windows-1250 or
// code page 437. Without evidence they are Windows-1250.
class NameDecoder {
public:
    // Takes a name into account.
    void see(std::string_view name);
    // In UTF-8.
    [[nodiscard]] std::string decoded(std::string_view name) const;

private:
    long windows1250_ = 0; // how much speaks for it
    long cp437_ = 0;
};

// An entry's path below the folder it is unpacked into.
struct EntryPath {
    std::string path; // parts joined by "/"; empty for the folder itself
    bool isFolder = false;
    std::string complaint; // why the name is refused; else empty
};

// The path of a name in UTF-8, whose parts may be joined by slashes or backslashes. Refused are
// names that lead out of the folder (a part "..", a beginning at the root or with a drive letter),
// those that some installation's file system cannot hold, and those that are longer than a path
// may get.
EntryPath entryPath(std::string_view name);

} // namespace vorna
