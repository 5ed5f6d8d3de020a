// The list of a client's measurements, made from the names of the files alone.
#pragma once

#include "core/session.h"
#include "core/window.h"

#include <vector>

namespace vorna {

// One row of the measurement list: date and time without seconds, then kind letter, practitioner
// and mode letter; the tag is the file's name.
ListRow measurementRow(std::string_view fileName);

// The measurements of the selected client, the newest on top; empty when there is no client.
std::vector<ListRow> measurementRows(const Session& session);

} // namespace vorna
