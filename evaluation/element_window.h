// The element window: three pies of element means, of the yang meridians, of the yin meridians and
// of all, and the way to the quadrants.
#pragma once

#include "core/window.h"
#include "evaluation/evaluation_state.h"

namespace vorna {

struct ElementWindow final : Window {
    explicit ElementWindow(EvaluationContext& context);

    Label title{*this, "Label4"};
    Label subtitle{*this, "Label3"};
    ChartControl yang{*this, "FusionCharts1"};
    ChartControl yin{*this, "FusionCharts2"};
    ChartControl all{*this, "FusionCharts3"};
    Picture yinPicture{*this, "Image4"};
    Picture yangPicture{*this, "Image5"};
    Button quadrants{*this, "Command37"};
    Button back{*this, "Command4"};

    // Draws the three pies of the selected measurement. Blanks CurrentRecord.
    void load() override;

private:
    EvaluationContext& context_;
};

void showElementWindow(EvaluationContext& context);

} // namespace vorna
