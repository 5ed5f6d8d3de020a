// The recommended solution: the points proposed for one problem of a chart, each with its texts
// and pictures, and the copy of the checked ones.
#pragma once

#include "core/window.h"
#include "evaluation/chart_window.h"
#include "evaluation/evaluation_state.h"

#include <string>

namespace vorna {

struct RecommendationWindow final : Window {
    // Lists the proposals for the selected problem of the chart window and shows the first. The
    // context must outlive the window.
    RecommendationWindow(EvaluationContext& context, const ChartWindow& chart);

    Label heading{*this, "Label4"};
    ListView points{*this, "ListView3"}; // rows as in proposal.h
    Label labelFirstHalf{*this, "SkinLabel1"};
    Label labelSecondHalf{*this, "SkinLabel2"};
    Label additionalText{*this, "SkinLabel3"};
    Label meridianName{*this, "Label2"};
    Label china{*this, "Label3"};
    Label description{*this, "Label1"};
    Picture frontPicture{*this, "Image1"};
    Picture sidePicture{*this, "Image2"};
    Picture meridianPicture{*this, "Image6"};
    Picture star{*this, "Image3"};
    Picture yin{*this, "Image4"};
    Picture yang{*this, "Image5"};
    Button copy{*this, "Command1"};
    Button back{*this, "Command4"};

private:
    void propose(const ChartWindow& chart);
    void displayRow();
    void showMeridianPicture();
    void copyChecked();
    // The first of the mode's pictures that matches; empty when there is none.
    [[nodiscard]] std::string findPicture(const std::string& pattern) const;

    EvaluationContext& context_;
};

// Shows the recommended solution for the selected problem row, modally.
void showRecommendation(EvaluationContext& context, const ChartWindow& chart);

} // namespace vorna
