// A reading's way to the screen and to the file: contact, calibrated value, chart units, and the
// two displays of the free measurement. Every whole number is rounded half to even; what does not
// fit its type, and a division by 0, is a Failure.
#pragma once

#include "core/session.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vorna {

// True when the reading is above the zero point `posun`; at the zero point there is no contact.
bool hasContact(const Session& session, std::int16_t reading);

// C, calibrated device units: (reading - posun) x (sklon / 100), not rounded. Failure when the
// difference leaves 16 bits.
double calibratedValue(const Session& session, std::int16_t reading);

// The live value of a running point as text: C with a decimal point and all the digits that a
// double holds for sure, 15 at most.
std::string liveValueText(double calibrated);

// What a live value's text counts for the peak of its point: a whole number of calibrated units.
// Failure when the text is no number.
std::int32_t peakOfLiveText(std::string_view text);

// Chart units of a calibrated value or of a peak: whole(calibrated / koef).
std::int32_t displayValue(const Session& session, double calibrated);

// What the file holds: whole(displayValue x koef).
std::int32_t storedValue(const Session& session, double displayValue);

// L, the linear display of the free measurement: whole(C).
std::int32_t linearValue(const Session& session, std::int16_t reading);
// The number and CR LF.
std::string linearText(std::int32_t linear);
inline constexpr std::string_view noContactText = "---\r\n";

// The logarithmic display on its way from L; bent by `koeflog`, 0 to `maxhod`. A step that has no
// result (the logarithm of what is not above 0) stays 0.
struct LogarithmicSteps {
    float x = 0;
    double b = 0;
    float den = 0;
    double q = 0; // 100 at L = 0, 0 at L = maxhod
};
LogarithmicSteps logarithmicSteps(const Session& session, std::int32_t linear);

// 100 - whole(q), which rises with L from 0 to 99 at the top of the scale and is negative for a
// negative L. 0 where q is below 1 as a whole number, which is so from just below L = maxhod on:
// there the display reads as without contact.
int logarithmicPercent(const Session& session, std::int32_t linear);
// The percent and " %".
std::string logarithmicText(const Session& session, std::int32_t linear);

} // namespace vorna
