#include "core/number.h"

#include "platform/failure.h"
#include "platform/text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace vorna {
namespace {

template <class Integer>
Integer rounded(double number) {
    // nearbyint rounds as the process's rounding mode says, which is half to even and never set.
    const double whole = std::nearbyint(number);
    if (!(whole >= std::numeric_limits<Integer>::min() &&
          whole <= std::numeric_limits<Integer>::max()))
        throw Failure("a number does not fit");
    return static_cast<Integer>(whole);
}

} // namespace

std::int16_t roundToInt16(double number) {
    return rounded<std::int16_t>(number);
}

std::int32_t roundToInt32(double number) {
    return rounded<std::int32_t>(number);
}

double divided(double dividend, double divisor) {
    if (divisor == 0)
        throw Failure("a division by zero");
    return dividend / divisor;
}

std::int16_t subtractedInt16(std::int16_t a, std::int16_t b) {
    return roundToInt16(double(a) - double(b));
}

std::string decimalText(std::int64_t number) {
    return std::to_string(number);
}

std::string decimalText(double number) {
    std::array<char, 400> buffer{}; // the longest double in fixed notation has 327 characters
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                      std::chars_format::fixed);
    return {buffer.data(), result.ptr};
}

double numberOfDecimalText(std::string_view text) {
    text = trimmed(text);
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number, std::chars_format::general);
    if (result.ec != std::errc{} || result.ptr != end || !std::isfinite(number))
        throw Failure("a text is no number");
    return number;
}

} // namespace vorna
