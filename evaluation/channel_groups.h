// The channel groups by which a measurement is judged as a whole. Slots 1 to 12 are the left side,
// 13 to 24 the right; 1 to 6 and 13 to 18 the hands, the others the feet. The yin and the yang
// group are no partition: the lists stand as they are.
#pragma once

#include "evaluation/scoring.h"

#include <vector>

namespace vorna {

struct ChannelGroup {
    std::vector<int> slots;
    double divisor;
};

ChannelGroup yinChannels();
ChannelGroup yangChannels(); // ten channels
ChannelGroup leftChannels();
ChannelGroup rightChannels();
ChannelGroup handChannels();
ChannelGroup footChannels();
ChannelGroup allChannels();

// The raw mean of the group, rounded, then in chart units, rounded again. Failure when koef is 0
// or the level does not fit 16 bits.
std::int16_t groupLevel(const StoredValues& values, const ChannelGroup& group, std::int16_t koef);

// As above, 0 where it fails.
std::int16_t groupLevelOrZero(const StoredValues& values, const ChannelGroup& group,
                              std::int16_t koef);

} // namespace vorna
