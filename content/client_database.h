// The client database as it is laid down: its table, and no client.
#pragma once

#include "platform/files.h"

namespace vorna {

// Makes the file from the statements of `script`, or replaces it when the new one is whole.
// Failure with file and line when a statement does not run.
void makeClientDatabase(const fs::path& script, const fs::path& file);

} // namespace vorna
