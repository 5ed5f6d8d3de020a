// Charts 1 and 2: all 24 values as columns, one for each meridian and side, with the mean, the
// band and the list of problems. Chart 1 contrasts the two sides of the body, chart 2 two groups
// of six meridians.
#pragma once

#include "evaluation/chart_window.h"
#include "evaluation/evaluation_state.h"

#include <filesystem>
#include <string_view>

namespace vorna {

// Both fill the chart control and the problem list of the window from the measurement's file. What
// fails on the way is passed over statement by statement.
void BuildMeridianChartSides(EvaluationContext& context, ChartWindow& window,
                             const std::filesystem::path& path, std::string_view kindLetter);
void BuildMeridianChartGroups(EvaluationContext& context, ChartWindow& window,
                              const std::filesystem::path& path, std::string_view kindLetter);

} // namespace vorna
