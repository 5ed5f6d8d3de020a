// The device's line: what the probe prints for one reading, and what of a line is the reading.
//
//   line    = anything* reading CR LF
//   reading = any any thousands any hundreds tens units      (seven characters: "xx1.234")
//
// The fourth character is the decimal point that the device prints. There is no checksum. What
// stands in front of the reading is nobody's; the simulated device can tell its own time there.
#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
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

// The same with the device's own time in front, in whole milliseconds: "12340 xx1.234".
inline std::string formatTimedLine(std::int64_t milliseconds, int reading) {
    return std::to_string(milliseconds) + " " + formatReadingLine(reading);
}

// The time in milliseconds in front of a line's reading; nothing where the device tells none.
inline std::optional<std::int64_t> timeOfLine(std::string_view line) {
    std::int64_t milliseconds = 0;
    const char* const end = line.data() + line.size();
    const auto result = std::from_chars(line.data(), end, milliseconds);
    if (result.ec != std::errc{} || result.ptr == end || *result.ptr != ' ')
        return std::nullopt;
    return milliseconds;
}

// The digits of the seven characters in front of a line end; empty when there are fewer. They are
// a number only if the device sent one.
inline std::string readingDigits(std::string_view characters) {
    if (characters.size() != readingCharacters)
        return {};
    return {characters[2], characters[4], characters[5], characters[6]};
}

} // namespace vorna
