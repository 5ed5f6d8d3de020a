// Charts 6 and 7, which judge the whole measurement instead of single meridians and end in an
// evaluation text. The balance chart compares three pairs of channel groups; the energy chart
// divides the channels into six energy groups and shows each one's deviation from the mean. Both
// read the values in slot order.
#pragma once

#include "evaluation/chart_window.h"
#include "evaluation/evaluation_state.h"

#include <filesystem>
#include <string_view>

namespace vorna {

// As the builders of charts 1 and 2, with an empty problem list; both write apmTherapyText.
void BuildBalanceChart(EvaluationContext& context, ChartWindow& window,
                       const std::filesystem::path& path, std::string_view kindLetter);
void BuildEnergyChart(EvaluationContext& context, ChartWindow& window,
                      const std::filesystem::path& path, std::string_view kindLetter);

// The kind as the whole-measurement charts and the balance window map it: P 1, T 2, all else 3.
std::int16_t wholeMeasurementKind(std::string_view kindLetter);

} // namespace vorna
