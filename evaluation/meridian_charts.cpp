#include "evaluation/meridian_charts.h"

#include "acquisition/measurement_name.h"
#include "acquisition/measurement_sets.h"
#include "core/number.h"
#include "core/reference_database.h"
#include "evaluation/chart_document.h"
#include "evaluation/scoring.h"
#include "platform/failure.h"

namespace vorna {
namespace {

constexpr std::string_view firstSide = "1,2,3,4,5,6,7,8,9,10,11,12";
// Places 23 and 24 are not in this mean.
constexpr std::string_view secondSide = "13,14,15,16,17,18,19,20,21,22";
constexpr std::string_view firstGroup = "1,2,3,4,5,6,13,14,15,16,17,18";
constexpr std::string_view secondGroup = "7,8,9,10,11,12,19,20,21,22,23,24";

constexpr std::string_view blue = "0082fb";
constexpr std::string_view coral = "fb5f55";
constexpr std::string_view deepBlue = "0032fb";
constexpr std::string_view red = "fb0f00";
constexpr std::string_view darkGrey = "887d7d";
constexpr std::string_view lightGrey = "efeded";

using Labels = std::array<std::string, pairDistance + 1>;

// One of the two charts on its way from the record to the document.
struct MeridianChart {
    EvaluationContext& context;
    ChartWindow& window;
    int chart; // 1 or 2
    int graf;  // the chart order
    int kind = 0;
    StoredValues ordered{};
    ChartValues scaled{};
    Labels labels;
    std::int32_t mean = 0;       // over all places
    std::int32_t firstMean = 0;  // over the first side
    std::int32_t secondMean = 0; // over the second side, two places short
    std::int32_t reference = 0;
    ProblemEntries entries;

