// Scoring: how 24 stored values become chart units, group means, a reference level and a
// classification of each meridian side. All roundings are to the nearest, ties to the even
// neighbour, on the double-precision result. Nothing here knows the chart control.
#pragma once

#include "acquisition/measurement_record.h"
#include "core/session.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

// Stored values by slot or by chart place, 1 to 24; [0] unused.
using StoredValues = std::array<std::int32_t, slotCount + 1>;
// The same in chart units, in which 200 is the top of the axis.
using ChartValues = std::array<std::int16_t, slotCount + 1>;

// The 24 places of a chart as a list for GroupMean.
inline constexpr std::string_view allPlaces =
    "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24";

// x / koef, rounded to 16 bits. Failure when koef is 0 or the result does not fit.
std::int16_t ScaledValue(double x, std::int16_t koef);

// ScaledValue of each value. One that fails is left 0, as for a point that
// was not measured.
ChartValues scaledValues(const StoredValues& values, std::int16_t koef);

// The mean in chart units over the comma-separated places of `list`, values of 0 and below left
// out; 0 when nothing is left. Each value is rounded, then the mean. Failure when koef is 0.
std::int32_t GroupMean(const StoredValues& values, std::string_view list, std::int16_t koef);

// The raw values of the places added as they are (zeros count), divided by `divisor` and rounded.
std::int32_t rawMean(const StoredValues& values, const std::vector<int>& places, double divisor);

// first, first + 1, ..., last.
std::vector<int> places(int first, int last);

// The values in the order of a chart (the id in grafytypy) for a kind; a place without a slot is 0.
StoredValues GraphOrder(Session& session, const StoredValues& values, int graf, int kind);

// The spread of a kind 4 measurement over places 1 to 12; 13 to 24 are 0. `slots` gives the slot
// of each place.
using Spread = std::array<std::size_t, 12>;
inline constexpr Spread elementChartSpread{13, 1, 15, 2, 5, 16, 6, 18, 7, 10, 9, 22};
inline constexpr Spread elementPieSpread{10, 7, 15, 2, 13, 1, 22, 9, 5, 16, 18, 6};
StoredValues spreadValues(const StoredValues& values, const Spread& slots);

// What is wrong with one side of one meridian.
enum class ProblemClass : std::int16_t { None = 0, SidesDiffer = 1, Above = 2, Below = 3 };

// The row of the problem table that tells a class.
int problemNumber(ProblemClass problemClass);

struct ProblemEntry {
    ProblemClass problemClass = ProblemClass::None;
    std::string difference; // padded to three characters, so that it sorts as text
    [[nodiscard]] bool flagged() const { return problemClass != ProblemClass::None; }
};

// "7" becomes "007", "12" becomes "012"; longer texts stand.
std::string paddedDifference(std::int64_t difference);

// The level of one value against the band round `reference`: outside it the entry is flagged
// Above or Below with the distance from the edge; on the edge and inside it is not.
ProblemEntry classifyLevel(std::int64_t value, std::int64_t reference, std::int64_t odchylka);

struct ClassifyInput {
    const StoredValues& ordered; // raw, in chart order
    const ChartValues& scaled;   // the same in chart units
    std::int32_t reference;
    bool zeroGuard; // a pair with an unmeasured side is never SidesDiffer
};

// The 24 entries ([0] unused) of charts 1 and 2.
using ProblemEntries = std::array<ProblemEntry, slotCount + 1>;
ProblemEntries Classify(const ClassifyInput& input, const Session& session);

} // namespace vorna
