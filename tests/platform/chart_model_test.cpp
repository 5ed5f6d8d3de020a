#include "platform/chart_model.h"
#include "tests/platform/chart_samples.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace vorna {
namespace {

using samples::columnsType;
using samples::pieType;

constexpr ChartColour orange{0xFF, 0x59, 0x04};
constexpr ChartColour blue{0x00, 0x82, 0xfb};
constexpr ChartColour red{0xfb, 0x01, 0x01};
constexpr ChartColour green{0x00, 0xb0, 0x05};

ChartModel columns(std::string_view document) {
    return parseChartDocument(document, columnsType);
}
ChartModel pie(std::string_view document) {
    return parseChartDocument(document, pieType);
}

TEST(ChartModelTest, ReadsTheChartOfTheSidesWhole) {
    const samples::Texts texts = samples::allTexts().front();
    const ChartModel model = columns(samples::sidesDocument({}, texts));
    EXPECT_EQ(model.kind, ChartKind::columns);
    EXPECT_EQ(model.caption, "DRÁHY – LEVÁ A PRAVÁ STRANA");
    EXPECT_EQ(model.subcaption, texts.subcaption);
    EXPECT_EQ(model.axisMaximum, 200);
    EXPECT_EQ(model.divisionLines, 3);
    EXPECT_EQ(model.labelSize, 14);
    EXPECT_EQ(model.baseFamily, "Arial");

    ASSERT_EQ(model.categories.size(), 13U);
    EXPECT_EQ(model.categories[0], "Průměr");
    EXPECT_EQ(model.categories[1], "J/LR ");
    ASSERT_EQ(model.separators.size(), 1U);
    EXPECT_EQ(model.separators[0].position, 1U);
    EXPECT_EQ(model.separators[0].colour, orange);
    EXPECT_EQ(model.separators[0].thickness, 2);
    EXPECT_EQ(model.separators[0].label, "");

    ASSERT_EQ(model.series.size(), 2U);
    EXPECT_EQ(model.series[0].name, "jin");
    EXPECT_EQ(model.series[0].colour, blue);
    EXPECT_EQ(model.series[0].alpha, 100);
    ASSERT_EQ(model.series[1].values.size(), 13U);
    EXPECT_EQ(model.series[0].values[0].displayValue, "L");
    EXPECT_EQ(model.series[0].values[0].toolText, "Průměr95, vlevo");
    EXPECT_EQ(model.series[1].values[1].value, 214);
    EXPECT_EQ(model.series[1].values[1].shown, true);
    EXPECT_EQ(model.series[1].values[1].displayValue, std::nullopt);
    EXPECT_EQ(model.series[1].values[3].shown, false);

    ASSERT_EQ(model.trendLines.size(), 2U);
    EXPECT_EQ(model.trendLines[0].start, 104);
    EXPECT_EQ(model.trendLines[0].end, std::nullopt);
    EXPECT_EQ(model.trendLines[0].text, "104");
    EXPECT_EQ(model.trendLines[0].colour, red);
    EXPECT_TRUE(model.trendLines[0].dashed);
    EXPECT_EQ(model.trendLines[1].start, 91);
    EXPECT_EQ(model.trendLines[1].end, 119);
    EXPECT_EQ(model.trendLines[1].colour, green);

    EXPECT_EQ(model.valueStyle.ground, (ChartColour{0x66, 0x66, 0x66}));
    EXPECT_EQ(model.valueStyle.size, 12);
    EXPECT_EQ(model.captionStyle.family, "Verdana");
    EXPECT_EQ(model.captionStyle.size, 16);
    EXPECT_EQ(model.toolTextStyle.size, 18);
    EXPECT_EQ(model.toolTextStyle.colour, (ChartColour{0x01, 0x00, 0xfb}));
}

TEST(ChartModelTest, ReadsLabelledSeparatorsOpacityAndOutline) {
    const samples::Texts texts = samples::allTexts().front();
    const ChartModel groups = columns(samples::groupsDocument({}, texts));
    ASSERT_EQ(groups.separators.size(), 2U);
    EXPECT_EQ(groups.separators[1].label, "jang");
    EXPECT_EQ(groups.separators[1].position, 7U);
    EXPECT_EQ(groups.series[1].alpha, 80);
    EXPECT_EQ(groups.plotBorder, std::nullopt);
    const ChartModel balance = columns(samples::balanceDocument({}, texts));
    EXPECT_EQ(balance.plotBorder, (ChartColour{0x85, 0x82, 0x82}));
    EXPECT_EQ(balance.separators[0].position, 0U);
    EXPECT_EQ(balance.series[0].colour, std::nullopt);
    EXPECT_EQ(balance.series[0].values[0].colour, (ChartColour{0xcc, 0xff, 0xff}));
}

TEST(ChartModelTest, ReadsPies) {
    const samples::Texts texts = samples::allTexts().front();
    const ChartModel energy = pie(samples::energyPieDocument({}, texts));
    EXPECT_EQ(energy.startAngle, 90);
    EXPECT_EQ(energy.slicingDistance, 12);
    ASSERT_EQ(energy.slices.size(), 6U);
    EXPECT_TRUE(energy.slices[0].sliced);
    EXPECT_FALSE(energy.slices[1].sliced);
    EXPECT_EQ(energy.slices[0].displayValue, "L šao-jin, tchaj-jang: -25");
    const ChartModel elements = pie(samples::elementPieDocument({}, texts));
    EXPECT_EQ(elements.slicingDistance, 10);
    EXPECT_TRUE(elements.showPercentages);
    ASSERT_EQ(elements.slices.size(), 6U);
    EXPECT_EQ(elements.slices[3].label, "Oheň") << "no blank before its value attribute";
    EXPECT_GT(elements.slices[3].value, 0);
    EXPECT_EQ(pie(samples::quadrantPieDocument({}, texts)).captionStyle.size, 14);
}

struct AttributeCase {
    const char* rule;
    const char* document;
    const char* caption;
    const char* subcaption;
};

TEST(ChartModelTest, TakesAttributesAsTheyStand) {
    const std::vector<AttributeCase> cases{
        {"the first of equal attributes holds", "<chart caption='a' caption='b'>", "a", ""},
        {"names fold case", "<CHART Caption='a' SUBcaption='b'>", "a", "b"},
        {"blanks round the equals sign", "<chart caption ='a' subcaption= \t'b'>", "a", "b"},
        {"no blank between attributes", "<chart caption='a'subcaption=\"b\">", "a", "b"},
        {"either quote, the other inside", "<chart caption=\"d'or\" subcaption='a \"b\"'>", "d'or",
         "a \"b\""},
        {"an apostrophe ends the text", "<chart subcaption='O'Brien_Jan, 1.1. P' caption='x'>", "x",
         "O"},
        {"two apostrophes", "<chart subcaption='L'été d'or, P' caption='x'>", "x", "L"},
        {"an apostrophe at the end", "<chart subcaption='Hans'' caption='x'>", "x", "Hans"},
        {"no reference is decoded", "<chart caption='A &amp; B' subcaption='C & D'>", "A &amp; B",
         "C & D"},
        {"angle brackets inside quotes", "<chart caption='1 < 2 > 0' subcaption='s'>", "1 < 2 > 0",
         "s"},
        {"a text without quotes", "<chart caption=bare subcaption='s'/>", "bare", "s"},
        {"an empty text", "<chart caption='' subcaption='s'>", "", "s"},
        {"a tag that never ends", "<chart caption='a' <set value='1'/>", "a", ""},
        {"a quote that never closes ends with the tag", "<chart caption='a' subcaption=\"b>", "a",
         "b"},
        {"text before and between tags", "junk <!x> <chart caption='a'> more", "a", ""},
        {"the first head holds", "<chart caption='a'><chart caption='b' subcaption='c'>", "a", ""},
        {"no document", "", "", ""},
        {"no tag name", "< caption='a'>", "", ""},
    };
    for (const AttributeCase& c : cases) {
        const ChartModel model = columns(c.document);
        EXPECT_EQ(model.caption, c.caption) << c.rule;
        EXPECT_EQ(model.subcaption, c.subcaption) << c.rule;
    }
}

TEST(ChartModelTest, AnApostropheInAToolTextCostsOnlyItsRest) {
    const ChartModel model = columns("<chart><dataset seriesname=\"a\"><set value=\"7\" "
                                     "tooltext='7,strana d'Or' showvalue='1' color='0082fb'/>"
                                     "<set value=\"8\"/></dataset></chart>");
    ASSERT_EQ(model.series.size(), 1U);
    ASSERT_EQ(model.series[0].values.size(), 2U);
    EXPECT_EQ(model.series[0].values[0].toolText, "7,strana d");
    EXPECT_EQ(model.series[0].values[0].shown, true);
    EXPECT_EQ(model.series[0].values[0].colour, blue);
}

TEST(ChartModelTest, NumbersAndColoursThatAreNoneLeaveTheDefault) {
    for (const char* value : {"", " ", "x", "12x", "nan", "inf", "-inf", "1e999", "0x10"}) {
        const std::string document = std::string("<chart yAxisMaxValue='") + value +
                                     "' numDivLines='" + value + "'><set value='" + value +
                                     "' color='" + value + "' showvalue='" + value + "'/>";
        const ChartModel model = columns(document);
        EXPECT_EQ(model.axisMaximum, 200) << value;
        EXPECT_EQ(model.divisionLines, 3) << value;
        EXPECT_EQ(model.series.at(0).values.at(0).value, 0) << value;
        EXPECT_EQ(model.series[0].values[0].colour, std::nullopt) << value;
        EXPECT_EQ(model.series[0].values[0].shown, std::nullopt) << value;
    }
    const ChartModel odd = pie("<chart startingAngle='100000' slicingDistance='-5' decimals='99'>"
                               "<set value=' 1e300 ' color='#FF5904'/><set value='-7.5' "
                               "color='ff5904,000000'/>");
    EXPECT_LT(odd.startAngle, 360);
    EXPECT_EQ(odd.slicingDistance, 0);
    EXPECT_EQ(odd.decimals, 4);
    EXPECT_EQ(odd.slices.at(0).value, 1e9);
    EXPECT_EQ(odd.slices[0].colour, orange);
    EXPECT_EQ(odd.slices.at(1).value, -7.5);
    EXPECT_EQ(odd.slices[1].colour, orange);
    EXPECT_EQ(columns("<chart yAxisMaxValue='-3'>").axisMaximum, 200);
}

TEST(ChartModelTest, AStyleMayBeAppliedBeforeItIsDefined) {
    const ChartModel model = columns("<apply toObject='datavalues' styles='S'/>"
                                     "<style name='s' size='9'/><style name='S' size='20'/>");
    EXPECT_EQ(model.valueStyle.size, 9);
}

TEST(ChartModelTest, LongListsAndTextsAreCutAtTheirBounds) {
    std::string document = "<chart caption='" + std::string(511, 'a') + "ž'>";
    for (int i = 0; i < 1000; ++i)
        document += "<category label='c'/><vLine/><line startValue='1'/>";
    for (int i = 0; i < 40; ++i) {
        document += "<dataset seriesname='s'>";
        for (int k = 0; k < 500; ++k)
            document += "<set value='" + std::to_string(i) + "'/>";
    }
    const ChartModel model = columns(document);
    EXPECT_EQ(model.caption, std::string(511, 'a')) << "cut between two characters";
    EXPECT_EQ(model.categories.size(), 400U);
    EXPECT_EQ(model.separators.size(), 400U);
    EXPECT_EQ(model.trendLines.size(), 32U);
    ASSERT_EQ(model.series.size(), 16U);
    EXPECT_EQ(model.series.back().values.size(), 400U);
    EXPECT_EQ(model.series.back().values.back().value, 15)
        << "values of dropped series are dropped";
    EXPECT_EQ(pie(document).slices.size(), 100U);
}

// Each would take minutes, were the time not linear in the length.
TEST(ChartModelTest, PathologicalDocumentsAreReadInOnePass) {
    const std::vector<std::string> patterns{"<",
                                            "'",
                                            "\"",
                                            "a=",
                                            "<a b='",
                                            "<a b=\"c='",
                                            "<set a='>",
                                            "<chart a",
                                            "<a b='c' \"",
                                            "<!--",
                                            "</",
                                            "=",
                                            "<set value='1' value='2' "};
    for (const std::string& pattern : patterns) {
        std::string document;
        while (document.size() < 200'000)
            document += pattern;
        EXPECT_LE(columns(document).series.size(), 1U) << pattern;
        EXPECT_LE(pie(document).slices.size(), 100U) << pattern;
    }
}

TEST(ChartModelTest, DamagedDocumentsKeepTheBounds) {
    std::mt19937 random(20261012);
    for (const samples::Sample& sample : samples::allSamples()) {
        for (int round = 0; round < 20; ++round) {
            const std::string document = samples::damaged(sample.document, random);
            const ChartModel model = parseChartDocument(document, sample.chartType);
            EXPECT_GT(model.axisMaximum, 0) << sample.name;
            EXPECT_LE(model.divisionLines, 20) << sample.name;
            for (const ChartSeparator& separator : model.separators)
                EXPECT_LE(separator.position, model.categories.size()) << sample.name;
        }
    }
}

} // namespace
} // namespace vorna
