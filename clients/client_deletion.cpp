#include "clients/client_deletion.h"

#include "clients/client_record.h"
#include "clients/import_folder.h"
#include "core/backup.h"
#include "core/file_names.h"
#include "core/main_tabs.h"
#include "platform/failure.h"
#include "platform/files.h"

#include <functional>

namespace vorna {
namespace {

void forgetReports(const Session& session) {
    const fs::path reports = under(session.dataRoot, names::html);
    for (const std::string_view pattern : names::reportLeavings)
        for (const std::string& name : listFiles(reports, pattern))
            removeTree(reports / name);
}

// Acts on the folder of every backup; a backup keeps its age, which its folder's time tells.
void inEveryBackup(const Session& session, const std::function<void(const fs::path&)>& action) {
    for (const fs::path& backup : allBackups(session.dataRoot)) {
        std::error_code error;
        const fs::file_time_type made = fs::last_write_time(backup, error);
        action(backup);
        fs::last_write_time(backup, made, error);
    }
}

// The client's folder and rows in every backup.
void forgetInBackups(const Session& session, const std::string& intid) {
    if (intid.empty())
        return;
    inEveryBackup(session, [&](const fs::path& backup) {
        if (!isForbiddenFileName(intid))
            removeTree(under(under(backup, names::data), intid));
        attempt([&] {
            Database(under(backup, names::clients))
                .execute("delete from klienti where intid = ? collate binary", {intid});
        });
    });
}

} // namespace

void deleteClient(ClientContext& context) {
    Session& session = context.session;
    const ListRow* const row = context.clients.list.selectedRow();
    if (row == nullptr)
        return;
    const std::string id = row->tag;
    const std::string intid(subItem(*row, ClientColumn::Intid));
    if (!context.platform.dialogs.question(t(session, "t19") + row->text + " " +
                                           std::string(subItem(*row, ClientColumn::FirstName)) +
                                           "?"))
        return;
    attempt([&] { removeTree(clientFolder(session, intid)); });
    removeImportFolder(session); // it may hold the client
    attempt([&] { deleteClientRow(session, id); });
    forgetInBackups(session, intid);
    forgetReports(session);
    attempt([&] {
        context.clients.list.remove(static_cast<std::size_t>(context.clients.list.selected.get()));
    });
    context.tabs.change(static_cast<std::size_t>(MainTab::Card),
                        [](Tab& tab) { tab.caption = "Karta"; });
    context.platform.dialogs.notice(t(session, "t20"));
}

namespace {

void deleteAllData(Session& session, const DeletionSteps& steps) {
    const fs::path backups = under(session.dataRoot, names::backup);
    const auto clients = listFiles(session.clientsFolder, "*.*");
    const auto kept = listFiles(backups, "*.*");
    const std::size_t total = clients.size() + kept.size();
    std::size_t done = 0;
    for (const std::string& name : clients) {
        removeTree(session.clientsFolder / name);
        steps(++done, total);
    }
    attempt([&] { clientDatabase(session).execute("delete from klienti where id <> 0"); });
    for (const std::string& name : kept) {
        removeTree(backups / name);
        steps(++done, total);
    }
    removeTree(backups);
    forgetReports(session);
}

} // namespace

bool deleteAllClients(ClientContext& context, const DeletionRun& run) {
    constexpr const char* title = "POZOR";
    Session& session = context.session;
    Dialogs& dialogs = context.platform.dialogs;
    if (!dialogs.question("Dojde k nevratnému smazání všech záznamů. Máte provedenou zálohu?",
                          title) ||
        !dialogs.question("Dojde k nevratnému smazání všech záznamů. Opravdu chcete tuto akci "
                          "dokončit?",
                          title))
        return false;
    const auto work = [&session](const DeletionSteps& steps) { deleteAllData(session, steps); };
    if (run)
        run(work);
    else
        work([](std::size_t, std::size_t) {});
    context.clients.list.clear();
    dialogs.message("Všechna data vymazána, nyní bude program ukončen. Pro pokračování je nutné ho "
                    "znovu spustit.");
    return true;
}

void deleteMeasurement(ClientContext& context) {
    Session& session = context.session;
    const ListRow* const row = context.measurements.list.selectedRow();
    if (row == nullptr)
        return;
    const std::string name = row->tag;
    if (!context.platform.dialogs.question("Opravdu chcete odstranit měření: " + row->text + " ?"))
        return;
    attempt([&] {
        std::error_code error; // what cannot be removed shows in the list again
        fs::remove(currentClientFile(session, name), error);
        inEveryBackup(session, [&](const fs::path& backup) {
            const fs::path folder = under(under(backup, names::data), session.currentClientFolder);
            fs::remove(under(folder, name), error);
        });
        forgetReports(session);
    });
    fillMeasurementList(session, context.measurements);
}

} // namespace vorna
