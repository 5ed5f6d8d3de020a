// What both therapies make of a problem: rows of the list of proposed points.
//
//   text        what to do there
//   sub-item 1  the point's label, and the side where it has one
//   sub-item 2  a reason or caution; empty when there is none
//   sub-item 3  the code of the pathway whose picture belongs to the row
//   sub-item 4  the name of that pathway
//   tag         the point's key directly followed by the side's digit
#pragma once

#include "core/session.h"
#include "core/window.h"

#include <string>
#include <string_view>
#include <vector>

namespace vorna {

inline constexpr std::size_t pointLabelColumn = 1;
inline constexpr std::size_t additionalTextColumn = 2;
inline constexpr std::size_t proposalMeridianColumn = 3;
inline constexpr std::size_t meridianNameColumn = 4;

using Proposals = std::vector<ListRow>;

// The side of the slots 1 to 12 and that of 13 to 24: its word on a label and its digit in a tag.
enum class TreatedSide { Left, Right };

inline std::string sideLabel(const Session& session, TreatedSide side) {
    return t(session, side == TreatedSide::Left ? "t42" : "t43");
}

inline char sideDigit(TreatedSide side) {
    return side == TreatedSide::Left ? '0' : '1';
}

} // namespace vorna
