// Text inside the system is UTF-8 in std::string. These are the operations on it that the standard
// library lacks: case without regard to the alphabet, blanks, splitting.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vorna {

// The form under which texts that differ only in case are equal, in any alphabet.
std::string foldCase(std::string_view text);

bool equalFolded(std::string_view a, std::string_view b);

// Capital letters by Unicode's rules (a sharp s becomes SS).
std::string upperCase(std::string_view text);

// Without blanks and tabs at both ends.
std::string_view trimmed(std::string_view text);

// The pieces between the separators; n separators give n + 1 pieces.
std::vector<std::string_view> split(std::string_view text, char separator);

// The first `count` characters (code points), or the whole text when it is shorter. Bytes that are
// no UTF-8 count as one character each.
std::string_view firstCharacters(std::string_view text, std::size_t count);

// The last `count` characters, or the whole text when it is shorter.
std::string_view lastCharacters(std::string_view text, std::size_t count);

// The text less its last `count` characters; empty when it has no more.
std::string_view withoutLastCharacters(std::string_view text, std::size_t count);

// `count` characters from the 1-based position on; less where the text ends earlier.
std::string_view characters(std::string_view text, std::size_t position, std::size_t count);

// The two signs of a pattern: for any text, and for any one character.
struct Wildcards {
    char anyText;
    char anyCharacter;
};
inline constexpr Wildcards fileWildcards{'*', '?'};
inline constexpr Wildcards sqlWildcards{'%', '_'};

// True when the whole text matches the pattern, byte by byte: who wants it without regard to case
// folds both. Takes time in proportion to the text for each any-text sign.
bool matchesWildcards(std::string_view text, std::string_view pattern, Wildcards wildcards);

} // namespace vorna
