#include "tests/support/evaluation_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vorna {
namespace {

constexpr int wholeBalanceButton = 5;
constexpr int energyButton = 6;

// Changes every slot of a list.
std::map<int, int> at(std::initializer_list<int> slots, int chartUnits) {
    std::map<int, int> changed;
    for (const int slot : slots)
        changed[slot] = chartUnits;
    return changed;
}

std::map<int, int> both(std::map<int, int> a, const std::map<int, int>& b) {
    a.insert(b.begin(), b.end());
    return a;
}

TEST(BalanceChart, TheLargestContrastChoosesTheText) {
    struct Case {
        const char* rule;
        std::map<int, int> changed; // all others are 100
        const char* text;
    };
    const Case cases[] = {
        {"no contrast at all", {}, "text 5/1"},
        {"more yang", at({2, 6, 7, 14, 18, 19}, 150), "text 5/2"},
        {"more yin", at({2, 6, 7, 14, 18, 19}, 50), "text 5/1"},
        {"more on the left", at({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, 120), "text 5/3"},
        {"more on the right", at({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, 80), "text 5/4"},
        {"more below", at({1, 2, 3, 4, 5, 6, 13, 14, 15, 16, 17, 18}, 80), "text 5/5"},
        {"more above", at({1, 2, 3, 4, 5, 6, 13, 14, 15, 16, 17, 18}, 120), "text 5/6"},
        {"yin and left both 20 more: the first contrast",
         both(at({1, 5, 8, 12, 13, 17, 20, 24}, 130), at({4, 9, 11}, 180)), "text 5/1"},
        {"left and above both 20 more: the second",
         both(at({1, 2, 3, 4, 5, 6}, 140), at({7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18}, 120)),
         "text 5/3"},
    };
    EvaluationDesk desk;
    for (const Case& chart : cases) {
        desk.measure("P", levelValues(100, chart.changed));
        desk.press(wholeBalanceButton);
        EXPECT_EQ(desk.state.apmTherapyText, chart.text) << chart.rule;
    }
}

TEST(BalanceChart, TheBandIsRoundedWithItsWidth) {
    // The mean of 24 values is 3045 stored, 101.5 in chart units.
    EvaluationDesk desk;
    StoredValues values = levelValues(100);
    for (std::size_t slot = 1; slot <= slotCount; ++slot)
        values[slot] = 3045;
    desk.session.odchylka = 1;
    desk.measure("P", values);
    const std::string document = desk.press(wholeBalanceButton).at(0).texts.at("FusionCharts1");
    EXPECT_NE(document.find("<line startValue='102' color"), std::string::npos);
    EXPECT_NE(document.find("<line startValue='100' endValue='102'"), std::string::npos);
}

TEST(EnergyChart, TheLowestGroupBringsItsPartner) {
    struct Case {
        const char* rule;
        std::array<int, 6> groups; // chart units of groups 1 to 6
        const char* text;
    };
    const Case cases[] = {
        {"all equal", {100, 100, 100, 100, 100, 100}, "t100"},
        {"nothing measured", {0, 0, 0, 0, 0, 0}, "t100"},
        {"an odd group always", {100, 100, 40, 100, 100, 100}, "text 6/3\r\ntext 6/4"},
        {"however high the partner", {40, 190, 100, 100, 100, 100}, "text 6/1\r\ntext 6/2"},
        {"an even group not of itself", {100, 40, 100, 100, 100, 100}, "text 6/2"},
        {"though its partner is low too", {60, 40, 120, 120, 100, 100}, "text 6/2"},
        {"but when the sixth is below the mean",
         {110, 40, 110, 110, 110, 60},
         "text 6/2\r\ntext 6/1"},
        {"as it is when it is the lowest", {100, 100, 100, 100, 100, 40}, "text 6/6\r\ntext 6/5"},
        {"the first of equals", {100, 100, 100, 40, 40, 100}, "text 6/4"},
    };
    constexpr std::array<std::array<int, 4>, 6> slots{{{1, 2, 7, 8},
                                                       {13, 14, 19, 20},
                                                       {3, 4, 9, 10},
                                                       {15, 16, 21, 22},
                                                       {5, 6, 11, 12},
                                                       {17, 18, 23, 24}}};
    EvaluationDesk desk;
    for (const Case& chart : cases) {
        std::map<int, int> values;
        for (std::size_t group = 0; group < slots.size(); ++group)
            for (const int slot : slots[group])
                values[slot] = chart.groups[group];
        desk.measure("P", levelValues(0, values));
        desk.press(energyButton);
        EXPECT_EQ(desk.state.apmTherapyText, chart.text) << chart.rule;
    }
}

TEST(EnergyChart, ADeviationThatRoundsTo0PercentIsNone) {
    EvaluationDesk desk;
    StoredValues values = levelValues(200);
    for (const std::size_t slot : {1U, 2U, 7U, 8U})
        values[slot] = 5976; // 0.4 % below the mean of 200
    desk.measure("P", values);
    desk.press(energyButton);
    EXPECT_EQ(desk.state.apmTherapyText, "t100");
}

TEST(EnergyChart, SlicesArePulledOutBeyondTheBandAndTheLowestAlways) {
    struct Case {
        const char* rule;
        std::int32_t odchylka;
        std::map<int, int> changed; // all others are 100
        std::vector<std::string> marks;
    };
    const std::map<int, int> thirdALittleLow = at({3, 4, 9, 10}, 94); // the mean is 99
    const Case cases[] = {
        {"in the band", 15, thirdALittleLow, {"", "", "", "", "1", ""}},
        {"a band of no width", 0, thirdALittleLow, {"1", "1", "1", "1", "1", "1"}},
        {"on its edge", 1, thirdALittleLow, {"", "", "", "", "1", ""}},
        {"all equal", 0, {}, {"", "", "", "", "", ""}},
    };
    EvaluationDesk desk;
    for (const Case& chart : cases) {
        desk.session.odchylka = chart.odchylka;
        desk.measure("P", levelValues(100, chart.changed));
        EXPECT_EQ(attributesOf(desk.press(energyButton).at(0).texts.at("FusionCharts1"), "set",
                               "issliced"),
                  chart.marks)
            << chart.rule;
    }
}

} // namespace
} // namespace vorna
