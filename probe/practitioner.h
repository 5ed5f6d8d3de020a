// The simulated practitioner: takes the 24 points of a guided run on a made-up client, one after
// the other. She sees nothing of the run; she holds each point as long as a run with the default
// settings needs it, and waits until the next one must be asked for.
#pragma once

#include "probe/play.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace vorna {

inline constexpr std::size_t pointCount = 24;

enum class Profile : std::uint8_t {
    Balanced,  // every point near the middle, both sides alike
    OneSided,  // the first side stronger, several channels much
    Exhausted, // low everywhere, some channels at the bottom
    Unsteady   // as balanced, but the probe slips: the start is lost once or twice, later one tick
};

// "balanced", "one-sided", "exhausted", "unsteady"; by their values.
std::span<const std::string_view> profileNames();
std::optional<Profile> profileOfName(std::string_view name);

struct PractitionerSession {
    // The peaks in device units, in the order in which a run asks for the points: 1, 13, 2, 14 ...
    std::array<int, pointCount> peaks{};
    Play play;
};

// The same seed gives the same session. After the last point the play takes that point again and
// again, for a run that missed one.
PractitionerSession makePractitionerSession(Profile profile, std::uint32_t seed);

} // namespace vorna
