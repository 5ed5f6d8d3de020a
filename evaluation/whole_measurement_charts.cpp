#include "evaluation/whole_measurement_charts.h"

#include "acquisition/measurement_name.h"
#include "core/number.h"
#include "core/reference_database.h"
#include "evaluation/channel_groups.h"
#include "evaluation/chart_document.h"
#include "platform/failure.h"

#include <algorithm>
#include <cstdlib>

namespace vorna {
namespace {

constexpr int balanceChartId = 6;
constexpr int energyChartId = 7;
// The numbers of the two charts in the table of evaluation texts.
constexpr int balanceTexts = 5;
constexpr int energyTexts = 6;

// What both builders begin with; returns the title.
std::string begin(EvaluationContext& context, ChartWindow& window, int chart,
                  std::string_view kindLetter) {
    std::string title = orEmpty([&] { return vratNazevGrafu(context.session, chart); });
    window.setCaption(t(context.session, "t44") + title);
    prepareControl(context.session, window.chart, chart == energyChartId ? pieChart : columnChart);
    context.state.CurrentKind = wholeMeasurementKind(kindLetter);
    nameClient(context, context.state.CurrentKind);
    window.problems.clear();
    return title;
}

// ---- The balance chart

// The three contrasts: the first series' level and the second's.
struct Contrast {
    std::int16_t a;
    std::int16_t b;
};
using Contrasts = std::array<Contrast, 3>;

Contrasts contrastsOf(const StoredValues& values, std::int16_t koef) {
    const auto level = [&](const ChannelGroup& group) {
        return groupLevelOrZero(values, group, koef);
    };
    return {{{level(yinChannels()), level(yangChannels())},
             {level(leftChannels()), level(rightChannels())},
             {level(handChannels()), level(footChannels())}}};
}

std::string balanceBar(std::int16_t level, const std::string& toolText, std::string_view colour,
                       const std::string& displayText) {
    const std::string value = decimalText(std::int64_t{level});
    return "<set value=\"" + value + "\" tooltext='" + value + ", " + toolText + "'  Color='" +
           std::string(colour) + "' displayValue='" + displayText + "'/>";
}

std::string balanceDatasets(const Session& session, const Contrasts& contrasts) {
    constexpr std::array aToolTexts{"t69", "t70", "t71"};
    constexpr std::array aDisplays{"t72", "t73", "t74"};
    constexpr std::array bToolTexts{"t66", "t67", "t68"};
    constexpr std::array bDisplays{"t75", "t76", "t77"};
    std::string xml = openDataset(t(session, "t64"), "      >");
    for (std::size_t i = 0; i < contrasts.size(); ++i)
        xml += balanceBar(contrasts[i].a, t(session, aToolTexts[i]), "ccffff",
                          t(session, aDisplays[i]));
    xml += closeDataset;
    xml += openDataset(t(session, "t65"), " >");
    for (std::size_t i = 0; i < contrasts.size(); ++i)
        xml += balanceBar(contrasts[i].b, t(session, bToolTexts[i]), "ff9900",
                          t(session, bDisplays[i]));
    xml += closeDataset;
    return xml;
}

std::string balanceCategories(const Session& session) {
    std::string xml(openCategories);
    xml += strongSeparator;
    for (const char* const key : {"t61", "t62", "t63"})
        xml += category(t(session, key));
    xml += closeCategories;
    return xml;
}

std::string balanceTrends(const Session& session, const StoredValues& values) {
    const ChannelGroup all = allChannels();
    std::int32_t raw = 0;
    attempt([&] { raw = rawMean(values, all.slots, all.divisor); });
    std::int32_t mean = 0;
    attempt([&] { mean = ScaledValue(raw, session.koef); });
    // Rounded with the offset, not before it.
    double level = 0;
    attempt([&] { level = divided(raw, session.koef); });
    const auto edge = [&](double offset) {
        std::int32_t rounded = 0;
        attempt([&] { rounded = roundToInt32(level + offset); });
        return rounded;
    };
    return trendLines(mean, edge(-double(session.odchylka)), edge(double(session.odchylka)));
}

// The evaluation text's column: the contrast with the largest difference, the earlier one of
// equals, and which of its two sides is larger.
int balanceColumn(const Contrasts& contrasts) {
    std::size_t chosen = 0;
    int largest = 0;
    for (std::size_t i = 0; i < contrasts.size(); ++i) {
        const int difference = std::abs(contrasts[i].b - contrasts[i].a);
        if (difference > largest) {
            largest = difference;
            chosen = i;
        }
    }
    const Contrast& contrast = contrasts[chosen];
    switch (chosen) {
    case 0:
        return contrast.b > contrast.a ? 2 : 1;
    case 1:
        return contrast.b > contrast.a ? 4 : 3;
    default:
        return contrast.a > contrast.b ? 6 : 5;
    }
}

// ---- The energy chart

constexpr std::size_t energyGroupCount = 6;

struct EnergySlice {
    std::size_t group; // 1 to 6
    std::array<int, 4> channels;
    std::string_view labelKey;
    std::string_view prefixKey;
    std::string_view colour;
};

// In the order of the slices.
constexpr std::array<EnergySlice, energyGroupCount> energySlices{{
    {1, {1, 2, 7, 8}, "t88", "t94", "db1818"},
    {6, {17, 18, 23, 24}, "t89", "t95", "00c6ff"},
    {5, {5, 6, 11, 12}, "t90", "t96", "00aadb"},
    {4, {15, 16, 21, 22}, "t91", "t97", "ffff2d"},
    {3, {3, 4, 9, 10}, "t92", "t98", "dbdb26"},
    {2, {13, 14, 19, 20}, "t93", "t99", "ff1c1c"},
}};

struct EnergyGroups {
    std::int32_t mean = 0;
    std::array<std::int16_t, energyGroupCount + 1> shown{};   // chart units, by group
    std::array<std::int32_t, energyGroupCount + 1> percent{}; // deviation from the mean
    std::size_t lowest = 0; // the group furthest below the mean; 0 when none lies below
};

EnergyGroups energyGroupsOf(const StoredValues& values, std::int16_t koef) {
    EnergyGroups groups;
    const ChannelGroup all = allChannels();
    attempt([&] {
        double sum = 0;
        for (const int slot : all.slots)
            sum += values[static_cast<std::size_t>(slot)];
        groups.mean = roundToInt32(divided(sum / all.divisor, koef));
    });
    for (const EnergySlice& slice : energySlices) {
        std::int32_t raw = 0;
        attempt([&] {
            raw = rawMean(values, {slice.channels.begin(), slice.channels.end()}, 4.0);
        });
        attempt([&] { groups.shown[slice.group] = ScaledValue(raw, koef); });
        attempt([&] {
            groups.percent[slice.group] =
                roundToInt32(divided((divided(raw, koef) - groups.mean) * 100.0, groups.mean));
        });
    }
    std::int32_t low = 0;
    for (std::size_t k = 1; k <= energyGroupCount; ++k) {
        if (groups.percent[k] < low) {
            low = groups.percent[k];
            groups.lowest = k;
        }
    }
    return groups;
}

std::string energySliceXml(const Session& session, const EnergyGroups& groups,
                           const EnergySlice& slice) {
    const std::string label = t(session, slice.labelKey);
    const std::string value = decimalText(std::int64_t{groups.shown[slice.group]});
    const std::int64_t deviation = std::abs(std::int64_t{groups.shown[slice.group]} - groups.mean);
    const bool pulledOut = deviation > session.odchylka || slice.group == groups.lowest;
    return "<set label=\"" + label + "\" value='" + value + "' tooltext='" + label + ", " +
           t(session, "t101") + ": " + value + "'  displayValue='" + t(session, slice.prefixKey) +
           decimalText(std::int64_t{groups.percent[slice.group]}) + "' color='" +
           std::string(slice.colour) + "'" + (pulledOut ? " issliced='1'" : "") + "/>";
}

// An even group brings its left partner along when group 6 lies below the mean, whichever group
// is the lowest; an odd group always brings its right partner.
void setEnergyText(EvaluationContext& context, const EnergyGroups& groups) {
    std::string& text = context.state.apmTherapyText;
    const int lowest = static_cast<int>(groups.lowest);
    const auto append = [&](int column) {
        attempt([&] { text += "\r\n" + vratTherapyApm(context.session, energyTexts, column); });
    };
    if (lowest == 0) {
        text = t(context.session, "t100");
        return;
    }
    attempt([&] { text = vratTherapyApm(context.session, energyTexts, lowest); });
    if (lowest % 2 == 1)
        append(lowest + 1);
    else if (groups.percent[6] < 0)
        append(lowest - 1);
}

} // namespace

std::int16_t wholeMeasurementKind(std::string_view kindLetter) {
    return std::min(setOfKindLetter(kindLetter), std::int16_t{3});
}

void BuildBalanceChart(EvaluationContext& context, ChartWindow& window,
                       const std::filesystem::path& path, std::string_view kindLetter) {
    const std::string title = begin(context, window, balanceChartId, kindLetter);
    const StoredValues values = readOrZeros(path).values;
    const Session& session = context.session;
    const Contrasts contrasts = contrastsOf(values, session.koef);
    renderDocument(window.chart, columnHead(balanceChartId,
                                            subcaption(context, kindLabelOfThree(context)), title) +
                                     balanceCategories(session) +
                                     balanceDatasets(session, contrasts) +
                                     balanceTrends(session, values) + styleBlock());
    attempt([&] {
        context.state.apmTherapyText =
            vratTherapyApm(context.session, balanceTexts, balanceColumn(contrasts));
    });
}

void BuildEnergyChart(EvaluationContext& context, ChartWindow& window,
                      const std::filesystem::path& path, std::string_view kindLetter) {
    const std::string title = begin(context, window, energyChartId, kindLetter);
    const EnergyGroups groups = energyGroupsOf(readOrZeros(path).values, context.session.koef);
    std::string xml = energyPieHead(subcaption(context, kindLabelOfThree(context)), title);
    for (const EnergySlice& slice : energySlices)
        xml += energySliceXml(context.session, groups, slice);
    renderDocument(window.chart, xml + styleBlock());
    setEnergyText(context, groups);
}

} // namespace vorna
