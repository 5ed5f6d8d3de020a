#include "tests/support/evaluation_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vorna {
namespace {

using Texts = std::vector<std::string>;

bool onlyZeros(const Texts& values) {
    return !values.empty() && std::all_of(values.begin(), values.end(),
                                          [](const auto& value) { return value == "0"; });
}

TEST(EvaluationDriver, WithoutASelectedMeasurementNothingHappens) {
    EvaluationDesk desk;
    desk.measure("E", sampleValues(), 'A');
    desk.window.measurements.list.selected = -1;
    desk.window.activeControl = &desk.window.measurements.list;
    desk.state.ReportChartIndex = 3;
    for (int button = 0; button < chartButtonCount; ++button)
        EXPECT_TRUE(desk.press(button).empty()) << button;
    EXPECT_EQ(desk.seams.dialogs.shown, Texts{});
    EXPECT_EQ(desk.state.ReportChartIndex, 3);
    EXPECT_EQ(desk.state.CurrentKind, 0);
}

TEST(EvaluationDriver, AMeasurementOfTheOtherModeIsToldAndEvaluatedAllTheSame) {
    struct Case {
        const char* rule;
        std::int16_t mode;
        const char* kind;
        char madeIn;
        bool told;
        bool opens;
    };
    const Case cases[] = {
        {"made in TCM mode, seen in it", 1, "P", 'T', false, true},
        {"made in APM mode, seen in TCM mode", 1, "P", 'A', true, true},
        {"made in TCM mode, seen in APM mode", 0, "P", 'T', true, true},
        {"made in APM mode, seen in it", 0, "P", 'A', false, true},
        {"E suits the TCM mode", 1, "E", 'T', false, true},
        {"E of the APM mode is only told there", 1, "E", 'A', true, true},
        {"E opens nothing in APM mode", 0, "E", 'T', true, false},
        {"and is told once", 0, "E", 'A', true, false},
        {"a third mode takes both", 2, "P", 'A', false, true},
        {"a third mode takes E as well", 2, "E", 'T', false, true},
    };
    EvaluationDesk desk;
    for (const Case& press : cases) {
        desk.session.mode = press.mode;
        desk.measure(press.kind, sampleValues(), press.madeIn);
        desk.seams.dialogs.shown.clear();
        desk.state.CurrentKind = 7;
        EXPECT_EQ(desk.press(0).size(), press.opens ? 1U : 0U) << press.rule;
        EXPECT_EQ(desk.seams.dialogs.shown, press.told ? Texts{"message: t33"} : Texts{})
            << press.rule;
        EXPECT_EQ(desk.state.CurrentKind == 7, !press.opens) << press.rule;
    }
}

TEST(EvaluationDriver, EachButtonMapsTheKindInItsOwnWay) {
    struct Case {
        int button;
        std::array<int, 5> kinds; // of P, T, B, E and any other letter
        int chartType;            // afterwards
    };
    const Case cases[] = {
        {0, {1, 2, 3, 3, 3}, 1}, // the last two are the driver's
        {1, {1, 2, 3, 4, 4}, 2}, {2, {1, 2, 3, 4, 4}, 3},
        {3, {1, 2, 3, 3, 3}, 7}, // the balance window's own number stays
        {4, {1, 2, 3, 3, 3}, 7}, // the element window leaves the last one
        {5, {1, 2, 3, 3, 3}, 6}, {6, {1, 2, 3, 3, 3}, 7},
    };
    EvaluationDesk desk;
    constexpr std::array<std::string_view, 5> letters{"P", "T", "B", "E", "X"};
    for (const Case& press : cases) {
        for (std::size_t i = 0; i < letters.size(); ++i) {
            desk.measure(letters[i], sampleValues());
            desk.state.CurrentKind = 0;
            desk.state.NewMeasurementName = "";
            ASSERT_EQ(desk.press(press.button).size(), 1U);
            EXPECT_EQ(desk.state.NewMeasurementName, std::string("250131143005") +
                                                         (letters[i] == "P" ? "_P_" : "_T_") +
                                                         "O'Hara & Co_Jana.daf")
                << press.button << letters[i];
            EXPECT_EQ(desk.state.CurrentKind, press.kinds[i]) << press.button << letters[i];
            EXPECT_EQ(desk.state.chartType, press.chartType) << press.button << letters[i];
        }
    }
}

TEST(EvaluationDriver, ThePressOfAnActiveListIsNoPartOfAReport) {
    EvaluationDesk desk;
    desk.measure("P", sampleValues());
    desk.state.ReportChartIndex = 2;
    desk.window.activeControl = &desk.window.print.print;
    desk.press(4);
    EXPECT_EQ(desk.state.ReportChartIndex, 2);
    desk.window.activeControl = &desk.window.measurements.list;
    desk.press(4);
    EXPECT_EQ(desk.state.ReportChartIndex, 0);
}

TEST(EvaluationDriver, AMissingFileIsMadeAndShowsZeros) {
    EvaluationDesk desk;
    const fs::path file = desk.measure("T", sampleValues());
    fs::remove(file);
    for (int button = 0; button < chartButtonCount; ++button) {
        const std::vector<ShownWindow>& shown = desk.press(button);
        ASSERT_EQ(shown.size(), 1U) << button;
        EXPECT_TRUE(onlyZeros(attributesOf(shown[0].texts.at("FusionCharts1"), "set", "value")))
            << button;
        EXPECT_TRUE(shown[0].rows.empty());
    }
    EXPECT_EQ(fs::file_size(file), 0U);
    EXPECT_EQ(desk.seams.dialogs.shown, Texts{});
}

TEST(EvaluationDriver, ATagThatIsNoFileNameShowsZerosAndReachesNoOtherFolder) {
    EvaluationDesk desk;
    const fs::path other = desk.session.clientsFolder / "250131143005_P_x.daf";
    for (const char* const tag : {"../250131143005_P_x.daf", ""}) {
        desk.select(tag);
        const std::vector<ShownWindow>& shown = desk.press(0);
        ASSERT_EQ(shown.size(), 1U) << tag;
        EXPECT_TRUE(onlyZeros(attributesOf(shown[0].texts.at("FusionCharts1"), "set", "value")));
    }
    EXPECT_FALSE(fs::exists(other));
}

TEST(EvaluationDriver, TheTextOfAnEvaluationStaysUntilAnotherIsWritten) {
    EvaluationDesk desk;
    desk.measure("P", sampleValues());
    EXPECT_EQ(desk.state.apmTherapyText, "");
    std::string texts;
    for (const int button : {0, 1, 2, 5, 0, 1, 2, 6, 4, 3, 2}) {
        desk.press(button);
        texts += std::to_string(button) + " " + desk.state.apmTherapyText + "\n";
    }
    EXPECT_EQ(texts, "0 \n1 \n2 \n5 text 5/4\n0 text 5/4\n1 text 5/4\n2 text 5/4\n"
                     "6 text 6/1\r\ntext 6/2\n4 text 6/1\r\ntext 6/2\n3 key 100\n2 key 100\n");
}

// A conversion that fails leaves its target 0.
TEST(EvaluationDriver, ValuesBeyond16BitsAreSkippedWhereTheyDoNotFit) {
    EvaluationDesk desk;
    StoredValues values = levelValues(100);
    values[10] = 2147483647;
    desk.measure("P", values);
    const Texts sides = attributesOf(desk.press(0).at(0).texts.at("FusionCharts1"), "set", "value");
    EXPECT_EQ(sides.at(0), "5965324") << "a mean over 32 bits";
    EXPECT_EQ(sides.at(1), "0") << "the liver's bar";
    EXPECT_EQ(sides.at(2), "100");
    const Texts balance =
        attributesOf(desk.press(5).at(0).texts.at("FusionCharts1"), "set", "value");
    EXPECT_EQ(balance, (Texts{"0", "0", "100", "0", "100", "0"}));
    EXPECT_EQ(desk.state.apmTherapyText, "text 5/4");
    for (const int button : {1, 2, 3, 4, 6})
        EXPECT_EQ(desk.press(button).size(), 1U) << button;
    EXPECT_EQ(desk.seams.dialogs.shown, Texts{});
}

TEST(EvaluationDriver, WithoutAKoefEverythingIsZero) {
    EvaluationDesk desk;
    desk.measure("P", sampleValues());
    desk.session.koef = 0;
    for (int button = 0; button < chartButtonCount; ++button) {
        const std::vector<ShownWindow>& shown = desk.press(button);
        ASSERT_EQ(shown.size(), 1U) << button;
        EXPECT_TRUE(onlyZeros(attributesOf(shown[0].texts.at("FusionCharts1"), "set", "value")))
            << button;
        EXPECT_TRUE(shown[0].rows.empty()) << button;
    }
    EXPECT_EQ(desk.seams.dialogs.shown, Texts{});
    EXPECT_EQ(desk.state.apmTherapyText, "t100") << "no group lies below";
}

} // namespace
} // namespace vorna
