// Chart documents as the builders of the evaluation write them, from sample values and texts in
// four languages, and documents that strain the drawing. For the tests of reader and painter and
// for the benchmark.
#pragma once

#include <array>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace vorna::samples {

inline constexpr int columnsType = 11;
inline constexpr int pieType = 4;

// 24 values in chart units, by channel: heart, small intestine, pericardium, triple heater, lung,
// large intestine, bladder, kidney, gall bladder, liver, stomach, spleen, first left then right.
using Values = std::array<int, 24>;

Values sampleValues();
Values allEqual(int value);

struct Texts {
    std::string language;
    std::string subcaption;
    std::string mean;
    std::string yin;
    std::string yang;
    std::string left;
    std::string right;
    std::string share;                      // the word before a slice's value in tool texts
    std::array<std::string, 12> shortNames; // in the order of Values
    std::array<std::string, 5> elements;    // wood, fire, earth, metal, water
    std::array<std::string, 3> contrasts;   // categories of the balance chart
    std::array<std::string, 6> groups;      // energy groups in slice order
    std::array<std::string, 6> titles;      // sides, groups, elements, balance, energy, quadrants
};

std::vector<Texts> allTexts();

struct Measurement {
    Values values = sampleValues();
    int tolerance = 15; // half the band
    bool allFlagged = false;
};

struct Sample {
    std::string name;
    int chartType = columnsType;
    std::string document;
};

std::string sidesDocument(const Measurement& measurement, const Texts& texts);
std::string groupsDocument(const Measurement& measurement, const Texts& texts);
std::string elementsDocument(const Measurement& measurement, const Texts& texts);
std::string balanceDocument(const Measurement& measurement, const Texts& texts);
std::string energyPieDocument(const Measurement& measurement, const Texts& texts);
std::string quadrantPieDocument(const Measurement& measurement, const Texts& texts);
std::string sidePieDocument(const Measurement& measurement, const Texts& texts);
std::string elementPieDocument(const Measurement& measurement, const Texts& texts);

// All eight charts of one measurement; their names begin with `name`.
std::vector<Sample> allCharts(const std::string& name, const Measurement& measurement,
                              const Texts& texts);

// The sample measurement in four languages, and the straining ones.
std::vector<Sample> allSamples();

// The document with a few bytes changed, taken out and put in.
std::string damaged(std::string document, std::mt19937& random);

} // namespace vorna::samples
