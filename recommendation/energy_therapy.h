// Energy therapy: the points that the element chart's problem on a pathway calls for, on the sides
// whose values call for it. The sides differ: the luo point on the lower side. Below or above the
// level of the measurement: what the rules of the reference database say of elements and pathways.
#pragma once

#include "evaluation/evaluation_state.h"
#include "recommendation/proposal.h"

#include <cstdint>
#include <string>

namespace vorna {

// Appends the proposals for problem 1, 2 or 3 (another number has none) on the pathway of the code
// `lecenaDraha`, which is widened to two characters. Rows come by rule, pathway and point, the
// left side before the right. Bounds are strict: a value at `odchylka` from the level is none.
// Failure for a code that is no number, and when problem 1 has no text. All else that fails is
// passed over: without a slot of the pathway, or with a koef of 0, nothing can be compared and no
// row is made.
void therapyEnergy(EvaluationContext& context, std::int16_t problem, std::string& lecenaDraha,
                   Proposals& proposals);

} // namespace vorna
