#include "clients/import_folder.h"

#include "core/file_names.h"
#include "platform/files.h"

namespace vorna {

std::filesystem::path importFolder(const Session& session) {
    return under(session.clientsFolder, names::importFolder);
}

void removeImportFolder(const Session& session) {
    for (const std::string& name : listFiles(session.clientsFolder, names::importFolder))
        removeTree(session.clientsFolder / name);
}

} // namespace vorna
