#include "exchange/rtf_lists.h"

#include <algorithm>

namespace vorna {
namespace {

constexpr std::size_t maxLists = 4096;
constexpr std::size_t maxMarkerBytes = 64;
constexpr int maxListIndent = 8000;
constexpr int bulletKind = 23;
constexpr int noKind = 255;

std::string roman(int value) {
    struct Numeral {
        int value;
        const char* text;
    };
    static constexpr Numeral numerals[] = {
        {1000, "M"}, {900, "CM"}, {500, "D"}, {400, "CD"}, {100, "C"}, {90, "XC"}, {50, "L"},
        {40, "XL"},  {10, "X"},   {9, "IX"},  {5, "V"},    {4, "IV"},  {1, "I"},
    };
    std::string text;
    for (const Numeral& numeral : numerals)
        for (; value >= numeral.value; value -= numeral.value)
            text += numeral.text;
    return text;
}

// a to z, then aa, bb and so on.
std::string letters(int value) {
    return std::string(static_cast<std::size_t>((value - 1) / 26 + 1),
                       static_cast<char>('a' + (value - 1) % 26));
}

std::string upper(std::string text) {
    for (char& c : text)
        c = static_cast<char>(c - 'a' + 'A');
    return text;
}

std::string lower(std::string text) {
    for (char& c : text)
        c = static_cast<char>(c - 'A' + 'a');
    return text;
}

} // namespace

void RtfLists::takeWord(const RtfToken& word) {
    const int number = word.numberOr(0);
    if (word.text == "list" && lists_.size() < maxLists) {
        lists_.emplace_back();
        return;
    }
    if (word.text == "listid") {
        id_ = number;
        if (!inOverrides_ && !lists_.empty())
            byId_[id_] = lists_.size() - 1;
    } else if (word.text == "listoverride") {
        inOverrides_ = true;
    } else if (word.text == "ls" && inOverrides_ && idOf_.size() < maxLists) {
        idOf_[number] = id_;
    } else if (word.text == "listlevel" && !inOverrides_ && !lists_.empty()) {
        if (lists_.back().levels.size() < levelCount)
            lists_.back().levels.emplace_back();
    }
    Level* const level = currentLevel();
    if (level == nullptr)
        return;
    if (word.text == "levelnfc" || word.text == "levelnfcn")
        level->kind = number;
    else if (word.text == "levelstartat")
        level->start = std::clamp(number, 0, 32767);
    else if (word.text == "li")
        level->left = std::clamp(number, 0, maxListIndent);
    else if (word.text == "fi")
        level->first = std::clamp(number, -maxListIndent, maxListIndent);
}

void RtfLists::setLevelText(const std::string& text) {
    Level* const level = currentLevel();
    if (level == nullptr || text.empty())
        return;
    level->text.clear();
    const std::size_t start = static_cast<unsigned char>(text[0]) < 0x20 ? 1 : 0;
    for (const char c : text.substr(start, text.rfind(';') - start))
        if (static_cast<unsigned char>(c) < levelCount || static_cast<unsigned char>(c) >= 0x20)
            level->text += c;
    if (level->text.size() > maxMarkerBytes)
        level->text.clear();
}

std::optional<RtfListMark> RtfLists::nextMark(int list, int level) {
    const auto id = idOf_.find(list);
    const auto found = id == idOf_.end() ? byId_.end() : byId_.find(id->second);
    if (found == byId_.end())
        return std::nullopt;
    List& described = lists_[found->second];
    const auto at = static_cast<std::size_t>(std::clamp(level, 0, 8));
    if (at >= described.levels.size())
        return std::nullopt;
    const Level& own = described.levels[at];
    int& counter = described.counters[at];
    counter = described.counting[at] ? std::min(counter + 1, 32767) : own.start;
    described.counting[at] = true;
    std::fill(described.counting.begin() + static_cast<std::ptrdiff_t>(at) + 1,
              described.counting.end(), false);
    const std::string text = own.kind == bulletKind ? "•" : expanded(described, at);
    if (own.kind == noKind || text.empty())
        return std::nullopt;
    return RtfListMark{text, own.left, own.first};
}

std::string RtfLists::number(int value, int kind) {
    switch (value >= 1 ? kind : 0) {
    case 1:
        return value < 4000 ? roman(value) : std::to_string(value);
    case 2:
        return value < 4000 ? lower(roman(value)) : std::to_string(value);
    case 3:
        return value <= 260 ? upper(letters(value)) : std::to_string(value);
    case 4:
        return value <= 260 ? letters(value) : std::to_string(value);
    case 22:
        return (value < 10 ? "0" : "") + std::to_string(value);
    default:
        return std::to_string(value);
    }
}

std::string RtfLists::expanded(const List& list, std::size_t level) {
    std::string text;
    for (const char c : list.levels[level].text) {
        const auto place = static_cast<unsigned char>(c);
        if (place >= levelCount) {
            text += c;
        } else if (place < list.levels.size()) {
            const Level& named = list.levels[place];
            text += number(list.counting[place] ? list.counters[place] : named.start, named.kind);
        }
    }
    return text;
}

RtfLists::Level* RtfLists::currentLevel() {
    const bool named = !inOverrides_ && !lists_.empty() && !lists_.back().levels.empty();
    return named ? &lists_.back().levels.back() : nullptr;
}

} // namespace vorna
