// Plain section-and-key text files, read and written as the operating system of the first
// installations does it:
//
//   file    = line*            line = section | entry | other
//   section = "[" name "]"     entry = key "=" value      other = comments (;), blank, unknown
//
// Sections and keys fold case. Blanks round names, keys and values do not count, and one pair of
// surrounding quotes is taken off a value. The first of two equal keys wins. A write changes or
// adds one line and keeps all others, the line ends and the encoding of the file.
#pragma once

#include "platform/encoding.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

// The value of a key as the file holds it now, at most its first 254 characters. A missing file,
// section or key gives the empty text.
std::string ReadIniValue(const std::filesystem::path& file, std::string_view section,
                         std::string_view key, CodePage codePage = CodePage::Windows1250);

// Replaces or adds a key, and reaches the file at once. Line breaks in the value become blanks.
// Failure when the file cannot be written; the old file then stands whole.
void WriteIniValue(const std::filesystem::path& file, std::string_view section,
                   std::string_view key, std::string_view value);

// Several keys of one section, in their order, as so many writes; the file is replaced once.
struct IniValue {
    std::string_view key;
    std::string value;
};
void WriteIniValues(const std::filesystem::path& file, std::string_view section,
                    const std::vector<IniValue>& values);

struct IniEntry {
    std::string section;
    std::string key;
    std::string value;
};

// All entries in file order, values whole; for those who read a file once and ask it often.
std::vector<IniEntry> parseIniEntries(std::string_view text);

// How much of a value a read shows.
inline constexpr std::size_t seenValueCharacters = 254;

} // namespace vorna
