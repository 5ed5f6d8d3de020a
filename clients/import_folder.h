// The folder among the clients' folders that an import unpacks into. It holds whole clients while
// it is there, so that each export, import and deletion removes it; but not while the import of
// another program works in it.
#pragma once

#include "core/session.h"

#include <filesystem>
#include <string>

namespace vorna {

std::filesystem::path importFolder(const Session& session);
// Whether an import works in it, of this program or another; and what is told then.
bool isImportUnderWay(const Session& session);
std::string importUnderWayText(const Session& session);
void removeImportFolder(const Session& session); // whatever the case of its name

} // namespace vorna
