// Whether the leaders of a pie's labels keep clear of each other and of the pie.
#pragma once

#include "platform/qt/pie_chart.h"

#include <vector>

namespace vorna {

// The slices whose leaders should go, ascending: a leader that runs over the pie or another label,
// and of two that cross or come nearer than a line's width, the one of the thinner slice.
std::vector<std::size_t> entangledSlices(const PieLayout& layout);

} // namespace vorna
