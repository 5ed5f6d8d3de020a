// The memory of an FTDI chip, as far as it tells who the device is. Its bytes come from outside:
// whatever they are, reading them is safe.
//
//   offset 0x10  address, length in bytes of the description
//   offset 0x12  address, length in bytes of the serial number
//   address      length, 3, UTF-16LE characters      (a USB string descriptor)
//
// Chips with half the memory have the descriptors in their lower half, with the high bit of the
// address set or not.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace vorna {

struct DeviceNames {
    std::string description;  // UTF-8, at most 64 characters
    std::string serialNumber; // at most 16 characters
};

// What is not there, or is damaged, is empty. A text ends at its first zero.
DeviceNames parseFtdiMemory(std::span<const std::uint8_t> memory);

} // namespace vorna
