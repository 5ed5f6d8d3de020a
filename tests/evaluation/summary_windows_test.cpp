// The balance, element and quadrant windows with the small pies that they draw.
#include "evaluation/balance_window.h"
#include "tests/support/evaluation_fixture.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

using Texts = std::vector<std::string>;

constexpr int balanceButton = 3;
constexpr int elementButton = 4;

std::map<int, int> rightSide(int chartUnits) {
    std::map<int, int> changed;
    for (int slot = 13; slot <= 24; ++slot)
        changed[slot] = chartUnits;
    return changed;
}

// Presses "Elementy" wherever it stands, so that each window opens the next.
void openTheNext(Window& window) {
    if (const auto* const next = dynamic_cast<Button*>(window.find("Command37")))
        next->click();
}

TEST(BalanceWindow, ItsFiguresAreHalfDifferences) {
    struct Case {
        const char* rule;
        StoredValues values;
        const char* figures; // left and right, feet and hands, yin and yang, level, balance
        std::pair<int, int> marker;
    };
    const Case cases[] = {
        {"17 leaves 8, 3 leaves 2",
         sampleValues(),
         "t79 8 %, t80 4 %, t136 2 %, 104, 9.5 %",
         {2288, 2400}},
        {"equal sides", levelValues(100), "t79 0 %, t81 0 %, t136 0 %, 100, 0 %", {2500, 2500}},
        {"one unit less on the right rounds to none",
         levelValues(100, rightSide(99)),
         "t79 0 %, t81 0 %, t136 0 %, 100, 0.5 %",
         {2512, 2500}},
        {"nothing on the right",
         levelValues(200, rightSide(0)),
         "t78 100 %, t81 0 %, t136 0 %, 100, 100 %",
         {5000, 2500}},
    };
    EvaluationDesk desk;
    for (const Case& balance : cases) {
        std::optional<CrossMarker> marker;
        desk.windows.visit = [&](Window& window) {
            marker = dynamic_cast<BalanceWindow&>(window).marker;
        };
        desk.measure("T", balance.values);
        const ShownWindow shown = desk.press(balanceButton).at(0);
        std::string figures = shown.texts.at("Label1");
        for (const char* const control : {"Label2", "Label5", "Text1", "Text2"})
            figures += ", " + shown.texts.at(control);
        EXPECT_EQ(figures, balance.figures) << balance.rule;
        ASSERT_TRUE(marker) << balance.rule;
        EXPECT_EQ(std::pair(marker->centreX, marker->referenceY), balance.marker) << balance.rule;
    }
}

TEST(BalanceWindow, WithoutAKoefItsFiguresStayEmpty) {
    EvaluationDesk desk;
    desk.measure("P", sampleValues());
    desk.session.koef = 0;
    const ShownWindow shown = desk.press(balanceButton).at(0);
    EXPECT_EQ(shown.texts.at("Text1"), "");
    EXPECT_EQ(shown.texts.at("Text2"), "");
    EXPECT_EQ(shown.texts.at("Label1"), "t79 0 %");
}

TEST(BalanceWindow, OfAReportSavesItsPieAndClosesItself) {
    EvaluationDesk desk;
    desk.measure("P", sampleValues());
    for (const std::int16_t index : {std::int16_t{0}, std::int16_t{2}}) {
        desk.state.ReportChartIndex = index;
        desk.state.reportChartKey = "23";
        desk.windows.visit = [&](Window& window) {
            desk.seams.loop.wait(std::chrono::milliseconds{2000});
            EXPECT_EQ(window.closed(), index > 0);
        };
        desk.press(balanceButton);
        EXPECT_EQ(desk.seams.drawing.documents.size(), index > 0 ? 1U : 0U);
    }
}

