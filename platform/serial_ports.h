// The machine's USB serial ports, as the system lists them in its folder of terminals: an entry
// ttyUSB<n>, linked into the tree of devices, for each port.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vorna {

inline constexpr const char* serialPortFolder = "/sys/class/tty";

// The numbers n of ttyUSB<n>, ascending. Empty when the folder cannot be read.
std::vector<int> serialPortNumbers(const std::filesystem::path& folder = serialPortFolder);

// The same in the form "COM4:".
std::vector<std::string> serialPortNames();

struct UsbAddress {
    int bus = 0;
    int device = 0;
    bool operator==(const UsbAddress&) const = default;
};

// The lowest number of a port that belongs to the USB device; nothing when it has none.
std::optional<int> serialPortOfDevice(UsbAddress device,
                                      const std::filesystem::path& folder = serialPortFolder);

} // namespace vorna
