// Chart 3: the 24 values as twelve organ pairs under the five elements, yin beside yang. The
// recommended solution starts from it: it keeps the measurement in CurrentRecord.
#pragma once

#include "evaluation/chart_window.h"
#include "evaluation/evaluation_state.h"

#include <filesystem>
#include <string_view>

namespace vorna {

// As the builders of charts 1 and 2; writes CurrentRecord besides.
void BuildElementChart(EvaluationContext& context, ChartWindow& window,
                       const std::filesystem::path& path, std::string_view kindLetter);

} // namespace vorna
