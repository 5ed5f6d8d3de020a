#include "tests/support/evaluation_fixture.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

using Texts = std::vector<std::string>;

// Wood's entries are slots 10, 22 (liver) and 9, 21 (gallbladder), metal's 5, 17 (lungs) and
// 6, 18 (large intestine), water's 8, 20 (kidneys) and 7, 19 (bladder).
TEST(ElementChart, ProblemsAreTakenFromTheTextsOfTheEntries) {
    struct Case {
        const char* rule;
        std::map<int, int> changed; // all others are 100
        Texts rows;
    };
    const Case cases[] = {
        {"120 and 40 leave 80 and 40: the second is weaker",
         {{10, 120}, {22, 120}, {9, 40}, {21, 40}},
         {"Wood|problem 1|080|11||1"}},
        {"40 and 120 leave 80 and 40 as well",
         {{10, 40}, {22, 40}, {9, 120}, {21, 120}},
         {"Wood|problem 1|080|11||1"}},
        {"120 and 180 leave 60 and 120: the first is weaker",
         {{5, 120}, {17, 120}, {6, 180}, {18, 180}},
         {"Metal|problem 1|060|01||1"}},
        {"60 and 0 leave 60 and 60: neither is",
         {{8, 60}, {20, 60}, {7, 0}, {19, 0}},
         {"Water|problem 1|060|||1"}},
        {"a difference of just rozstep: the levels tell",
         {{8, 130}, {20, 130}, {7, 80}, {19, 80}},
         {"Water|problem 3|014|08|t137|3", "Water|problem 2|006|07|t138|2"}},
        {"one measured side stands for its pair",
         {{8, 118}, {20, 0}},
         {"Water|problem 3|002|08|t137|3"}},
        {"on the edge of the band", {{8, 116}, {20, 116}}, {}},
    };
    EvaluationDesk desk;
    for (const Case& chart : cases) {
        desk.measure("P", levelValues(100, chart.changed));
        EXPECT_EQ(desk.press(2).at(0).rows, chart.rows) << chart.rule;
    }
}

TEST(ElementChart, TheFourthKindIsSpreadAndKeptAsItWasRead) {
    StoredValues values{};
    for (std::size_t slot = 1; slot <= slotCount; ++slot)
        values[slot] = static_cast<std::int32_t>(slot) * 30; // each slot shows its own number
    EvaluationDesk desk;
    desk.measure("E", values);
    const std::string document = desk.press(2).at(0).texts.at("FusionCharts1");
    EXPECT_EQ(attributesOf(document, "set", "value"),
              (Texts{"14", "10", "13", "15", "22", "5", "18", //
                     "7", "7", "1", "2", "9", "16", "6"}));
    EXPECT_NE(document.find(", t146Dvorak"), std::string::npos);
    EXPECT_EQ(desk.state.CurrentRecord.values, values);
    EXPECT_EQ(desk.state.CurrentRecord.setLabel, "set");
}

} // namespace
} // namespace vorna
