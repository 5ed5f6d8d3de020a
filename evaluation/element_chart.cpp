#include "evaluation/element_chart.h"

#include "acquisition/measurement_name.h"
#include "acquisition/measurement_sets.h"
#include "core/number.h"
#include "core/reference_database.h"
#include "evaluation/chart_document.h"
#include "evaluation/scoring.h"
#include "platform/failure.h"

#include <cstdlib>

namespace vorna {
namespace {

constexpr int chartId = 3;
constexpr std::size_t entryCount = 12;
// Entry i and entry i + columnDistance are one element column.
constexpr std::size_t columnDistance = 6;

struct ElementEntry {
    std::string_view channels;
    int element;
    std::string_view toolTextKey;
};

constexpr std::array<ElementEntry, entryCount> elementEntries{{
    {"10,22", 1, "t50"},
    {"1,13", 2, "t51"},
    {"3,15", 2, "t51"},
    {"12,24", 3, "t52"},
    {"5,17", 4, "t53"},
    {"8,20", 5, "t54"},
    {"9,21", 1, "t50"},
    {"2,14", 2, "t51"},
    {"4,16", 2, "t51"},
    {"11,23", 3, "t52"},
    {"6,18", 4, "t53"},
    {"7,19", 5, "t54"},
}};

// The element columns in their order: the element and the two slots whose names stand below it. A
// thin separator parts the elements.
struct ElementColumn {
    int element;
    int firstSlot;
    int secondSlot;
    bool separatorBehind;
};

constexpr std::array<ElementColumn, columnDistance> elementColumns{{
    {1, 10, 9, true},
    {2, 1, 2, false},
    {2, 3, 4, true},
    {3, 12, 11, true},
    {4, 5, 6, true},
    {5, 8, 7, false},
}};

constexpr std::string_view yinChannels = "10,22,1,13,3,15,12,24,8,20,5,17";
constexpr std::string_view yangChannels = "9,21,4,16,2,14,11,23,6,18,7,19";

struct ElementChart {
    EvaluationContext& context;
    ChartWindow& window;
    StoredValues values{};
    std::int32_t yinMean = 0;
    std::int32_t yangMean = 0;
    std::int32_t mean = 0;
    std::array<std::int32_t, entryCount> levels{};
    std::array<ProblemEntry, entryCount> entries;

