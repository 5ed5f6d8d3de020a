#include "evaluation/scoring.h"

#include "acquisition/measurement_sets.h"
#include "core/number.h"
#include "platform/failure.h"
#include "platform/text.h"

#include <cstdlib>
#include <numeric>

namespace vorna {

std::int16_t ScaledValue(double x, std::int16_t koef) {
    return roundToInt16(divided(x, koef));
}

ChartValues scaledValues(const StoredValues& values, std::int16_t koef) {
    ChartValues scaled{};
    for (std::size_t i = 1; i <= slotCount; ++i)
        attempt([&] { scaled[i] = ScaledValue(values[i], koef); });
    return scaled;
}

std::int32_t GroupMean(const StoredValues& values, std::string_view list, std::int16_t koef) {
    double sum = 0;
    double count = 0;
    for (const std::string_view place : split(list, ',')) {
        const std::int32_t value = values[slotOfText(place)];
        if (value > 0) {
            sum += roundToInt32(divided(value, koef));
            ++count;
        }
    }
    return sum > 0 ? roundToInt32(sum / count) : 0;
}

std::int32_t rawMean(const StoredValues& values, const std::vector<int>& places, double divisor) {
    const double sum =
        std::accumulate(places.begin(), places.end(), 0.0, [&](double so, int place) {
            return so + values[static_cast<std::size_t>(place)];
        });
    return roundToInt32(sum / divisor);
}

std::vector<int> places(int first, int last) {
    std::vector<int> numbers(static_cast<std::size_t>(last - first + 1));
    std::iota(numbers.begin(), numbers.end(), first);
    return numbers;
}

StoredValues GraphOrder(Session& session, const StoredValues& values, int graf, int kind) {
    StoredValues ordered{};
    for (int place = 1; place <= slotCount; ++place)
        attempt([&] {
            ordered[static_cast<std::size_t>(place)] =
                values[slotOfText(lookupChartPoint(session, place, kind, PointField::Slot, graf))];
        });
    return ordered;
}

StoredValues spreadValues(const StoredValues& values, const Spread& slots) {
    StoredValues spread{};
    for (std::size_t i = 0; i < slots.size(); ++i)
        spread[i + 1] = values[slots[i]];
    return spread;
}

int problemNumber(ProblemClass problemClass) {
    switch (problemClass) {
    case ProblemClass::SidesDiffer:
        return 1;
    case ProblemClass::Above:
        return 3;
    case ProblemClass::Below:
        return 2;
    case ProblemClass::None:
        break;
    }
    return 0;
}

std::string paddedDifference(std::int64_t difference) {
    std::string text = decimalText(difference);
    if (text.size() < 3)
        text.insert(0, 3 - text.size(), '0');
    return text;
}

ProblemEntry classifyLevel(std::int64_t value, std::int64_t reference, std::int64_t odchylka) {
    if (value > reference + odchylka)
        return {ProblemClass::Above, paddedDifference(std::abs(value - (reference + odchylka)))};
    if (value < reference - odchylka)
        return {ProblemClass::Below, paddedDifference(std::abs(value - (reference - odchylka)))};
    return {};
}

ProblemEntries Classify(const ClassifyInput& input, const Session& session) {
    const std::int64_t above = std::int64_t{input.reference} + session.odchylka;
    const std::int64_t below = std::int64_t{input.reference} - session.odchylka;
    ProblemEntries entries;
    for (std::size_t i = 1; i <= pairDistance; ++i) {
        const std::size_t other = i + pairDistance;
        const int a = input.scaled[i];
        const int b = input.scaled[other];
        if (std::abs(a - b) <= session.rozstep)
            continue;
        if (input.zeroGuard && (input.ordered[i] <= 0 || input.ordered[other] <= 0))
            continue;
        // Two sides that are both out of the band are told by their levels instead.
        if ((a > above && b > above) || (a < below && b < below))
            continue;
        entries[i] =
            entries[other] = {ProblemClass::SidesDiffer, paddedDifference(std::abs(a - b))};
    }
    for (std::size_t i = 1; i <= slotCount; ++i)
        if (!entries[i].flagged())
            entries[i] = classifyLevel(input.scaled[i], input.reference, session.odchylka);
    return entries;
}

} // namespace vorna
