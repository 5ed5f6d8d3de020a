// The archive of an export or import, by a library of the program.
#pragma once

#include "exchange/archive.h"

namespace vorna {

// Where the library is missing, an archive that fails at everything and says why.
std::unique_ptr<Archive> archiveOfLibrary(const char* library, WorkProgress* progress);

inline std::unique_ptr<Archive> makeLoadedArchive(WorkProgress* progress) {
    return archiveOfLibrary("archive", progress);
}

} // namespace vorna
