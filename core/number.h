// Whole numbers out of doubles and numbers as plain decimal text. Every conversion to a whole
// number rounds to the nearest, ties to the even neighbour; what does not fit is a Failure. No
// other code casts a double to an integer.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vorna {

// Failure beyond -32768 .. 32767, and for what is no number.
std::int16_t roundToInt16(double number);

// Failure beyond -2^31 .. 2^31 - 1, and for what is no number.
std::int32_t roundToInt32(double number);

// Failure when the divisor is 0.
double divided(double dividend, double divisor);

// 16-bit subtraction; Failure when the difference leaves 16 bits.
std::int16_t subtractedInt16(std::int16_t a, std::int16_t b);

// "-12", "7"; a double with the shortest digits that give it back: "3.5", "4".
std::string decimalText(std::int64_t number);
std::string decimalText(double number);

// The number that a plain decimal text holds, blanks at its ends left aside. Failure for any other
// text, the empty one too.
double numberOfDecimalText(std::string_view text);

} // namespace vorna
