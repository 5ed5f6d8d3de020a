// The chart buttons: a press evaluates the selected measurement with one builder and shows the
// window that holds the result.
#pragma once

#include "evaluation/evaluation_state.h"

namespace vorna {

inline constexpr int chartButtonCount = 7;

// The press of button n, 0 to 6; any other number does nothing. Without a selected measurement
// nothing happens. `listIsActive` tells that the measurement list is the window's active control:
// a press then is never part of a report.
void pressChartButton(EvaluationContext& context, int button, bool listIsActive);

} // namespace vorna
