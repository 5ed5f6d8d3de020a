// What the fuzz targets share. A target gives any bytes to one reader of the system and asks
// `require` for what must hold of the result, whatever the bytes were.
#pragma once

#include "platform/files.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string_view>

namespace vorna::fuzz {

// Tells the caller's line and ends the run when it does not hold; libFuzzer keeps the input.
inline void require(bool holds, int line = __builtin_LINE()) {
    if (holds)
        return;
    std::fprintf(stderr, "What line %d of the target requires does not hold.\n", line);
    std::abort();
}

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// Writes a file in the scratch folder, without what makes a write safe and slow.
inline void writeScratch(const fs::path& file, std::string_view bytes) {
    std::ofstream(file, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

} // namespace vorna::fuzz
