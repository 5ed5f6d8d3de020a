// The folder among the clients' folders that an import unpacks into. It holds whole clients while
// it is there, so that each export, import and deletion removes it.
#pragma once

#include "core/session.h"

#include <filesystem>

namespace vorna {

std::filesystem::path importFolder(const Session& session);
void removeImportFolder(const Session& session); // whatever the case of its name

} // namespace vorna