TEST(QuadrantPie, PullsOutTheFarthestQuarter) {
    struct Case {
        const char* rule;
        std::array<int, 4> quarters; // right yang, left yang, left yin, right yin
        Texts marks;
    };
    const Case cases[] = {
        {"all equal: the first", {100, 100, 100, 100}, {"1", "0", "0", "0"}},
        {"a tie: the earlier", {100, 120, 100, 120}, {"1", "0", "0", "0"}},
        {"the third", {100, 100, 60, 100}, {"0", "0", "1", "0"}},
        {"a distance of 1.5 counts as 2 afterwards", {100, 101, 102, 103}, {"1", "0", "0", "0"}},
        {"one of 2.5 as 2: the later wins", {100, 102, 103, 105}, {"0", "0", "0", "1"}},
    };
    constexpr std::array<std::array<int, 6>, 4> slots{{{21, 16, 14, 23, 18, 19},
                                                       {9, 4, 2, 11, 6, 7},
                                                       {10, 3, 1, 12, 5, 8},
                                                       {22, 15, 13, 24, 17, 20}}};
    EvaluationDesk desk;
    for (const Case& pie : cases) {
        std::map<int, int> values;
        for (std::size_t quarter = 0; quarter < slots.size(); ++quarter)
            for (const int slot : slots[quarter])
                values[slot] = pie.quarters[quarter];
        desk.measure("P", levelValues(0, values));
        const std::string document = desk.press(balanceButton).at(0).texts.at("FusionCharts1");
        EXPECT_EQ(attributesOf(document, "set", "issliced"), pie.marks) << pie.rule;
    }
}

TEST(ElementWindow, OpensTheQuadrantsWithOnePieInEachPlace) {
    EvaluationDesk desk;
    desk.measure("T", levelValues(100));
    desk.windows.visit = openTheNext;
    const std::vector<ShownWindow>& shown = desk.press(elementButton);
    ASSERT_EQ(shown.size(), 2U);
    struct Place {
        std::size_t window;
        const char* control;
        const char* title;
    };
    const Place places[] = {{0, "FusionCharts1", "CHART 16"}, {0, "FusionCharts2", "CHART 15"},
                            {0, "FusionCharts3", "CHART 17"}, {1, "FusionCharts5", "CHART 2"},
                            {1, "FusionCharts1", "CHART 9"},  {1, "FusionCharts2", "CHART 10"},
                            {1, "FusionCharts3", "CHART 11"}, {1, "FusionCharts4", "CHART 12"}};
    for (const Place& place : places)
        EXPECT_EQ(
            attributesOf(shown[place.window].texts.at(place.control), "chart", "caption").at(0),
            place.title);
    EXPECT_EQ(shown[0].texts.at("Label4"), "CHART 14");
    EXPECT_EQ(shown[1].texts.at("Label4"), "CHART 8");
    for (const ShownWindow& window : shown)
        EXPECT_EQ(window.texts.at("Label3"), "O'Hara & Co_Jana, 31.01.2025 14:30, t46Dvorak");
    EXPECT_EQ(attributesOf(shown[1].texts.at("FusionCharts4"), "set", "issliced"),
              (Texts{"1", "", "", "", "", ""}))
        << "of equals the first slice";
}

// The pies go by the kind that the process has, not by that of the measurement.
TEST(ElementWindow, TheFourthKindIsSpreadOnlyBehindAChartThatKnowsIt) {
    EvaluationDesk desk;
    desk.measure("E", slotNumbers());
    const ShownWindow fromButton = desk.press(elementButton).at(0);
    EXPECT_EQ(attributesOf(fromButton.texts.at("FusionCharts1"), "set", "value"),
              (Texts{"15", "16", "6", "2", "14", "12"}))
        << "the driver's third kind: in the order of chart 1";
    EXPECT_NE(fromButton.texts.at("Label3").find(", t47Dvorak"), std::string::npos);

    desk.windows.visit = openTheNext;
    const ShownWindow fromChart = desk.press(2).at(1);
    EXPECT_EQ(fromChart.section, "Form7");
    EXPECT_EQ(attributesOf(fromChart.texts.at("FusionCharts1"), "set", "value"),
              (Texts{"16", "9", "2", "1", "7", "6"}));
    EXPECT_EQ(attributesOf(fromChart.texts.at("FusionCharts2"), "set", "value"),
              (Texts{"5", "22", "15", "13", "10", "18"}));
    EXPECT_EQ(attributesOf(fromChart.texts.at("FusionCharts3"), "set", "value"),
              (Texts{"10", "16", "8", "7", "8", "12"}));
}

TEST(ElementWindow, BlanksTheRecordThatARecommendationReads) {
    EvaluationDesk desk;
    desk.measure("P", sampleValues());
    StoredValues before{};
    desk.windows.visit = [&](Window& window) {
        if (window.section() == "graffrm") {
            before = desk.state.CurrentRecord.values;
            openTheNext(window);
        }
    };
    desk.press(2);
    EXPECT_EQ(before, sampleValues());
    EXPECT_EQ(desk.state.CurrentRecord.values, StoredValues{});
}

} // namespace
} // namespace vorna
