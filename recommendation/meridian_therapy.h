// Meridian therapy: for each proposal that the reference database has for a problem, the point of
// its kind on the pathway, or the point paired with it.
#pragma once

#include "evaluation/evaluation_state.h"
#include "recommendation/proposal.h"

#include <cstdint>

namespace vorna {

// Appends one row for each proposal of the problem, in the table's order, for the pathway at slot
// `meridian` (1 to 24; above 12 is the right side) of the measured set. Failure at the first
// proposal that finds no point or text, and when there is none at all: the rows made so far stay.
void therapyMeridian(EvaluationContext& context, std::int16_t pkproblem, std::int16_t meridian,
                     Proposals& proposals);

} // namespace vorna
