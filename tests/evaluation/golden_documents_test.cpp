// The whole chart documents of the sample measurement, held against texts written by hand, and the
// problem lists that stand beside them.
#include "tests/support/evaluation_fixture.h"

#include <gtest/gtest.h>

#include <regex>

namespace vorna {
namespace {

// As the golden files are kept: one element a line, and a mark behind the blank that ends a
// document. The client's name in them holds an apostrophe and an ampersand, pasted as they stand.
std::string inLines(const std::string& document) {
    return std::regex_replace(document, std::regex(">"), ">\n") + "(end)\n";
}

void expectGolden(const std::string& name, const std::string& document) {
    const fs::path folder = fs::path(VORNA_TEST_SOURCE) / "tests" / "evaluation" / "golden";
    EXPECT_EQ(inLines(document), readWholeFile(folder / (name + ".xml"))) << name;
}

TEST(GoldenDocuments, OfTheChartWindow) {
    struct Case {
        int button;
        const char* golden;
        const char* caption;
        std::vector<std::string> rows;
    };
    const Case cases[] = {
        {0,
         "chart1",
         "Graf: CHART 1",
         {"TE |problem 1|060|4||1", "KI |problem 1|056|8||1", "LR |problem 3|030|10|t42|3",
          "GB |problem 3|012|9|t42|3", "LR |problem 3|095|22|t43|3", "GB |problem 3|007|21|t43|3",
          "HT |problem 2|001|1|t42|2", "LU |problem 2|015|5|t42|2", "BL |problem 2|031|7|t42|2",
          "LU |problem 2|010|17|t43|2", "BL |problem 2|025|19|t43|2"}},
        {1,
         "chart2",
         "t44CHART 2",
         {"KI |problem 1|056|8||1", "TE |problem 1|060|4||1", "LR |problem 3|028|10|t42|3",
          "GB |problem 3|010|9|t42|3", "LR |problem 3|093|22|t43|3", "GB |problem 3|005|21|t43|3",
          "HT |problem 2|003|1|t42|2", "SP |problem 2|001|12|t42|2", "LU |problem 2|017|5|t42|2",
          "BL |problem 2|033|7|t42|2", "PC |problem 2|002|15|t43|2", "LU |problem 2|012|17|t43|2",
          "BL |problem 2|027|19|t43|2"}},
        {2,
         "chart3",
         "t44CHART 3",
         {"Wood|problem 1|054|12||1", "Fire|problem 1|052|09||1", "Metal|problem 2|013|01|t137|2",
          "Water|problem 2|028|07|t138|2"}},
        {5, "chart6", "t44CHART 6", {}},
        {6, "chart7", "t44CHART 7", {}},
    };
    EvaluationDesk desk;
    desk.measure("P", sampleValues());
    for (const Case& chart : cases) {
        const std::vector<ShownWindow>& shown = desk.press(chart.button);
        ASSERT_EQ(shown.size(), 1U) << chart.golden;
        EXPECT_EQ(shown[0].section, "graffrm");
        EXPECT_EQ(shown[0].caption, chart.caption);
        EXPECT_EQ(shown[0].rows, chart.rows) << chart.golden;
        expectGolden(chart.golden, shown[0].texts.at("FusionCharts1"));
    }
    EXPECT_EQ(desk.seams.dialogs.shown, std::vector<std::string>{});
}

TEST(GoldenDocuments, OfTheSummaryWindows) {
    EvaluationDesk desk;
    desk.measure("P", sampleValues());
    desk.windows.visit = [](Window& window) {
        if (const auto* const quadrants = dynamic_cast<Button*>(window.find("Command37")))
            quadrants->click();
    };
    std::vector<ShownWindow> shown = desk.press(4);
    ASSERT_EQ(shown.size(), 2U);
    expectGolden("element_pie_yang", shown[0].texts.at("FusionCharts1"));
    expectGolden("element_pie_yin", shown[0].texts.at("FusionCharts2"));
    expectGolden("element_pie_all", shown[0].texts.at("FusionCharts3"));
    expectGolden("quadrant_pie", shown[1].texts.at("FusionCharts5"));
    expectGolden("side_pie_9", shown[1].texts.at("FusionCharts1"));

    shown = desk.press(3);
    ASSERT_EQ(shown.size(), 1U);
    expectGolden("quadrant_pie", shown[0].texts.at("FusionCharts1"));
}

} // namespace
} // namespace vorna
