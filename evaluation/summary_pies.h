// The three small pies of the summary windows: the quarters of the body, six meridians of one
// side and nature, and the means of the elements. Each draws into the control it is given.
#pragma once

#include "evaluation/evaluation_state.h"

#include <filesystem>
#include <string_view>

namespace vorna {

// Sets apmTherapyText to the language text of key "100".
void BuildQuadrantPie(EvaluationContext& context, const std::filesystem::path& path,
                      std::string_view kindLetter, ChartControl& control);

// `chartId` is 9 to 12: left yin, left yang, right yin, right yang.
void BuildSideElementPie(EvaluationContext& context, const std::filesystem::path& path,
                         std::string_view kindLetter, int chartId, ChartControl& control);

// Which elements a pie shows, by the number that the windows count them with.
enum class ElementPie { Yang = 1, Yin = 2, All = 3 };

// Blanks CurrentRecord: a recommendation for chart 3 that is opened afterwards sees zeros.
void BuildElementPie(EvaluationContext& context, const std::filesystem::path& path,
                     std::string_view kindLetter, ChartControl& control, ElementPie which);

} // namespace vorna
