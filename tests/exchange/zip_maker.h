// Zip archives by the byte, for those that no program writes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

// An entry that is stored as it is. What is given beside name and content is claimed of it.
struct ZipEntry {
    std::string name; // raw bytes
    std::string content;
    std::uint16_t flags = 0;
    std::uint16_t method = 0; // 0 stored, 8 deflated: the content is the deflated stream then
    std::uint8_t system = 0;  // 3 Unix
    std::uint32_t attributes = 0;
    std::optional<std::uint32_t> size;
    std::optional<std::uint32_t> packedSize;
    std::optional<std::uint32_t> crc;
    std::optional<std::uint32_t> offset; // of another entry's header, which it shares
};

std::string zipOf(const std::vector<ZipEntry>& entries);

// A sound entry of so many zero bytes, deflated to about a thousandth of them.
ZipEntry zeros(const std::string& name, std::size_t size);

std::string bytesOfHex(std::string_view hex);

} // namespace vorna
