#include "probe/practitioner.h"

#include <algorithm>
#include <random>

namespace vorna {
namespace {

constexpr std::array<std::string_view, 4> names{"balanced", "one-sided", "exhausted", "unsteady"};

// Longer than a calibration looks at the probe at rest.
constexpr double restSeconds = 4;

// A guided run with the default settings.
constexpr double unitsPerChartUnit = 30;
constexpr double tickSeconds = 0.2;
constexpr int contactTicks = 41; // the count that ends a point
constexpr double fastLevel = 41; // chart units above which a tick counts twice
// From one point's end to the next one's begin: the sound, the notice and the pause.
constexpr double pauseSeconds = 1.0 + 2.0 + 0.5;

// So long the probe stays off into the next point, which then begins afresh.
constexpr double offIntoPoint = 2.1;
// So long the probe is held at least beyond what a run needs.
constexpr double contactMargin = 2.0;

class Practitioner {
public:
    Practitioner(Profile profile, std::uint32_t seed) : profile_(profile), random_(seed) {}

    PractitionerSession session() {
        PractitionerSession made;
        choosePeaks(made.peaks);
        off(restSeconds);
        for (std::size_t point = 0; point < pointCount; ++point) {
            play_.repeatFrom = lengthOf(play_);
            takePoint(made.peaks[point]);
        }
        made.play = std::move(play_);
        return made;
    }

private:
    double between(double least, double most) {
        return std::uniform_real_distribution<double>(least, most)(random_);
    }

    // A channel's two sides follow each other.
    void choosePeaks(std::array<int, pointCount>& peaks) {
        for (std::size_t point = 0; point < pointCount; point += 2) {
            double first = between(90, 112);
            double second = first + between(-6, 6);
            if (profile_ == Profile::OneSided) {
                first = between(100, 140);
                second = first - (point % 6 == 0 ? between(52, 65) : between(8, 30));
            } else if (profile_ == Profile::Exhausted) {
                first = point % 8 == 6 ? between(9, 20) : between(30, 58);
                second = first + between(-4, 4);
            }
            peaks[point] = wholeReading(first * unitsPerChartUnit);
            peaks[point + 1] = wholeReading(second * unitsPerChartUnit);
        }
    }

    void off(double seconds) { play_.stretches.push_back({.seconds = seconds}); }

    void touch(double seconds, double from, double to) {
        play_.stretches.push_back({.seconds = seconds, .from = from, .to = to});
    }

    void takePoint(double peak) {
        const bool unsteady = profile_ == Profile::Unsteady;
        if (unsteady)
            for (double touches = between(1, 3); touches >= 1; --touches) {
                touch(between(0.6, 2.0), peak * 0.3, peak * between(0.5, 0.9));
                off(between(0.7, 1.0));
            }
        const std::size_t firstStretch = play_.stretches.size();
        const double begin = lengthOf(play_);
        touch(0.4, peak * 0.4, peak * 0.8);
        touch(0.6, peak * 0.8, peak);
        touch(0.8, peak, peak); // long enough for a tick to see it
        if (unsteady)
            off(0.12); // a tick sees this or not; one is forgiven
        const double swing = unsteady ? 0.8 : 0.95;
        double level = peak * swing;
        while (secondsNeeded(firstStretch) < 0) {
            const double next = peak * between(swing, 1.0);
            touch(between(0.3, 0.6), level, next);
            level = next;
        }
        const double needed = secondsNeeded(firstStretch);
        play_.lastPointFrom = begin + needed / 2;
        const double margin = contactMargin + 0.1 * needed;
        touch(begin + needed + margin - lengthOf(play_), level, peak * swing);
        off(pauseSeconds - margin + offIntoPoint + between(0, 0.4));
    }

    // After how much contact a run is done with the point, whenever its ticks fall; below 0 when
    // the contact so far is not enough.
    double secondsNeeded(std::size_t firstStretch) {
        Play contact;
        contact.stretches.assign(play_.stretches.begin() + std::ptrdiff_t(firstStretch),
                                 play_.stretches.end());
        const double length = lengthOf(contact);
        contact.repeatFrom = length;
        int count = 0;
        double seconds = 0;
        for (; count < contactTicks && seconds < length; seconds += tickSeconds) {
            const double level = readingAt(contact, seconds) / unitsPerChartUnit;
            count += level > fastLevel ? 2 : 1;
        }
        // One tick that did not see the contact yet, one that may be lost, one that accepts.
        return count < contactTicks ? -1 : seconds + 3 * tickSeconds;
    }

    Profile profile_;
    std::mt19937 random_;
    Play play_;
};

} // namespace

std::span<const std::string_view> profileNames() {
    return names;
}

std::optional<Profile> profileOfName(std::string_view name) {
    const auto at = std::find(names.begin(), names.end(), name);
    if (at == names.end())
        return std::nullopt;
    return static_cast<Profile>(at - names.begin());
}

PractitionerSession makePractitionerSession(Profile profile, std::uint32_t seed) {
    return Practitioner(profile, seed).session();
}

} // namespace vorna
