// Database files made from nothing, which replace an older file only when they are whole.
#pragma once

#include "platform/database.h"
#include "platform/files.h"

#include <functional>

namespace vorna {

// Makes a database beside `file`, fills it in one transaction, packs it and renames it over
// `file`. The same content gives the same bytes. After a Failure the older file stands.
void makeDatabaseFile(const fs::path& file, const std::function<void(Database&)>& fill);

} // namespace vorna
