// The memory that a program of this folder has, for its figures.
#pragma once

#include <fstream>
#include <malloc.h>
#include <unistd.h>

namespace vorna {

// What of the process lies in memory, in MB of 1,000,000 bytes.
inline double residentMegabytes() {
    std::ifstream file("/proc/self/statm");
    long pages = 0;
    file >> pages >> pages;
    return static_cast<double>(pages) * static_cast<double>(::sysconf(_SC_PAGESIZE)) / 1e6;
}

// Bytes that were allocated and not given back.
inline std::size_t allocatedBytes() {
    const struct mallinfo2 info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

} // namespace vorna
