// What export and import share: what they work with, and the folder that an import unpacks into.
#pragma once

#include "clients/client_operations.h"
#include "exchange/work_progress.h"

#include <filesystem>

namespace vorna {

struct ExchangeContext {
    ClientContext& clients;
    WorkProgress* progress = nullptr; // null: nobody looks on, and the work runs to its end
};

// Among the clients' folders; each export and import removes it before its work.
std::filesystem::path importFolder(const Session& session);
void removeImportFolder(const Session& session);

} // namespace vorna