    [[nodiscard]] std::string text(std::string_view key) const { return t(context.session, key); }
};

void score(ElementChart& chart) {
    const std::int16_t koef = chart.context.session.koef;
    const auto mean = [&](std::int32_t& target, std::string_view channels) {
        attempt([&] { target = GroupMean(chart.values, channels, koef); });
    };
    mean(chart.yinMean, yinChannels);
    mean(chart.yangMean, yangChannels);
    mean(chart.mean, allPlaces);
    for (std::size_t i = 0; i < entryCount; ++i)
        mean(chart.levels[i], elementEntries[i].channels);
}

// As classifyLevel, but what lies below tells its distance from the mean less the half-width: the
// two are one as long as the half-width is not negative.
ProblemEntry classifyElement(std::int64_t level, std::int64_t mean, std::int64_t odchylka) {
    ProblemEntry entry = classifyLevel(level, mean, odchylka);
    if (entry.problemClass == ProblemClass::Below)
        entry.difference = paddedDifference(std::abs(level - mean) - odchylka);
    return entry;
}

void classify(ElementChart& chart) {
    const Session& session = chart.context.session;
    for (std::size_t i = 0; i < columnDistance; ++i) {
        const std::int64_t first = chart.levels[i];
        const std::int64_t second = chart.levels[i + columnDistance];
        const std::int64_t difference = std::abs(first - second);
        if (difference <= session.rozstep)
            continue;
        chart.entries[i] = {ProblemClass::SidesDiffer, paddedDifference(difference)};
        // The second entry's difference is taken from the first entry's new text.
        chart.entries[i + columnDistance] = {ProblemClass::SidesDiffer,
                                             paddedDifference(std::abs(difference - second))};
    }
    for (std::size_t i = 0; i < entryCount; ++i)
        if (!chart.entries[i].flagged())
            chart.entries[i] = classifyElement(chart.levels[i], chart.mean, session.odchylka);
}

std::string pathwayOf(const ElementChart& chart, std::size_t entry) {
    return lookupChartPoint(chart.context.session, static_cast<int>(entry) + 1,
                            chart.context.state.CurrentKind, PointField::Meridian, chartId);
}

// Which of a column's two entries the recommendation starts from: the one whose text is smaller.
std::string weakerPathway(const ElementChart& chart, std::size_t entry) {
    const double first = numberOfDecimalText(chart.entries[entry].difference);
    const double second = numberOfDecimalText(chart.entries[entry + columnDistance].difference);
    if (first == second)
        return {};
    return pathwayOf(chart, first < second ? entry : entry + columnDistance);
}

ListRow problemRow(const ElementChart& chart, std::size_t entry) {
    const ProblemEntry& problem = chart.entries[entry];
    const int number = problemNumber(problem.problemClass);
    Session& session = chart.context.session;
    ListRow row{.text =
                    orEmpty([&] { return vratElement(session, elementEntries[entry].element); }),
                .tag = decimalText(std::int64_t{number})};
    row.setSubItem(problemColumn, orEmpty([&] { return vratProblem(session, number); }));
    row.setSubItem(differenceColumn, problem.difference);
    if (problem.problemClass == ProblemClass::SidesDiffer) {
        attempt([&] { row.setSubItem(pathwayColumn, weakerPathway(chart, entry)); });
    } else {
        row.setSubItem(pathwayColumn, pathwayOf(chart, entry));
        row.setSubItem(sideColumn, chart.text(entry < columnDistance ? "T137" : "T138"));
    }
    return row;
}

void fillProblems(const ElementChart& chart) {
    for (const ProblemClass wanted :
         {ProblemClass::SidesDiffer, ProblemClass::Above, ProblemClass::Below}) {
        const std::size_t count = wanted == ProblemClass::SidesDiffer ? columnDistance : entryCount;
        for (std::size_t i = 0; i < count; ++i)
            if (chart.entries[i].problemClass == wanted)
                chart.window.problems.add(problemRow(chart, i));
    }
}

std::string categories(const ElementChart& chart) {
    Session& session = chart.context.session;
    const auto shortName = [&](int slot) {
        return lookupSetPoint(session, slot, setP, PointField::ShortName, SetKey::Slot);
    };
    std::string xml(openCategories);
    xml += strongSeparator;
    xml += category(chart.text("T137") + "      " + chart.text("T138"));
    xml += strongSeparator;
    for (const ElementColumn& column : elementColumns) {
        xml += category(orEmpty([&] { return vratElement(session, column.element); }) + " (" +
                        shortName(column.firstSlot) + "," + shortName(column.secondSlot) + ")");
        if (column.separatorBehind)
            xml += thinSeparator;
    }
    xml += closeCategories;
    return xml;
}

std::string meanBar(std::int32_t mean, std::string_view colour, const std::string& series) {
    const std::string value = decimalText(std::int64_t{mean});
    return "<set value=\"" + value + "\" Color='" + std::string(colour) + "' toolText='" + value +
           "," + series + "' displayValue='" + series + "' showvalue='1'  />";
}

std::string bars(const ElementChart& chart, std::size_t first, const std::string& series,
                 std::string_view colour) {
    std::string xml;
    for (std::size_t i = first; i < first + columnDistance; ++i) {
        const std::string value = decimalText(std::int64_t{chart.levels[i]});
        // The last bar's tool text has no blank behind its comma.
        const std::string comma = i + 1 == entryCount ? "," : ", ";
        xml += "<set value=\"" + value + "\" tooltext='" + value + comma + series + " " +
               chart.text(elementEntries[i].toolTextKey) + "'  displayValue='" + value +
               "' color='" + std::string(colour) + "'/>";
    }
    return xml;
}

std::string datasets(const ElementChart& chart) {
    const std::string yin = chart.text("T137");
    const std::string yang = chart.text("T138");
    std::string xml = openDataset(yin, "  alpha='80' Color='0082fb'   >");
    xml += meanBar(chart.yinMean, "efeded", yin);
    xml += bars(chart, 0, yin, "0082fb");
    xml += closeDataset;
    xml += openDataset(yang, " alpha='80' Color='fb5f55' >");
    xml += meanBar(chart.yangMean, "887d7d", yang);
    xml += bars(chart, columnDistance, yang, "fb5f55");
    xml += closeDataset;
    return xml;
}

} // namespace

void BuildElementChart(EvaluationContext& context, ChartWindow& window,
                       const std::filesystem::path& path, std::string_view kindLetter) {
    ElementChart chart{.context = context, .window = window};
    const std::string title = orEmpty([&] { return vratNazevGrafu(context.session, chartId); });
    window.setCaption(chart.text("t44") + title);
    prepareControl(context.session, window.chart, columnChart);
    context.state.CurrentKind = setOfKindLetter(kindLetter);
    nameClient(context, context.state.CurrentKind);

    const MeasurementRecord record = readOrZeros(path);
    context.state.CurrentRecord = record;
    chart.values = context.state.CurrentKind == setE
                       ? spreadValues(record.values, elementChartSpread)
                       : record.values;
    score(chart);
    classify(chart);
    fillProblems(chart);
    const std::int64_t odchylka = context.session.odchylka;
    renderDocument(window.chart,
                   columnHead(chartId, subcaption(context, kindLabelOfFour(context)), title) +
                       categories(chart) + datasets(chart) +
                       trendLines(chart.mean, chart.mean - odchylka, chart.mean + odchylka) +
                       styleBlock());
}

} // namespace vorna
