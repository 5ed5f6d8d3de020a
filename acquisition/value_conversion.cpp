#include "acquisition/value_conversion.h"

#include "acquisition/reading_line.h"
#include "core/number.h"
#include "platform/failure.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace vorna {
namespace {

// Failure for what has no logarithm.
double naturalLogarithm(double number) {
    if (!(number > 0))
        throw Failure("a logarithm of what is not above 0");
    return std::log(number);
}

// The ends of the logarithmic curve, kept off the logarithm of 0.
constexpr double curveStart = 0.001;
constexpr double curveEnd = 1.001;

} // namespace

bool hasContact(const Session& session, std::int16_t reading) {
    return reading > session.posun;
}

double calibratedValue(const Session& session, std::int16_t reading) {
    return subtractedInt16(reading, session.posun) * (session.sklon / 100.0);
}

std::string liveValueText(double calibrated) {
    std::array<char, 32> buffer{};
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), calibrated,
                      std::chars_format::general, std::numeric_limits<double>::digits10);
    return {buffer.data(), result.ptr};
}

std::int32_t peakOfLiveText(std::string_view text) {
    return roundToInt32(numberOfDecimalText(text));
}

std::int32_t displayValue(const Session& session, double calibrated) {
    return roundToInt32(divided(calibrated, session.koef));
}

std::int32_t storedValue(const Session& session, double displayValue) {
    return roundToInt32(displayValue * session.koef);
}

std::int32_t linearValue(const Session& session, std::int16_t reading) {
    return roundToInt32(calibratedValue(session, reading));
}

std::string linearText(std::int32_t linear) {
    return decimalText(std::int64_t{linear}) + std::string(lineEnd);
}

LogarithmicSteps logarithmicSteps(const Session& session, std::int32_t linear) {
    const std::int16_t k = session.koeflog;
    LogarithmicSteps steps;
    attempt([&] { steps.x = static_cast<float>(curveEnd - divided(linear, session.maxhod)); });
    attempt([&] { steps.b = naturalLogarithm(curveStart + k); });
    attempt([&] { steps.den = static_cast<float>(naturalLogarithm(curveEnd + k) - steps.b); });
    attempt([&] {
        const float sum = steps.x + static_cast<float>(k);
        steps.q = divided(naturalLogarithm(sum) - steps.b, steps.den) * 100;
    });
    return steps;
}

int logarithmicPercent(const Session& session, std::int32_t linear) {
    int percent = 0;
    attempt([&] {
        const std::int16_t whole = roundToInt16(logarithmicSteps(session, linear).q);
        if (whole >= 1)
            percent = 100 - whole;
    });
    return percent;
}

std::string logarithmicText(const Session& session, std::int32_t linear) {
    return decimalText(std::int64_t{logarithmicPercent(session, linear)}) + " %";
}

} // namespace vorna
