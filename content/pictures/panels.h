// Where the views of one picture stand beside each other.
#pragma once

#include "content/pictures/stage.h"

#include <vector>

namespace vorna {

// Equal columns over the whole room, each view as large as its column takes it.
std::vector<Stage> besideEachOther(const std::vector<const AtlasView*>& views, const QRectF& room);

// Tall views in columns of their own over the whole height, the others below each other in one or
// two columns beside them, as large as the room takes them, from its upper left corner on. In the
// order of the views.
std::vector<Stage> packed(const std::vector<const AtlasView*>& views, const QRectF& room);

// What the stages cover together.
QRectF covered(const std::vector<Stage>& stages);

} // namespace vorna
