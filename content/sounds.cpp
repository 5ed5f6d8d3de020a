#include "content/sounds.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <span>
#include <string_view>

namespace vorna {
namespace {

constexpr double pi = std::numbers::pi;
constexpr double peakOfFullScale = 0.5;
constexpr double endFadeS = 0.03;

// A tone's overtone: its frequency and strength beside the tone's own, and how much of the tone's
// decay time it lasts.
struct Partial {
    double ratio;
    double gain;
    double duration;
};

struct Timbre {
    std::span<const Partial> partials;
    double attackS;
};

struct Note {
    double startS;
    double frequencyHz;
    double gain;
    double decayS; // time to fall to 1/e
};

// A small hand bell: the overtones lie beside the whole multiples and die away sooner.
constexpr Partial bellPartials[] = {
    {1, 1, 1}, {2, 0.28, 0.6}, {2.76, 0.14, 0.35}, {4.1, 0.05, 0.2}};
constexpr Partial flutePartials[] = {{1, 1, 1}, {2, 0.18, 0.8}, {3, 0.06, 0.6}};
constexpr Timbre bell{bellPartials, 0.004};
constexpr Timbre flute{flutePartials, 0.012};

// The frequencies of the tempered scale that the melodies use.
constexpr double c5 = 523.25;
constexpr double e5 = 659.26;
constexpr double g5 = 783.99;
constexpr double a5 = 880.00;
constexpr double c6 = 1046.50;
constexpr double e6 = 1318.51;
constexpr double g6 = 1567.98;
constexpr double c7 = 2093.00;

constexpr Note startNotes[] = {{0.00, e5, 0.85, 0.16}, {0.16, a5, 1.00, 0.20}};
constexpr Note pipNotes[] = {{0.00, c6, 1.00, 0.035}};
constexpr Note dingdongNotes[] = {{0.00, e5, 1.00, 0.28}, {0.36, c5, 1.00, 0.34}};
constexpr Note twinklesNotes[] = {{0.00, g5, 0.90, 0.14},
                                  {0.10, c6, 0.90, 0.14},
                                  {0.20, e6, 0.85, 0.15},
                                  {0.30, g6, 0.80, 0.16},
                                  {0.40, c7, 0.75, 0.22}};

// Rises from 0 to 1 without a corner at either end while x goes from 0 to 1.
double smoothStep(double x) {
    return 0.5 - 0.5 * std::cos(pi * std::clamp(x, 0.0, 1.0));
}

// The note's value `seconds` after its start, at least 0.
double noteValue(const Note& note, const Timbre& timbre, double seconds) {
    double value = 0;
    for (const Partial& partial : timbre.partials) {
        value += partial.gain * std::exp(-seconds / (note.decayS * partial.duration)) *
                 std::sin(2 * pi * note.frequencyHz * partial.ratio * seconds);
    }
    return note.gain * smoothStep(seconds / timbre.attackS) * value;
}

std::vector<double> mix(double lengthS, const Timbre& timbre, std::span<const Note> notes) {
    std::vector<double> wave(static_cast<std::size_t>(std::lrint(lengthS * soundRateHz)));
    const double lastS = static_cast<double>(wave.size() - 1) / soundRateHz;
    for (std::size_t i = 0; i < wave.size(); ++i) {
        const double seconds = static_cast<double>(i) / soundRateHz;
        for (const Note& note : notes) {
            if (seconds > note.startS) {
                wave[i] += noteValue(note, timbre, seconds - note.startS);
            }
        }
        wave[i] *= smoothStep((lastS - seconds) / endFadeS);
    }
    return wave;
}

SynthesizedSound makeSound(std::string_view name, const std::vector<double>& wave) {
    double peak = 0;
    for (const double value : wave) {
        peak = std::max(peak, std::abs(value));
    }
    SynthesizedSound sound{std::string(name), {}};
    sound.samples.reserve(wave.size());
    for (const double value : wave) {
        const double scaled = value / peak * peakOfFullScale * 32767;
        sound.samples.push_back(static_cast<std::int16_t>(std::lrint(scaled)));
    }
    return sound;
}

void appendLittleEndian(std::string& bytes, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i) {
        bytes.push_back(static_cast<char>((value >> (8 * i)) & 0xFFU));
    }
}

} // namespace

std::vector<SynthesizedSound> startSounds() {
    return {makeSound("start.wav", mix(0.5, flute, startNotes)),
            makeSound("pip.wav", mix(0.09, flute, pipNotes)),
            makeSound("dingdong.wav", mix(1.0, bell, dingdongNotes)),
            makeSound("twinkles.wav", mix(0.9, bell, twinklesNotes))};
}

// "RIFF" size "WAVE", "fmt " 16 and the format (PCM, channels, rate, bytes per second, bytes per
// frame, bits), "data" size and the samples; all numbers little-endian.
std::string formatWave(const SynthesizedSound& sound) {
    constexpr std::uint32_t bytesPerSample = 2;
    const auto dataSize = static_cast<std::uint32_t>(sound.samples.size() * bytesPerSample);
    std::string bytes;
    bytes.reserve(44 + dataSize);
    bytes += "RIFF";
    appendLittleEndian(bytes, 36 + dataSize, 4);
    bytes += "WAVEfmt ";
    appendLittleEndian(bytes, 16, 4);
    appendLittleEndian(bytes, 1, 2);
    appendLittleEndian(bytes, 1, 2);
    appendLittleEndian(bytes, soundRateHz, 4);
    appendLittleEndian(bytes, soundRateHz * bytesPerSample, 4);
    appendLittleEndian(bytes, bytesPerSample, 2);
    appendLittleEndian(bytes, 8 * bytesPerSample, 2);
    bytes += "data";
    appendLittleEndian(bytes, dataSize, 4);
    for (const std::int16_t sample : sound.samples) {
        appendLittleEndian(bytes, static_cast<std::uint16_t>(sample), 2);
    }
    return bytes;
}

} // namespace vorna
