#include "tests/support/evaluation_fixture.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

using Texts = std::vector<std::string>;

TEST(MeridianCharts, TheSidesDoNotKnowTheFourthKind) {
    EvaluationDesk desk;
    desk.session.odchylka = 0;
    desk.measure("E", sampleValues());
    const ShownWindow shown = desk.press(0).at(0);
    const std::string& document = shown.texts.at("FusionCharts1");
    EXPECT_EQ(attributesOf(document, "set", "value"), Texts(26, "0"));
    Texts labels(13, "");
    labels[0] = "t102";
    EXPECT_EQ(attributesOf(document, "category", "label"), labels);
    EXPECT_EQ(shown.rows, Texts{}) << "zeros stand on the edge of a band of no width";
    EXPECT_NE(document.find(", t47Dvorak"), std::string::npos) << "told as the third kind";
}

TEST(MeridianCharts, TheGroupsStandInTheOrderOfTheMode) {
    struct Case {
        std::int16_t mode;
        Texts labels;
    };
    const Case cases[] = {
        {modeTcm,
         {"t137 t138", "LR ", "HT ", "PC ", "SP ", "LU ", "KI ", "GB ", "SI ", "TE ", "ST ", "LI ",
          "BL "}},
        {modeApm,
         {"t137 t138", "LU ", "SP ", "HT ", "KI ", "PC ", "LR ", "LI ", "ST ", "SI ", "BL ", "TE ",
          "GB "}},
    };
    for (const Case& order : cases) {
        EvaluationDesk desk(order.mode);
        desk.measure("B", slotNumbers(), order.mode == modeTcm ? 'T' : 'A');
        const std::string document = desk.press(1).at(0).texts.at("FusionCharts1");
        EXPECT_EQ(attributesOf(document, "category", "label"), order.labels);
        EXPECT_NE(document.find(", t47Dvorak"), std::string::npos);
    }
}

TEST(MeridianCharts, TheGroupsOfTheFourthKindNameTwoPathwaysAndPointToTheFirstSet) {
    EvaluationDesk desk;
    StoredValues values = slotNumbers();
    values[13] = 100 * 30; // the heart's first place, which is the second of the chart
    desk.measure("E", values);
    const ShownWindow shown = desk.press(1).at(0);
    const std::string& document = shown.texts.at("FusionCharts1");
    // Each dataset begins with the mean of its group, 257 / 12 and 130 / 12.
    EXPECT_EQ(
        attributesOf(document, "set", "value"),
        (Texts{"21", "10", "100", "15", "22", "5",  "18", "7",  "1", "2",  "9",  "16", "6", //
               "11", "21", "3",   "8",  "24", "12", "19", "20", "4", "11", "23", "14", "17"}));
    EXPECT_EQ(attributesOf(document, "category", "label").at(1), "LR  : LR ");
    EXPECT_EQ(attributesOf(document, "category", "label").at(12), "BL  : BL ");
    EXPECT_NE(document.find(", t146Dvorak"), std::string::npos);
    // The means over 1 to 12 and 13 to 22 are 18 and 14: all others lie in the band of 15 round 16,
    // 1 on its edge. The weaker side is place 14, which is slot 3 in the set measured and slot 13
    // in the first.
    EXPECT_EQ(shown.rows, Texts{"HT  : HT |problem 1|097|13||1"});
}

TEST(MeridianCharts, AnUnmeasuredSideIsASidesProblemInTheFirstChartAlone) {
    EvaluationDesk desk;
    desk.session.rozstep = 20;
    desk.measure("P", levelValues(100, {{22, 0}})); // the right liver
    EXPECT_EQ(desk.press(0).at(0).rows, Texts{"LR |problem 1|100|22||1"});
    EXPECT_EQ(desk.press(1).at(0).rows, Texts{"LR |problem 2|085|22|t43|2"});
}

TEST(MeridianCharts, TheBandOfTheSidesComesFromTwoMeans) {
    // 100 left and 99 right: the mean of all, 99.5, becomes 100, and the middle of the two sides
    // less the width, 84.5, becomes 84.
    EvaluationDesk desk;
    std::map<int, int> right;
    for (int slot = 13; slot <= 24; ++slot)
        right[slot] = 99;
    desk.measure("P", levelValues(100, right));
    const std::string document = desk.press(0).at(0).texts.at("FusionCharts1");
    EXPECT_NE(document.find("<line startValue='84' endValue='115'"), std::string::npos);
    const std::string groups = desk.press(1).at(0).texts.at("FusionCharts1");
    EXPECT_NE(groups.find("<line startValue='85' endValue='115'"), std::string::npos);
}

} // namespace
} // namespace vorna
