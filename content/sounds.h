// The four sounds of the guided measurement, synthesised from bell and flute tones, so that the
// installation carries no recordings. They are heard beside a lying client: soft onsets, no high
// or harsh partials, and all equally loud.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vorna {

// Samples per second of every sound.
inline constexpr std::uint32_t soundRateHz = 44100;

// One channel of 16-bit samples.
struct SynthesizedSound {
    std::string name; // the file's name, such as "pip.wav"
    std::vector<std::int16_t> samples;
};

// "start.wav" (a run begins: two rising tones, 0.5 s), "pip.wav" (the probe touches: one short
// tone, 0.09 s), "dingdong.wav" (a point is done: two bells downwards, 1 s) and "twinkles.wav" (all
// is done: five bells upwards, 0.9 s), in this order. Each starts and ends in silence and peaks at
// half of full scale, -6 dB.
std::vector<SynthesizedSound> startSounds();

// The bytes of a whole WAV file: PCM, one channel, 16 bits, soundRateHz.
std::string formatWave(const SynthesizedSound& sound);

} // namespace vorna
