#include "platform/text.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>

namespace vorna {
namespace {

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string toUtf8(const icu::UnicodeString& text) {
    std::string result;
    text.toUTF8String(result);
    return result;
}

icu::UnicodeString fromUtf8(std::string_view text) {
    return icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
}

// The offset behind the character that begins at `offset`.
std::size_t nextCharacter(std::string_view text, std::size_t offset) {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::size_t position = offset;
    U8_FWD_1(bytes, position, text.size());
    return position;
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); at = nextCharacter(text, at))
        ++count;
    return count;
}

} // namespace

std::string foldCase(std::string_view text) {
    if (!isAscii(text))
        return toUtf8(fromUtf8(text).foldCase());
    std::string folded(text);
    for (char& c : folded)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return folded;
}

bool equalFolded(std::string_view a, std::string_view b) {
    return a == b || foldCase(a) == foldCase(b);
}

std::string upperCase(std::string_view text) {
    return toUtf8(fromUtf8(text).toUpper(icu::Locale::getRoot()));
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    for (;;) {
        const std::size_t end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return pieces;
        text.remove_prefix(end + 1);
    }
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    while (count > 0 && end < text.size()) {
        end = nextCharacter(text, end);
        --count;
    }
    return text.substr(0, end);
}

std::string_view lastCharacters(std::string_view text, std::size_t count) {
    const std::size_t all = characterCount(text);
    return all <= count ? text : text.substr(firstCharacters(text, all - count).size());
}

std::string_view withoutLastCharacters(std::string_view text, std::size_t count) {
    const std::size_t all = characterCount(text);
    return all <= count ? std::string_view{} : firstCharacters(text, all - count);
}

std::string_view characters(std::string_view text, std::size_t position, std::size_t count) {
    const std::size_t skipped = firstCharacters(text, position - 1).size();
    return firstCharacters(text.substr(skipped), count);
}

bool matchesWildcards(std::string_view text, std::string_view pattern, Wildcards wildcards) {
    // Walks both once, coming back to the latest any-text sign; never recursive.
    std::size_t t = 0;
    std::size_t p = 0;
    std::size_t starPattern = std::string_view::npos;
    std::size_t starText = 0;
    const auto width = [](std::string_view from) { return firstCharacters(from, 1).size(); };
    while (t < text.size()) {
        const char sign = p < pattern.size() ? pattern[p] : '\0';
        if (p < pattern.size() && sign == wildcards.anyText) { // first: a text can hold one too
            starPattern = p++;
            starText = t;
        } else if (p < pattern.size() && (sign == wildcards.anyCharacter || sign == text[t])) {
            t += sign == wildcards.anyCharacter ? width(text.substr(t)) : 1;
            ++p;
        } else if (starPattern != std::string_view::npos) {
            p = starPattern + 1;
            t = starText += width(text.substr(starText));
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(wildcards.anyText, p) == std::string_view::npos;
}

} // namespace vorna
