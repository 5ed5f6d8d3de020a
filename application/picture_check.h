// Holds the pictures of an installation against what is looked up: every point, meridian, place of
// a set and teaching picture of both modes, by the patterns of the lookups.
#pragma once

#include "core/session.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vorna {

// Appends the faults of the mode's folder, one line each: a picture that is missing, cut short or
// of no sensible size (each side 300 to 4000 pixels). Needs the session's mode folder and reference
// database.
void checkPictures(Session& session, std::vector<std::string>& faults);

} // namespace vorna
