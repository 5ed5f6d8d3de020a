#include "acquisition/measurement_name.h"
#include "core/session.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

TEST(MeasurementName, IsReadByPositionsAndMarks) {
    struct Case {
        const char *rule, *name, *date, *kind, *practitioner, *mode;
    };
    constexpr const char* date = "31.01.2025 14:30:05";
    const Case cases[] = {
        {"all parts", "250131143005_P_Novak_Jan~Dvořák^T.daf", date, "P", "Dvořák", "T"},
        {"from before the mode", "250131143005_B_Novak_Jan~Dvořák.daf", date, "B", "Dvořák", "A"},
        {"from before the practitioner", "250131143005_E_Novak_Jan.daf", date, "E", "", "A"},
        {"a mode but no practitioner", "250131143005_T_Novak^T.daf", date, "T", "", "T"},
        {"an empty practitioner", "250131143005_T_N~^T.daf", date, "T", "", "T"},
        {"the first of several marks", "250131143005_P_N~a~b^T^A.daf", date, "P", "a~b", "T"},
        {"the marks crosswise", "250131143005_P_N^T~Dvořák.daf", date, "P", "", "T"},
        {"a mark in the first place does not count", "^50131143005_P_N~D.daf",
         "31.01.20^5 14:30:05", "P", "D", "A"},
        {"nor does the other", "~50131143005_P_N^T.daf", "31.01.20~5 14:30:05", "P", "", "T"},
        {"nothing behind the mark", "250131143005_P_N~D^", date, "P", "D", ""},
        {"less than an extension", "250131143005_P_N~daf", date, "P", "", "A"},
        {"letters of two bytes count once", "žšč131143005_Ж_N~D^Ч", "31.č1.20žš 14:30:05", "Ж", "D",
         "Ч"},
        {"nothing is validated", "hello.daf", "o..ll.20he da:f:", "", "", "A"},
        {"empty", "", "..20 ::", "", "", "A"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(vratdatum(c.name), c.date) << c.rule;
        EXPECT_EQ(vrattyp(c.name), c.kind) << c.rule;
        EXPECT_EQ(vratuz(c.name), c.practitioner) << c.rule;
        EXPECT_EQ(vratapmtcm(c.name), c.mode) << c.rule;
    }
}

TEST(MeasurementName, IsJoinedWithNothingBetweenItsParts) {
    EXPECT_EQ(formatMeasurementName({.time = *parseTime("2025-01-31T04:03:05"),
                                     .kindLetter = kindLetterOfSet(1),
                                     .clientLabel = clientLabel("Novák/ová", ""),
                                     .practitioner = "a^b ~",
                                     .modeLetter = modeLetter(modeApm)}),
              "250131040305_P_Novák/ová_~a^b ~^A.daf");
    // Set, its letter, and the set that the letter is read as.
    const std::tuple<int, char, int> kinds[] = {{1, 'P', 1}, {2, 'T', 2}, {3, 'B', 3},
                                                {4, 'E', 4}, {0, 'E', 4}, {9, 'E', 4}};
    for (const auto& [sada, letter, readAs] : kinds) {
        EXPECT_EQ(kindLetterOfSet(sada), letter) << sada;
        EXPECT_EQ(setOfKindLetter(std::string(1, letter)), readAs) << letter;
    }
    for (const char* const other : {"p", "", "PT", "Ж"})
        EXPECT_EQ(setOfKindLetter(other), 4) << other;
    EXPECT_EQ(modeLetter(modeTcm), 'T');
    EXPECT_EQ(modeLetter(2), 'T') << "any mode but 0";
}

} // namespace
} // namespace vorna
