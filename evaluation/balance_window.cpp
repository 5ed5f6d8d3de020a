#include "evaluation/balance_window.h"

#include "core/number.h"
#include "core/reference_database.h"
#include "evaluation/channel_groups.h"
#include "evaluation/chart_document.h"
#include "evaluation/summary_pies.h"
#include "evaluation/whole_measurement_charts.h"
#include "platform/failure.h"

#include <cstdlib>

namespace vorna {
namespace {

constexpr int balanceTitleRow = 4;
constexpr std::int16_t chartTypeOfBalance = 7;
// Chart units either way that lead to the edge of the cross diagram and back: 200 each.
constexpr double crossSpan = 400.0;

// One balance line: half the difference, told by the text of the side that has more.
std::string balanceLine(const Session& session, double difference, std::string_view whenNegative,
                        std::string_view otherwise) {
    const std::int32_t percent = roundToInt32(difference / 2.0);
    return t(session, percent < 0 ? whenNegative : otherwise) + " " +
           decimalText(std::int64_t{std::abs(percent)}) + " %";
}

std::int32_t crossPosition(double difference) {
    return roundToInt32(difference * crossSize / crossSpan + crossSize / 2.0);
}

void fillBalancePercent(BalanceWindow& window, const StoredValues& values, std::int16_t koef) {
    double sum = 0;
    for (std::size_t i = 1; i <= pairDistance; ++i)
        sum += std::abs(double(values[i]) - double(values[i + pairDistance]));
    window.balancePercent.text =
        decimalText(ScaledValue(roundToInt32(sum / 12.0), koef) / 2.0) + " %";
}

} // namespace

BalanceWindow::BalanceWindow(EvaluationContext& context)
    : Window("Form3"), context_(context), reportPicture_(context, quadrants, [this] {
          attempt([&] { reportPicture_.save(); });
          close();
      }) {
    back.clicked = [this] { close(); };
    applyLanguage(context.session, *this);
}

void BalanceWindow::close() {
    reportPicture_.stop();
    Window::close();
}

void BalanceWindow::load() {
    context_.state.chartType = chartTypeOfBalance;
    attempt([&] {
        const ListRow& row = selectedMeasurement(context_);
        BuildQuadrantPie(context_, selectedMeasurementPath(context_), row.subItem(kindColumn),
                         quadrants);
    });
    quadrants.renderChart();
}

void FillBalanceWindow(EvaluationContext& context, BalanceWindow& window,
                       const std::filesystem::path& path, std::string_view kindLetter) {
    Session& session = context.session;
    const std::string title = orEmpty([&] { return vratNazevGrafu(session, balanceTitleRow); });
    window.setCaption(t(session, "t44") + title);
    window.title.caption = title;
    context.state.CurrentKind = wholeMeasurementKind(kindLetter);
    nameClient(context, context.state.CurrentKind);
    const StoredValues values = readOrZeros(path).values;
    window.subtitle.caption = subcaption(context, kindLabelOfThree(context));

    const auto level = [&](const ChannelGroup& group) {
        return double(groupLevelOrZero(values, group, session.koef));
    };
    const double left = level(leftChannels());
    const double right = level(rightChannels());
    const double feet = level(footChannels());
    const double hands = level(handChannels());
    window.leftRight.caption = balanceLine(session, right - left, "t78", "t79");
    window.handsFeet.caption = balanceLine(session, hands - feet, "t80", "t81");
    window.marker = CrossMarker{crossPosition(left - right), crossPosition(hands - feet)};
    window.yinYang.caption =
        balanceLine(session, level(yangChannels()) - level(yinChannels()), "t135", "t136");
    attempt([&] {
        window.energyLevel.text =
            decimalText(std::int64_t{groupLevel(values, allChannels(), session.koef)});
    });
    attempt([&] { fillBalancePercent(window, values, session.koef); });
}

void showBalanceWindow(EvaluationContext& context, const Handler& filled) {
    BalanceWindow window(context);
    attempt([&] {
        FillBalanceWindow(context, window, selectedMeasurementPath(context),
                          selectedMeasurement(context).subItem(kindColumn));
    });
    call(filled);
    context.windows.showModal(window);
}

} // namespace vorna
