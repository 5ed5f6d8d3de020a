// What the simulated probe reads as time goes by: a course of readings, made from a script or by
// the simulated practitioner.
#pragma once

#include <string_view>
#include <vector>

namespace vorna {

inline constexpr int largestReading = 9999; // device units

// A stretch of time in which the reading goes evenly from one value to another.
struct Stretch {
    double seconds = 0;
    double from = 0; // device units
    double to = 0;
};

struct Play {
    std::vector<Stretch> stretches;
    double lastPointFrom = 0; // seconds from the start: from here on the reader may leave for good
    double repeatFrom = 0; // at the end it goes on from here; at the end itself: the last reading
                           // stays
};

double lengthOf(const Play& play);

// The nearest whole reading, ties to the even one. Failure when the probe cannot read that.
int wholeReading(double reading);

// The reading at a time in seconds from the start, 0 to largestReading.
int readingAt(const Play& play, double seconds);

// A script has lines of "seconds reading": for so long the probe reads that. Empty lines and those
// that begin with # are passed over. Failure, naming the line, for anything else.
Play parseScript(std::string_view text);

} // namespace vorna
