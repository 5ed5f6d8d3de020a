// The directory of a .chm file and the tables that tell how its objects are compressed. libchm
// follows them without looking whether a page, a length or a divisor makes sense; this looks.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

struct ChmObject {
    std::string path;          // with a leading slash; those that serve the format begin with "::"
    std::uint64_t section = 0; // 0: as it is; 1: in the compressed section
    std::uint64_t start = 0;   // within its section
    std::uint64_t length = 0;
};

struct ChmDirectory {
    std::vector<ChmObject> objects;  // in the file's order
    std::uint64_t plainBytes = 0;    // the length of section 0
    std::uint64_t unpackedBytes = 0; // the length of section 1, unpacked; 0: there is none
};

// The directory out of the whole file's bytes. Failure when anything in it, or in the tables of the
// compression, is unsound, or when the file unpacks to more than 256 MiB.
ChmDirectory readChmDirectory(std::string_view file);

} // namespace vorna
