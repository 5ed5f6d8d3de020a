#include "evaluation/evaluation_driver.h"

#include "core/reference_database.h"
#include "evaluation/balance_window.h"
#include "evaluation/chart_window.h"
#include "evaluation/element_chart.h"
#include "evaluation/element_window.h"
#include "evaluation/meridian_charts.h"
#include "evaluation/whole_measurement_charts.h"
#include "platform/failure.h"

namespace vorna {
namespace {

using Builder = void (*)(EvaluationContext&, ChartWindow&, const std::filesystem::path&,
                         std::string_view);

constexpr std::int16_t balanceChartType = 4;

std::int16_t driverKind(std::string_view kindLetter) {
    if (kindLetter == "P")
        return 1;
    return kindLetter == "T" ? std::int16_t{2} : std::int16_t{3};
}

void showChart(EvaluationContext& context, std::int16_t chartType, Builder builder) {
    context.state.chartType = chartType;
    ChartWindow window(context);
    attempt([&] {
        const ReferenceReading reading(context.session);
        builder(context, window, selectedMeasurementPath(context),
                selectedMeasurement(context).subItem(kindColumn));
    });
    window.chart.renderChart();
    context.windows.showModal(window);
}

void run(EvaluationContext& context, int button) {
    switch (button) {
    case 0:
        return showChart(context, 1, &BuildMeridianChartSides);
    case 1:
        return showChart(context, 2, &BuildMeridianChartGroups);
    case 2:
        return showChart(context, 3, &BuildElementChart);
    case 3:
        return showBalanceWindow(context, [&] { context.state.chartType = balanceChartType; });
    case 4:
        return showElementWindow(context);
    case 5:
        return showChart(context, 6, &BuildBalanceChart);
    case 6:
        return showChart(context, 7, &BuildEnergyChart);
    default:
        return;
    }
}

} // namespace

void pressChartButton(EvaluationContext& context, int button, bool listIsActive) {
    const ListRow* const row = context.measurementList.selectedRow();
    if (row == nullptr)
        return;
    // Copies: a message is a turn of the loop, in which the list may be filled anew.
    const std::string kindLetter(row->subItem(kindColumn));
    const std::string madeIn(row->subItem(modeColumn));
    const std::int16_t mode = context.session.mode;
    const auto warn = [&] { context.platform.dialogs.message(t(context.session, "t33")); };
    if (kindLetter == "E" && mode == modeApm)
        return warn();
    if ((madeIn == "A" && mode == modeTcm) || (madeIn == "T" && mode == modeApm))
        warn();
    if (listIsActive)
        context.state.ReportChartIndex = 0;
    context.state.CurrentKind = driverKind(kindLetter);
    run(context, button);
}

} // namespace vorna
