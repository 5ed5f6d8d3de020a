#include "exchange/client_export.h"

#include "clients/client_record.h"
#include "clients/import_folder.h"
#include "exchange/archive.h"
#include "exchange/exchange_names.h"
#include "platform/failure.h"
#include "platform/files.h"

#include <functional>
#include <string>

namespace vorna {
namespace {

// The form of an export.
struct Export {
    std::string name; // of the archive
    std::function<fs::path()> source;
    const char* doneText; // the key of what tells the success
};

// Below the chosen folder; the root of the file system when none was chosen.
fs::path targetIn(const fs::path& folder, const std::string& name) {
    return (folder.empty() ? fs::path("/") : folder) / name;
}

fs::path run(ExchangeContext& context, const Export& form) {
    Session& session = context.clients.session;
    Dialogs& dialogs = context.clients.platform.dialogs;
    const std::unique_ptr<Archive> archive = archiveOf(context);
    if (!archive)
        return {};
    removeImportFolder(session);
    const fs::path chosen = dialogs.chooseFolder(t(session, "t9"));
    fs::path source;
    attempt([&] { source = form.source(); });
    if (source == session.clientsFolder && isImportUnderWay(session)) {
        dialogs.message(importUnderWayText(session));
        return {};
    }
    if (isForbiddenFileName(form.name)) { // it could lead to another folder
        dialogs.message("The name \"" + form.name + "\" cannot be a file's name.");
        return {};
    }
    const fs::path target = targetIn(chosen, form.name);
    std::error_code ignored; // what cannot be removed shows when the archive is written
    if (!fs::is_directory(fs::symlink_status(target, ignored)))
        fs::remove(target, ignored);
    archive->newArchive(target);
    const bool filled = archive->addFolder(source, true) != 0;
    if (filled && archive->entryCount() == 0)
        return {};
    const bool written = filled && archive->writeArchive() != 0;
    if (written)
        dialogs.message(t(session, form.doneText) + " : " + pathText(target));
    else if (!archive->cancelled())
        dialogs.message(archive->lastErrorText());
    return written ? target : fs::path{};
}

std::string archiveName(const ListRow* row) {
    const std::string surname = row == nullptr ? "" : row->text;
    const std::string firstName(row == nullptr ? "" : subItem(*row, ClientColumn::FirstName));
    return surname + "_" + firstName + std::string(names::archiveEnding);
}

} // namespace

fs::path exportClient(ExchangeContext& context) {
    const Session& session = context.clients.session;
    return run(context, {.name = archiveName(context.clients.clients.list.selectedRow()),
                         .source =
                             [&] {
                                 return session.currentClientFolder.empty()
                                            ? session.clientsFolder
                                            : clientFolder(session, session.currentClientFolder);
                             },
                         .doneText = "t10"});
}

fs::path exportGroup(ExchangeContext& context) {
    const Session& session = context.clients.session;
    return run(context, {.name = std::string(names::groupArchive),
                         .source = [&] { return session.clientsFolder; },
                         .doneText = "t139"});
}

} // namespace vorna
