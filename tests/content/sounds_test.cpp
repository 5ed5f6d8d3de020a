#include "content/sounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <span>

namespace vorna {
namespace {

// The strength of one frequency in a stretch of samples, as the amplitude of a steady tone.
double strength(std::span<const std::int16_t> samples, double frequencyHz) {
    double cosine = 0;
    double sine = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double angle =
            2 * std::numbers::pi * frequencyHz * static_cast<double>(i) / soundRateHz;
        cosine += samples[i] * std::cos(angle);
        sine += samples[i] * std::sin(angle);
    }
    return 2 * std::hypot(cosine, sine) / static_cast<double>(samples.size());
}

std::span<const std::int16_t> stretch(const SynthesizedSound& sound, double startS,
                                      double lengthS) {
    return std::span(sound.samples)
        .subspan(static_cast<std::size_t>(startS * soundRateHz),
                 static_cast<std::size_t>(lengthS * soundRateHz));
}

int largestStep(std::span<const std::int16_t> samples) {
    int largest = 0;
    for (std::size_t i = 1; i < samples.size(); ++i) {
        largest = std::max(largest, std::abs(samples[i] - samples[i - 1]));
    }
    return largest;
}

// A sound's first and last tone, each with a moment at which it is the loudest.
struct SoundCase {
    const char* name;
    std::size_t sampleCount;
    double firstS, firstHz;
    double lastS, lastHz;
};

TEST(Sounds, HaveTheirLengthLoudnessAndMelodyWithoutClicks) {
    const SoundCase cases[] = {
        {"start.wav", 22050, 0.03, 659.26, 0.30, 880.0},
        {"pip.wav", 3969, 0.01, 1046.5, 0.02, 1046.5},
        {"dingdong.wav", 44100, 0.05, 659.26, 0.70, 523.25},
        {"twinkles.wav", 39690, 0.03, 783.99, 0.50, 2093.0},
    };
    const std::vector<SynthesizedSound> sounds = startSounds();
    ASSERT_EQ(sounds.size(), std::size(cases));
    for (std::size_t i = 0; i < sounds.size(); ++i) {
        const SoundCase& expected = cases[i];
        const SynthesizedSound& sound = sounds[i];
        SCOPED_TRACE(expected.name);
        EXPECT_EQ(sound.name, expected.name);
        ASSERT_EQ(sound.samples.size(), expected.sampleCount);

        const auto [low, high] = std::minmax_element(sound.samples.begin(), sound.samples.end());
        EXPECT_NEAR(std::max<int>(*high, -*low), 16384, 2);

        EXPECT_EQ(sound.samples.front(), 0);
        EXPECT_EQ(sound.samples.back(), 0);
        EXPECT_LT(largestStep(stretch(sound, 0, 0.0005)), 100);
        EXPECT_LT(largestStep(std::span(sound.samples).last(22)), 10);
        EXPECT_LT(largestStep(sound.samples), 6000);

        const auto first = stretch(sound, expected.firstS, 0.06);
        const auto last = stretch(sound, expected.lastS, 0.06);
        EXPECT_GT(strength(first, expected.firstHz), 2000);
        EXPECT_GT(strength(last, expected.lastHz), 2000);
        if (expected.firstHz != expected.lastHz) {
            EXPECT_GT(strength(first, expected.firstHz), 3 * strength(first, expected.lastHz));
            EXPECT_GT(strength(last, expected.lastHz), 3 * strength(last, expected.firstHz));
        }
    }
}

TEST(Sounds, WaveFileHoldsHeaderAndSamplesLittleEndian) {
    const std::string expected("RIFF\x2A\0\0\0WAVEfmt \x10\0\0\0\x01\0\x01\0"
                               "\x44\xAC\0\0\x88\x58\x01\0\x02\0\x10\0"
                               "data\x06\0\0\0\x01\x02\xFF\xFF\0\x80",
                               50);
    EXPECT_EQ(formatWave({"x.wav", {0x0201, -1, -32768}}), expected);
}

} // namespace
} // namespace vorna
