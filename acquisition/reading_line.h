// The device's line: what the probe prints for one reading, and what of a line is the reading.
//
//   line    = anything* reading CR LF
//   reading = any any thousands any hundreds tens units      (seven characters: "xx1.234")
//
// The fourth character is the decimal point that the device prints. There is no checksum.
#pragma once

#include <string>
#include <string_view>

namespace vorna {

inline constexpr std::string_view lineEnd = "\r\n";
inline constexpr std::size_t readingCharacters = 7;

// The line of a reading of 0 to 9999 device units, with its end.
inline std::string formatReadingLine(int reading) {
    const auto digit = [reading](int divisor) {
        return static_cast<char>('0' + reading / divisor % 10);
    };
    return {'x', 'x', digit(1000), '.', digit(100), digit(10), digit(1), '\r', '\n'};
}

// The digits of the seven characters in front of a line end; empty when there are fewer. They are
// a number only if the device sent one.
inline std::string readingDigits(std::string_view characters) {
    if (characters.size() != readingCharacters)
        return {};
    return {characters[2], characters[4], characters[5], characters[6]};
}

} // namespace vorna
