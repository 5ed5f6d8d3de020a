// What pictures tell in words, and which pictures are asked for: out of the sources of the
// reference tables.
#pragma once

#include "platform/files.h"

#include <QString>

#include <array>
#include <map>
#include <string>
#include <vector>

namespace vorna {

// A text in the four languages, Czech, English, German and Russian.
using FourTexts = std::array<QString, 4>;

struct MeridianTexts {
    std::string code; // "LU": the short name in English
    FourTexts shortName;
    int element = 0; // 0: none
    bool yang = false;
};

// A place in a measurement set.
struct SetRow {
    int sada = 0;
    std::string extIndex; // its last character: 1 left, 2 right, 3 midline
    std::string pointLong;
};

struct ReferenceTexts {
    std::vector<std::string> points; // pointLong
    std::map<std::string, MeridianTexts> meridians;
    std::map<int, FourTexts> elements;
    FourTexts yin;
    FourTexts yang;
    std::map<std::string, FourTexts> words; // of the teaching pictures alone, by key
    std::vector<SetRow> setRows;
};

// Reads the folder of the sources. Failure, naming the file, when one is missing or faulty.
ReferenceTexts readReferenceTexts(const fs::path& sources);

// True for the two pathways that run in the midline.
bool isMidline(const std::string& pointLong);

} // namespace vorna
