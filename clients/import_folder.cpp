#include "clients/import_folder.h"

#include "core/file_names.h"
#include "platform/files.h"
#include "platform/folder_hold.h"

namespace vorna {

std::filesystem::path importFolder(const Session& session) {
    return under(session.clientsFolder, names::importFolder);
}

bool isImportUnderWay(const Session& session) {
    return isHeld(importFolder(session));
}

std::string importUnderWayText(const Session& session) {
    return "The folder \"" + pathText(importFolder(session)) +
           "\" is in use: another program imports clients.";
}

void removeImportFolder(const Session& session) {
    for (const std::string& name : listFiles(session.clientsFolder, names::importFolder))
        if (!isHeld(session.clientsFolder / name))
            removeTree(session.clientsFolder / name);
}

} // namespace vorna
