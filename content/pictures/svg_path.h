// The path data of the atlas: absolute moves, lines, cubic curves and closings.
#pragma once

#include <QPainterPath>

#include <string_view>

namespace vorna {

// The shape of path data made of the commands M, L, C and Z, each with the numbers of one or more
// steps. Failure for any other command, for a number missing or too many, and for a shape that
// does not begin with M.
QPainterPath parseSvgPath(std::string_view data);

} // namespace vorna
