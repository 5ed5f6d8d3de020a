#include "platform/ftdi_memory.h"

#include <unicode/unistr.h>

#include <algorithm>

namespace vorna {
namespace {

constexpr std::size_t descriptionEntry = 0x10;
constexpr std::size_t serialNumberEntry = 0x12;
constexpr std::size_t descriptionLimit = 64;
constexpr std::size_t serialNumberLimit = 16;
constexpr std::uint8_t stringDescriptor = 3;
constexpr std::size_t lowerHalf = 0x7F;

std::string textAt(std::span<const std::uint8_t> memory, std::size_t address, std::size_t limit) {
    const std::size_t length = memory[address];
    icu::UnicodeString text;
    for (std::size_t i = 2; i + 1 < length && address + i + 1 < memory.size(); i += 2) {
        const int unit = memory[address + i] | memory[address + i + 1] << 8;
        if (unit == 0 || static_cast<std::size_t>(text.length()) == limit)
            break;
        text.append(static_cast<char16_t>(unit));
    }
    std::string utf8;
    return text.toUTF8String(utf8);
}

std::string textOfEntry(std::span<const std::uint8_t> memory, std::size_t entry,
                        std::size_t limit) {
    if (memory.size() < entry + 2)
        return {};
    const std::size_t address = memory[entry];
    for (const std::size_t candidate : {address, address & lowerHalf})
        if (candidate + 1 < memory.size() && memory[candidate] == memory[entry + 1] &&
            memory[candidate + 1] == stringDescriptor)
            return textAt(memory, candidate, limit);
    return {};
}

} // namespace

DeviceNames parseFtdiMemory(std::span<const std::uint8_t> memory) {
    return {.description = textOfEntry(memory, descriptionEntry, descriptionLimit),
            .serialNumber = textOfEntry(memory, serialNumberEntry, serialNumberLimit)};
}

} // namespace vorna
