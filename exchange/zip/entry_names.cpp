#include "exchange/zip/entry_names.h"

#include "platform/files.h"
#include "platform/text.h"

#include <array>

namespace vorna {
namespace {

// Leaves room for the folder that the entry goes to.
constexpr std::size_t longestPath = 1000;

// The letters beyond ASCII of the languages that clients' names are mostly in: Czech, Slovak,
// German.
constexpr std::string_view usualLetters = "áäčďéěíĺľňóôöŕřšťúůüýžßÁÄČĎÉĚÍĹĽŇÓÔÖŔŘŠŤÚŮÜÝŽ";

struct Character {
    long evidence = 0; // for the code page in which the byte is this character
    bool isSmall = false;
    bool isCapital = false;
};
using CharacterTable = std::array<Character, 256>;

bool isLetter(const std::string& character) {
    return upperCase(character) != foldCase(character);
}

// Not Greek or mathematical, of which code page 437 has but a few.
bool isLatin(const std::string& character) {
    constexpr unsigned char lastOfLatin = 0xC5; // the first byte of U+017F
    return static_cast<unsigned char>(character.front()) <= lastOfLatin;
}

CharacterTable tableOf(CodePage codePage) {
    constexpr long evidenceOfUsual = 2;
    constexpr long evidenceOfSign = -2;
    CharacterTable table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        const std::string character = decode(std::string(1, static_cast<char>(byte)), codePage);
        Character& entry = table[byte];
        entry.isCapital = isLetter(character) && upperCase(character) == character;
        entry.isSmall = isLetter(character) && !entry.isCapital;
        if (byte >= 0x80)
            entry.evidence = usualLetters.find(character) != std::string_view::npos
                                 ? evidenceOfUsual
                             : isLetter(character) && isLatin(character) ? 0
                                                                         : evidenceOfSign;
    }
    return table;
}

long evidence(std::string_view name, const CharacterTable& table) {
    constexpr long evidenceOfCapitalInside = -2; // "TomáÜek"
    long sum = 0;
    const Character* before = nullptr;
    for (const char c : name) {
        const Character& character = table[static_cast<unsigned char>(c)];
        sum += character.evidence;
        if (before != nullptr && before->isSmall && character.isCapital &&
            static_cast<unsigned char>(c) >= 0x80)
            sum += evidenceOfCapitalInside;
        before = &character;
    }
    return sum;
}

} // namespace

void NameDecoder::see(std::string_view name) {
    if (isUtf8(name))
        return;
    static const CharacterTable windows1250 = tableOf(CodePage::Windows1250);
    static const CharacterTable cp437 = tableOf(CodePage::Cp437);
    windows1250_ += evidence(name, windows1250);
    cp437_ += evidence(name, cp437);
}

std::string NameDecoder::decoded(std::string_view name) const {
    if (isUtf8(name))
        return std::string(name);
    return decode(name, cp437_ > windows1250_ ? CodePage::Cp437 : CodePage::Windows1250);
}

EntryPath entryPath(std::string_view name) {
    const auto isSeparator = [](char c) { return c == '/' || c == '\\'; };
    if (name.empty())
        return {.complaint = "has no name"};
    if (name.size() > longestPath)
        return {.complaint = "has a name that is too long"};
    if (isSeparator(name.front()))
        return {.complaint = "leads out of the folder"};
    EntryPath entry;
    while (!name.empty()) {
        std::size_t length = 0;
        while (length < name.size() && !isSeparator(name[length]))
            ++length;
        const std::string_view part = name.substr(0, length);
        entry.isFolder = length < name.size();
        name.remove_prefix(entry.isFolder ? length + 1 : length);
        if (part.empty() || part == ".")
            continue;
        if (part == "..")
            return {.complaint = "leads out of the folder"};
        if (isForbiddenFileName(part))
            return {.complaint = "has a name that not every computer can store"};
        entry.path += (entry.path.empty() ? "" : "/") + std::string(part);
    }
    entry.isFolder = entry.isFolder || entry.path.empty();
    return entry;
}

} // namespace vorna
