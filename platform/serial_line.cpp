#include "platform/serial_line.h"

#include "platform/text.h"

#include <algorithm>

namespace vorna {

std::string serialDevicePath(std::string_view port) {
    constexpr std::string_view prefix = "COM";
    const std::string_view number = port.substr(std::min(port.size(), prefix.size()));
    const bool isPortNumber =
        equalFolded(port.substr(0, prefix.size()), prefix) && !number.empty() &&
        std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
    return isPortNumber ? "/dev/ttyUSB" + std::string(number) : std::string(port);
}

} // namespace vorna
