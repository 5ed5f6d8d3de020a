#include "platform/text.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

TEST(Text, CaseFoldsInEveryAlphabet) {
    struct Case {
        const char *a, *b;
        bool equal;
    };
    const Case cases[] = {
        {"form1.Width", "FORM1.width", true}, {"ŘÍP", "říp", true},  {"ПЁТР", "пётр", true},
        {"STRASSE", "straße", true},          {"Rip", "Říp", false}, {"", "a", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(equalFolded(c.a, c.b), c.equal) << c.a << " and " << c.b;
    EXPECT_EQ(upperCase("dráhy řízené, große жизнь"), "DRÁHY ŘÍZENÉ, GROSSE ЖИЗНЬ");
}

TEST(Text, PositionsCountCharactersAndOddBytesAsOneEach) {
    struct Case {
        const char* rule;
        std::string_view taken;
        std::string_view expected;
    };
    const Case cases[] = {
        {"first", firstCharacters("čtyři", 2), "čt"},
        {"first of a shorter text", firstCharacters("č", 9), "č"},
        {"first, odd bytes", firstCharacters("\xFF\x8D\xC4", 2), "\xFF\x8D"},
        {"last", lastCharacters("běží", 2), "ží"},
        {"last of a shorter text", lastCharacters("ž", 2), "ž"},
        {"without the last", withoutLastCharacters("Němcová.daf", 4), "Němcová"},
        {"without more than there is", withoutLastCharacters("daf", 4), ""},
        {"from a position on", characters("žluť", 2, 2), "lu"},
        {"beyond the end", characters("žluť", 4, 9), "ť"},
        {"behind the end", characters("žluť", 5, 2), ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.taken, c.expected) << c.rule;
}

} // namespace
} // namespace vorna
