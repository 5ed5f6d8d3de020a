#include "evaluation/chart_window.h"

#include "clients/picture_window.h"
#include "evaluation/balance_window.h"
#include "evaluation/element_window.h"
#include "platform/failure.h"

namespace vorna {
namespace {

using namespace std::chrono_literals;

constexpr auto evaluationButtonsPeriod = 100ms;

bool isWholeMeasurementChart(int chartType) {
    return chartType == 6 || chartType == 7;
}

} // namespace

ChartWindow::ChartWindow(EvaluationContext& context)
    : Window("graffrm"), context_(context),
      evaluationButtons_(context.platform.loop, evaluationButtonsPeriod, Timer::Kind::Repeating,
                         [this] { keepButtonsInStep(); }),
      reportPicture_(context, chart, [this] {
          onSavePicture();
          close();
      }) {
    elements.visible = context.state.chartType < 4;
    star.visible = context.state.chartType == 7;
    applyLanguage(context.session, *this);
    evaluation.visible = false;
    problems.visible = false;
    hideEvaluation.visible = false;
    showHeadings();
    std::vector<std::string> headers;
    for (const char* const key : {"0", "1", "2", "3", "4"})
        headers.push_back(
            context.session.texts.value(section(), std::string("ListView3.column") + key));
    problems.headers = headers;

    showEvaluation.clicked = [this] { onShowEvaluation(); };
    hideEvaluation.clicked = [this] { onHideEvaluation(); };
    elements.clicked = [this] { showElementWindow(context_); };
    balance.clicked = [this] { showBalanceWindow(context_); };
    star.clicked = [this] { showLanguagePicture(context_.session, context_.windows, "hvezdice"); };
    savePicture.clicked = [this] { onSavePicture(); };
    back.clicked = [this] { close(); };
    problems.doubleClicked = [this] {
        if (context_.recommend)
            context_.recommend(*this);
    };
    evaluationButtons_.start();
}

void ChartWindow::close() {
    evaluationButtons_.stop();
    reportPicture_.stop();
    Window::close();
}

bool ChartWindow::showsText() const {
    return isWholeMeasurementChart(context_.state.chartType);
}

void ChartWindow::onShowEvaluation() {
    evaluation.visible = showsText();
    if (showsText())
        evaluation.text = context_.state.apmTherapyText;
    else
        problems.visible = true;
    showHeadings();
}

void ChartWindow::onHideEvaluation() {
    evaluation.visible = false;
    if (showsText())
        evaluation.text = context_.state.apmTherapyText;
    else
        problems.visible = false;
    showHeadings();
}

void ChartWindow::showHeadings() {
    problemsHeading.visible = problems.visible;
    hint.visible = problems.visible;
    evaluationHeading.visible = evaluation.visible;
}

// The balance window changes the chart type under an open chart window: the element that counts is
// asked for afresh each time.
void ChartWindow::keepButtonsInStep() {
    const bool shown = showsText() ? evaluation.visible : problems.visible;
    showEvaluation.visible = !shown;
    hideEvaluation.visible = shown;
}

void ChartWindow::onSavePicture() {
    attempt([&] { savedPicture.path = reportPicture_.save(); });
}

} // namespace vorna
