#include "evaluation/summary_pies.h"

#include "acquisition/measurement_name.h"
#include "acquisition/measurement_sets.h"
#include "core/number.h"
#include "core/reference_database.h"
#include "evaluation/chart_document.h"
#include "evaluation/scoring.h"
#include "platform/failure.h"

#include <cmath>
#include <cstdlib>

namespace vorna {
namespace {

constexpr int quadrantOrder = 1;
constexpr int elementOrder = 1;
constexpr int smallTitle = 14;
constexpr std::size_t sliceCount = 6;
constexpr std::array<std::string_view, sliceCount> elementColours{"0001fc", "ffff00", "ff2929",
                                                                  "ff2929", "17ab0c", "000000"};
// The colour whose slices carry no mark when they stay in the pie.
constexpr std::string_view unmarkedColour = "17ab0c";

// P is 1, anything else 2.
int kindOfTwo(std::string_view kindLetter) {
    return kindLetter == "P" ? setP : setT;
}

std::string title(Session& session, int chartId) {
    return orEmpty([&] { return vratNazevGrafu(session, chartId); });
}

// ---- Quadrants

using Quarters = std::array<std::int32_t, 4>;

Quarters quartersOf(const ChartValues& scaled) {
    const auto mean = [&](std::size_t first) {
        double sum = 0;
        for (std::size_t place = first; place < first + 12; place += 2)
            sum += scaled[place];
        return roundToInt32(sum / 6.0);
    };
    return {mean(14), mean(2), mean(1), mean(13)};
}

// The quarter farthest from the centre. Each is held against the rounded best so far, and the
// earlier of equals stays.
std::size_t farthestQuarter(const Quarters& quarters) {
    const double centre = (double(quarters[3]) + quarters[2] + quarters[0] + quarters[1]) / 4.0;
    std::int32_t best = 0;
    std::size_t chosen = 0;
    for (std::size_t i = 0; i < quarters.size(); ++i) {
        const double distance = std::abs(quarters[i] - centre);
        if (distance > best) {
            best = roundToInt32(distance);
            chosen = i;
        }
    }
    return chosen;
}

// ---- One side's elements

struct SideMeridians {
    std::array<std::int32_t, sliceCount> raw{};
    std::size_t farthest = 0; // from the mean of the whole measurement, in raw values
};

SideMeridians sideMeridiansOf(Session& session, const StoredValues& values, int kind, int chartId) {
    SideMeridians side;
    for (std::size_t i = 0; i < sliceCount; ++i)
        attempt([&] {
            side.raw[i] = values[slotOfText(lookupChartPoint(session, static_cast<int>(i) + 1, kind,
                                                             PointField::Slot, chartId))];
        });
    double sum = 0;
    for (std::size_t k = 1; k <= slotCount; ++k)
        attempt([&] { sum += roundToInt16(values[k]); });
    const std::int64_t mean = roundToInt32(sum / 24.0);
    std::int64_t best = 0;
    for (std::size_t i = 0; i < sliceCount; ++i) {
        const std::int64_t distance = std::abs(side.raw[i] - mean);
        if (distance > best) {
            best = distance;
            side.farthest = i;
        }
    }
    return side;
}

// ---- Elements

struct ElementSlice {
    std::string_view toolTextKey;
    std::string_view yangChannels;
    std::string_view yinChannels;
    std::string_view allChannels;
    std::string_view allLabelKey;
};

constexpr std::array<ElementSlice, sliceCount> elementSlices{{
    {"t57", "10,22", "9,21", "10,22,9,21", "t53"},
    {"t58", "8,20", "7,19", "8,20,7,19", "t52"},
    {"t59", "4,16", "3,15", "4,16,3,15", "t51"},
    {"t60", "6,18", "5,17", "6,18,5,17", "t51"},
    {"t55", "2,14", "1,13", "2,14,1,13", "t50"},
    {"t56", "12,24", "11,23", "12,24,11,23", "t54"},
}};

int chartOf(ElementPie which) {
    switch (which) {
    case ElementPie::Yang:
        return 16;
    case ElementPie::Yin:
        return 15;
    case ElementPie::All:
        break;
    }
    return 17;
}

std::string_view channelsOf(const ElementSlice& slice, ElementPie which) {
    switch (which) {
    case ElementPie::Yang:
        return slice.yangChannels;
    case ElementPie::Yin:
        return slice.yinChannels;
    case ElementPie::All:
        break;
    }
    return slice.allChannels;
}

std::string elementLabel(Session& session, std::size_t slice, ElementPie which) {
    if (which == ElementPie::All)
        return t(session, elementSlices[slice].allLabelKey);
    return lookupChartPoint(session, static_cast<int>(slice) + 1, setT, PointField::ShortName,
                            chartOf(which));
}

StoredValues elementValues(EvaluationContext& context, const MeasurementRecord& record,
                           std::string_view kindLetter) {
    if (context.state.CurrentKind == setE)
        return spreadValues(record.values, elementPieSpread);
    if (context.state.CurrentKind < setE)
        return GraphOrder(context.session, record.values, elementOrder,
                          setOfKindLetter(kindLetter));
    return record.values;
}

std::string elementSliceXml(EvaluationContext& context, const StoredValues& values,
                            std::size_t slice, ElementPie which) {
    Session& session = context.session;
    std::int32_t mean = 0;
    std::int32_t level = 0;
    attempt([&] {
        mean = GroupMean(values, "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24",
                         session.koef);
    });
    attempt(
        [&] { level = GroupMean(values, channelsOf(elementSlices[slice], which), session.koef); });
    const std::int64_t deviation = std::int64_t{level} - mean;
    const std::string_view colour = elementColours[slice];
    const std::string mark = std::abs(deviation) > session.odchylka ? " issliced='1'"
                             : colour == unmarkedColour             ? ""
                                                                    : " issliced='0'";
    return "<set  label=\"" + elementLabel(session, slice, which) + "\" value='" +
           decimalText(std::int64_t{level}) + "' tooltext='" +
           t(session, elementSlices[slice].toolTextKey) + " " + decimalText(deviation) +
           "'   color='" + std::string(colour) + "'" + mark + "/>";
}

} // namespace

void BuildQuadrantPie(EvaluationContext& context, const std::filesystem::path& path,
                      std::string_view kindLetter, ChartControl& control) {
    constexpr std::array<std::string_view, 4> sideKeys{"t49", "t48", "t48", "t49"};
    constexpr std::array<std::string_view, 4> colours{"fe0000", "fe0000", "0082fb", "0082fb"};
    Session& session = context.session;
    prepareControl(session, control, pieChart);
    const int kind = kindOfTwo(kindLetter);
    nameClient(context, kind);
    const StoredValues ordered = GraphOrder(session, readOrZeros(path).values, quadrantOrder, kind);
    const Quarters quarters = quartersOf(scaledValues(ordered, session.koef));
    const std::size_t chosen = farthestQuarter(quarters);

    std::string xml = quadrantPieHead(title(session, 2));
    for (std::size_t i = 0; i < quarters.size(); ++i) {
        const std::string value = decimalText(std::int64_t{quarters[i]});
        xml += "<set  value='" + value + "' tooltext='" + t(session, sideKeys[i]) + ", " +
               t(session, "t101") + ": " + value + "'  color='" + std::string(colours[i]) +
               "' issliced='" + (i == chosen ? "1" : "0") + "' />";
    }
    renderDocument(control, xml + styleBlock(smallTitle));
    context.state.apmTherapyText = t(session, "100");
}

void BuildSideElementPie(EvaluationContext& context, const std::filesystem::path& path,
                         std::string_view kindLetter, int chartId, ChartControl& control) {
    Session& session = context.session;
    prepareControl(session, control, pieChart);
    const int kind = kindOfTwo(kindLetter);
    nameClient(context, kind);
    const SideMeridians side = sideMeridiansOf(session, readOrZeros(path).values, kind, chartId);

    std::string xml = sideElementPieHead(title(session, chartId));
    for (std::size_t i = 0; i < sliceCount; ++i) {
        std::int16_t level = 0;
        attempt([&] { level = ScaledValue(side.raw[i], session.koef); });
        const std::string value = decimalText(std::int64_t{level});
        const auto field = [&](PointField which) {
            return lookupChartPoint(session, static_cast<int>(i) + 1, kind, which, chartId);
        };
        xml += "<set  label=\"" + field(PointField::ShortName) + "\" value='" + value +
               "' tooltext='" + field(PointField::ElementName) + ", " + t(session, "t101") + ": " +
               value + "'   color='" + std::string(elementColours[i]) + "'" +
               (i == side.farthest ? " issliced='1'" : "") + "/>";
    }
    renderDocument(control, xml + styleBlock(smallTitle));
}

void BuildElementPie(EvaluationContext& context, const std::filesystem::path& path,
                     std::string_view kindLetter, ChartControl& control, ElementPie which) {
    Session& session = context.session;
    prepareControl(session, control, pieChart);
    nameClient(context, setOfKindLetter(kindLetter));
    const MeasurementRecord record = readOrZeros(path);
    context.state.CurrentRecord = {};
    const StoredValues values = elementValues(context, record, kindLetter);

    std::string xml = elementPieHead(title(session, chartOf(which)));
    for (std::size_t i = 0; i < sliceCount; ++i)
        xml += elementSliceXml(context, values, i, which);
    renderDocument(control, xml + styleBlock());
}

} // namespace vorna