    [[nodiscard]] std::string text(std::string_view key) const { return t(context.session, key); }
};

std::int32_t meanOrZero(const MeridianChart& chart, std::string_view list) {
    std::int32_t mean = 0;
    attempt([&] { mean = GroupMean(chart.ordered, list, chart.context.session.koef); });
    return mean;
}

void readLabels(MeridianChart& chart) {
    const auto shortName = [&](int place) {
        return lookupChartPoint(chart.context.session, place, chart.kind, PointField::ShortName,
                                chart.graf);
    };
    for (int i = 1; i <= pairDistance; ++i) {
        std::string& label = chart.labels[static_cast<std::size_t>(i)];
        label = shortName(i);
        if (chart.chart == 2 && chart.kind == setE)
            label += " : " + shortName(i + pairDistance);
    }
}

void score(MeridianChart& chart, const MeasurementRecord& record) {
    Session& session = chart.context.session;
    chart.ordered = GraphOrder(session, record.values, chart.graf, chart.kind);
    chart.scaled = scaledValues(chart.ordered, session.koef);
    chart.mean = meanOrZero(chart, allPlaces);
    chart.firstMean = meanOrZero(chart, firstSide);
    chart.secondMean = meanOrZero(chart, secondSide);
    chart.reference = chart.mean;
    if (chart.chart == 2)
        attempt([&] {
            chart.reference =
                roundToInt32((double(chart.secondMean) + double(chart.firstMean)) / 2.0);
        });
    chart.entries = Classify({.ordered = chart.ordered,
                              .scaled = chart.scaled,
                              .reference = chart.reference,
                              .zeroGuard = chart.chart == 2},
                             session);
}

// The slot of the place in the first set, whatever set was measured: the recommendation counts on
// it.
std::string slotInFirstSet(const MeridianChart& chart, int place) {
    return lookupChartPoint(chart.context.session, place, setP, PointField::Slot, chart.graf);
}

std::string weakerSide(const MeridianChart& chart, int place) {
    const int a = chart.scaled[static_cast<std::size_t>(place)];
    const int b = chart.scaled[static_cast<std::size_t>(place) + pairDistance];
    if (a == b)
        return {};
    return slotInFirstSet(chart, a < b ? place : place + pairDistance);
}

ListRow problemRow(const MeridianChart& chart, int place) {
    const ProblemEntry& entry = chart.entries[static_cast<std::size_t>(place)];
    const int problem = problemNumber(entry.problemClass);
    const bool first = place <= pairDistance;
    ListRow row{.text =
                    chart.labels[static_cast<std::size_t>(first ? place : place - pairDistance)],
                .tag = decimalText(std::int64_t{problem})};
    row.setSubItem(problemColumn,
                   orEmpty([&] { return vratProblem(chart.context.session, problem); }));
    row.setSubItem(differenceColumn, entry.difference);
    if (entry.problemClass == ProblemClass::SidesDiffer) {
        row.setSubItem(pathwayColumn, weakerSide(chart, place));
    } else {
        row.setSubItem(pathwayColumn, slotInFirstSet(chart, place));
        row.setSubItem(sideColumn, chart.text(first ? "t42" : "t43"));
    }
    return row;
}

// One row for each pair whose sides differ, then what lies above, then what lies below.
void fillProblems(const MeridianChart& chart) {
    for (const ProblemClass wanted :
         {ProblemClass::SidesDiffer, ProblemClass::Above, ProblemClass::Below}) {
        const int last = wanted == ProblemClass::SidesDiffer ? pairDistance : slotCount;
        for (int place = 1; place <= last; ++place)
            if (chart.entries[static_cast<std::size_t>(place)].problemClass == wanted)
                chart.window.problems.add(problemRow(chart, place));
    }
}

std::string categories(const MeridianChart& chart) {
    std::string xml(openCategories);
    const auto labels = [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i <= last; ++i)
            xml += category(chart.labels[i]);
    };
    if (chart.chart == 1) {
        xml += category(chart.text("T102"));
        xml += strongSeparator;
        labels(1, 12);
    } else {
        const std::string yin = chart.text("T137");
        const std::string yang = chart.text("T138");
        xml += "<category label=\"" + yin + " " + yang + "\"   />";
        xml += labelledSeparator("0c06ff", yin);
        labels(1, 6);
        xml += labelledSeparator("f40101", yang);
        labels(7, 12);
    }
    xml += closeCategories;
    return xml;
}

std::string_view barColour(const MeridianChart& chart, int place) {
    const bool first = place <= pairDistance;
    const bool blueOne =
        chart.chart == 1 ? place % 2 == 1 : (first ? place : place - pairDistance) <= 6;
    if (first)
        return blueOne ? blue : coral;
    return blueOne ? deepBlue : red;
}

std::string bar(const MeridianChart& chart, int place) {
    const auto at = static_cast<std::size_t>(place);
    const std::string value = decimalText(std::int64_t{chart.scaled[at]});
    const bool first = place <= pairDistance;
    // The second side of chart 1 has no comma before the side.
    const std::string comma = first || chart.chart == 2 ? "," : "";
    return "<set value=\"" + value + "\" tooltext='" + value + comma +
           chart.text(first ? "t48" : "t49") + "' showvalue='" +
           (chart.entries[at].flagged() ? "1" : "0") + "' color='" +
           std::string(barColour(chart, place)) + "'/>";
}

std::string bars(const MeridianChart& chart, int first) {
    std::string xml;
    for (int place = first; place < first + pairDistance; ++place)
        xml += bar(chart, place);
    return xml;
}

struct MeanBar {
    std::int32_t value;
    std::string_view colour;
    std::string toolText;
    std::string_view gap; // blanks before displayValue
    std::string displayValue;
};

std::string meanBar(const MeanBar& bar) {
    return "<set value=\"" + decimalText(std::int64_t{bar.value}) + "\" Color='" +
           std::string(bar.colour) + "' toolText='" + bar.toolText + "'" + std::string(bar.gap) +
           "displayValue='" + bar.displayValue + "' showvalue='1'/>";
}

std::string sidesDatasets(const MeridianChart& chart) {
    const auto mean = [&](std::int32_t value, std::string_view sideKey) {
        return chart.text("t102") + decimalText(std::int64_t{value}) + ", " + chart.text(sideKey);
    };
    std::string xml = openDataset(chart.text("T137"), "   Color='0082fb'   >");
    xml += meanBar({chart.firstMean, darkGrey, mean(chart.firstMean, "t42"), " ", "L"});
    xml += bars(chart, 1);
    xml += closeDataset;
    xml += openDataset(chart.text("T138"), " color='fb5f55' >");
    xml += meanBar({chart.secondMean, lightGrey, mean(chart.secondMean, "t43"), "  ", "P"});
    xml += bars(chart, 13);
    xml += closeDataset;
    return xml;
}

std::string groupsDatasets(const MeridianChart& chart) {
    const auto mean = [&](std::string_view list, const std::string& group, std::string_view colour,
                          std::string_view gap) {
        const std::int32_t value = meanOrZero(chart, list);
        return meanBar({value, colour, decimalText(std::int64_t{value}) + "," + group, gap, group});
    };
    const std::string yin = chart.text("T137");
    const std::string yang = chart.text("T138");
    std::string xml = openDataset(yin, "  alpha='80' Color='0082fb'   >");
    xml += mean(firstGroup, yin, lightGrey, " ");
    xml += bars(chart, 1);
    xml += closeDataset;
    xml += openDataset(yang, " alpha='80' color='fb5f55'  >");
    xml += mean(secondGroup, yang, darkGrey, " ");
    xml += bars(chart, 13);
    xml += closeDataset;
    return xml;
}

std::string trends(const MeridianChart& chart) {
    const std::int64_t odchylka = chart.context.session.odchylka;
    const std::int32_t mean = chart.mean;
    std::int64_t low = std::int64_t{mean} - odchylka;
    // The two edges of chart 1 come from two different means.
    if (chart.chart == 1)
        attempt([&] {
            low = roundToInt32((double(chart.firstMean) + double(chart.secondMean)) / 2.0 -
                               static_cast<double>(odchylka));
        });
    return trendLines(mean, low, mean + odchylka);
}

void build(MeridianChart& chart, const std::filesystem::path& path, const std::string& prefix) {
    EvaluationContext& context = chart.context;
    const std::string title = orEmpty([&] { return vratNazevGrafu(context.session, chart.chart); });
    chart.window.setCaption(prefix + title);
    prepareControl(context.session, chart.window.chart, columnChart);
    readLabels(chart);
    nameClient(context, chart.kind);
    score(chart, readOrZeros(path));
    fillProblems(chart);
    const std::string kind = chart.chart == 1 ? kindLabel(context) : kindLabelOfFour(context);
    renderDocument(chart.window.chart,
                   columnHead(chart.chart, subcaption(context, kind), title) + categories(chart) +
                       (chart.chart == 1 ? sidesDatasets(chart) : groupsDatasets(chart)) +
                       trends(chart) + styleBlock());
}

} // namespace

void BuildMeridianChartSides(EvaluationContext& context, ChartWindow& window,
                             const std::filesystem::path& path, std::string_view kindLetter) {
    MeridianChart chart{.context = context, .window = window, .chart = 1, .graf = 1};
    // A kind that this chart does not know keeps the driver's CurrentKind and finds no labels.
    if (const std::int16_t kind = setOfKindLetter(kindLetter); kind != setE) {
        chart.kind = kind;
        context.state.CurrentKind = kind;
    }
    build(chart, path, "Graf: ");
}

void BuildMeridianChartGroups(EvaluationContext& context, ChartWindow& window,
                              const std::filesystem::path& path, std::string_view kindLetter) {
    MeridianChart chart{.context = context,
                        .window = window,
                        .chart = 2,
                        .graf = context.session.mode == modeTcm ? 18 : 2};
    context.state.CurrentKind = setOfKindLetter(kindLetter);
    chart.kind = context.state.CurrentKind;
    build(chart, path, t(context.session, "t44"));
}

} // namespace vorna
