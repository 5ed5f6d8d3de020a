// The quadrant window: the quadrant pie in the middle, and at its corners the six meridians of
// each side and nature.
#pragma once

#include "core/window.h"
#include "evaluation/evaluation_state.h"

namespace vorna {

struct QuadrantWindow final : Window {
    explicit QuadrantWindow(EvaluationContext& context);

    Label title{*this, "Label4"};
    Label subtitle{*this, "Label3"};
    ChartControl quadrants{*this, "FusionCharts5"};
    ChartControl leftYin{*this, "FusionCharts1"};
    ChartControl leftYang{*this, "FusionCharts2"};
    ChartControl rightYin{*this, "FusionCharts3"};
    ChartControl rightYang{*this, "FusionCharts4"};
    Picture yinPicture{*this, "Image4"};
    Picture yangPicture{*this, "Image5"};
    Button back{*this, "Command4"};

    // Draws the five pies of the selected measurement.
    void load() override;

private:
    EvaluationContext& context_;
};

void showQuadrantWindow(EvaluationContext& context);

} // namespace vorna
