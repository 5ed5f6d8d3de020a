#include "evaluation/channel_groups.h"

#include "platform/failure.h"

namespace vorna {

ChannelGroup yinChannels() {
    return {{1, 3, 5, 8, 10, 12, 13, 15, 17, 20, 22, 24}, 12.0};
}

ChannelGroup yangChannels() {
    return {{2, 3, 6, 7, 10, 14, 15, 18, 19, 22}, 10.0};
}

ChannelGroup leftChannels() {
    return {places(1, 12), 12.0};
}

ChannelGroup rightChannels() {
    return {places(13, 24), 12.0};
}

ChannelGroup handChannels() {
    return {{1, 2, 3, 4, 5, 6, 13, 14, 15, 16, 17, 18}, 12.0};
}

ChannelGroup footChannels() {
    return {{7, 8, 9, 10, 11, 12, 19, 20, 21, 22, 23, 24}, 12.0};
}

ChannelGroup allChannels() {
    return {places(1, 24), 24.0};
}

std::int16_t groupLevel(const StoredValues& values, const ChannelGroup& group, std::int16_t koef) {
    return ScaledValue(rawMean(values, group.slots, group.divisor), koef);
}

std::int16_t groupLevelOrZero(const StoredValues& values, const ChannelGroup& group,
                              std::int16_t koef) {
    std::int16_t level = 0;
    attempt([&] { level = groupLevel(values, group, koef); });
    return level;
}

} // namespace vorna
