// The balance window: the energy level, the balance percentage, three balance lines, a cross
// diagram with a marker, and the quadrant pie.
#pragma once

#include "core/window.h"
#include "evaluation/evaluation_state.h"
#include "evaluation/report_picture.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace vorna {

// Where the marker stands in the cross diagram of 5000 by 5000 units, from its lower left corner.
struct CrossMarker {
    std::int32_t centreX;
    std::int32_t referenceY;
};
inline constexpr std::int32_t crossSize = 5000;

struct BalanceWindow final : Window {
    explicit BalanceWindow(EvaluationContext& context);

    Label title{*this, "Label4"};
    Label subtitle{*this, "Label3"};
    ChartControl quadrants{*this, "FusionCharts1"};
    Label leftRight{*this, "Label1"};
    Label handsFeet{*this, "Label2"};
    Label yinYang{*this, "Label5"};
    Label energyHeading{*this, "Label6"};
    TextBox energyLevel{*this, "Text1"};
    Label balanceHeading{*this, "Label7"};
    TextBox balancePercent{*this, "Text2"};
    Picture cross{*this, "Picture1"};
    Label crossLeft{*this, "Label8"};
    Label crossRight{*this, "Label9"};
    Label crossTop{*this, "Label10"};
    Label crossBottom{*this, "Label11"};
    Button back{*this, "Command4"};

    // Empty until the window was filled.
    std::optional<CrossMarker> marker;

    // Sets the chart type to 7 and draws the quadrant pie, which in a report is its picture.
    void load() override;
    void close() override;

private:
    EvaluationContext& context_;
    ReportPicture reportPicture_;
};

// Fills the window from a measurement's file before it shows.
void FillBalanceWindow(EvaluationContext& context, BalanceWindow& window,
                       const std::filesystem::path& path, std::string_view kindLetter);

// Fills the window from the selected measurement, calls `filled` and shows it; a filling that
// fails is passed over.
void showBalanceWindow(EvaluationContext& context, const Handler& filled = {});

} // namespace vorna
