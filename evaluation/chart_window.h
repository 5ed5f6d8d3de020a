// The chart window: the one window in which charts 1, 2, 3, 6 and 7 appear, with the list of the
// problems found or the evaluation text, and from which the recommended solution and the summary
// windows open. A report turns each chart into a picture through it.
#pragma once

#include "core/window.h"
#include "evaluation/evaluation_state.h"
#include "evaluation/report_picture.h"
#include "platform/event_loop.h"

namespace vorna {

struct ChartWindow final : Window {
    // Sets the texts of the controls and what is visible at first, by the chart type of the state.
    // The context must outlive the window.
    explicit ChartWindow(EvaluationContext& context);

    ChartControl chart{*this, "FusionCharts1"};
    ListView problems{*this, "ListView3"};
    TextBox evaluation{*this, "Text1"};
    Button hideEvaluation{*this, "Command1"};
    Button showEvaluation{*this, "Command2"};
    Button elements{*this, "Command37"};
    Button balance{*this, "Command6"};
    Picture star{*this, "Image3"};
    Button savePicture{*this, "Command5"};
    Button back{*this, "Command4"};
    Picture savedPicture{*this, "Picture1"};
    Label problemsHeading{*this, "Label1"};
    Label evaluationHeading{*this, "Label2"};
    Label hint{*this, "Label3"};

    void close() override;

private:
    [[nodiscard]] bool showsText() const;
    void onShowEvaluation();
    void onHideEvaluation();
    void showHeadings();
    void keepButtonsInStep();
    void onSavePicture();

    EvaluationContext& context_;
    Timer evaluationButtons_;
    ReportPicture reportPicture_;
};

// The columns of the problem list behind the meridian or element.
inline constexpr std::size_t problemColumn = 1;
inline constexpr std::size_t differenceColumn = 2;
inline constexpr std::size_t pathwayColumn = 3;
inline constexpr std::size_t sideColumn = 4;

} // namespace vorna
