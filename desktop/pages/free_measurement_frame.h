// The frame of the free measurement: the probe's live value, readable from across the room.
#pragma once

#include "desktop/pages/pages.h"

namespace vorna {

QWidget* makeFreeMeasurementFrame(const PageParts& parts);

} // namespace vorna
