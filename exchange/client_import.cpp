#include "exchange/client_import.h"

#include "clients/import_folder.h"
#include "exchange/archive.h"
#include "exchange/exchange_names.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/folder_hold.h"
#include "platform/text.h"

#include <algorithm>
#include <functional>

namespace vorna {
namespace {

using Work = WorkProgress::Work;

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

char asciiCapital(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// Whether the text in capitals is `capitals`. Most rows of a long list differ in their first
// letters, which costs no look into the alphabets.
bool hasCapitals(std::string_view text, std::string_view capitals) {
    std::size_t at = 0;
    for (; at < text.size() && isAscii(text[at]); ++at)
        if (at >= capitals.size() || asciiCapital(text[at]) != capitals[at])
            return false;
    return at == text.size() ? at == capitals.size() : upperCase(text) == capitals;
}

// The rows of a name in the list.
class NameSearch {
public:
    NameSearch(const ListView& list, std::string_view prijmeni, std::string_view jmeno)
        : rows_(list.unfinishedRows()), surname_(upperCase(prijmeni)),
          firstName_(upperCase(jmeno)) {}

    [[nodiscard]] std::optional<std::size_t> from(std::size_t row) const {
        for (; row < rows_.size(); ++row)
            if (hasCapitals(rows_[row].text, surname_) &&
                hasCapitals(subItem(rows_[row], ClientColumn::FirstName), firstName_))
                return row;
        return std::nullopt;
    }

private:
    const std::vector<ListRow>& rows_;
    std::string surname_;
    std::string firstName_;
};

// ---- Archives

// What was unpacked, while this import works on it.
struct UnpackedArchive {
    fs::path folder;
    std::optional<FolderHold> hold;

    void remove(const Session& session) {
        hold.reset();
        removeImportFolder(session);
    }
};

// Makes the folder, which must be nobody else's.
std::optional<UnpackedArchive> takeImportFolder(const Session& session, Dialogs& dialogs) {
    removeImportFolder(session);
    UnpackedArchive unpacked{.folder = importFolder(session)};
    std::error_code error; // shows when it is unpacked into
    fs::create_directory(unpacked.folder, error);
    unpacked.hold.emplace(unpacked.folder);
    if (!unpacked.hold->refused())
        return unpacked;
    dialogs.message(importUnderWayText(session));
    return std::nullopt;
}

// What the archive of the user's choice was unpacked to; nothing when there was no choice or no
// archive, which was told.
std::optional<UnpackedArchive> unpackChosenArchive(ExchangeContext& context) {
    const Session& session = context.clients.session;
    Dialogs& dialogs = context.clients.platform.dialogs;
    const fs::path file = dialogs.chooseFile({}, t(session, "t11") + " (*.zip)|*.zip");
    if (file.empty())
        return std::nullopt;
    const std::unique_ptr<Archive> archive = archiveOf(context);
    if (!archive)
        return std::nullopt;
    if (archive->openArchive(file) == 1) {
        std::optional<UnpackedArchive> unpacked = takeImportFolder(session, dialogs);
        if (!unpacked || archive->extractAll(unpacked->folder) >= 0)
            return unpacked;
        unpacked->remove(session);
    }
    if (!archive->cancelled())
        dialogs.message(archive->lastErrorText());
    return std::nullopt;
}

std::string fullName(const KlientDat& card) {
    return card.value("prijmeni") + " " + card.value("jmeno");
}

std::string existsQuestion(const Session& session, const KlientDat& card) {
    return t(session, "t133") + fullName(card);
}

std::optional<MatchedClient> matchOf(const ListView& list, const KlientDat& card) {
    const std::optional<std::size_t> at =
        matchClient(list, card.value("prijmeni"), card.value("jmeno"));
    if (!at)
        return std::nullopt;
    const ListRow& row = list.unfinishedRows()[*at];
    return MatchedClient{
        .row = *at, .id = row.tag, .intid = std::string(subItem(row, ClientColumn::Intid))};
}

// Merges a client unless the user, asked by one of the boxes, does not want an existing one
// overwritten; false then.
bool mergeAfterQuestion(ImportRun& run, const ComingClient& client,
                        bool (Dialogs::*ask)(const std::string&, const std::string&)) {
    ClientContext& clients = run.context().clients;
    Dialogs& dialogs = clients.platform.dialogs;
    const std::optional<MatchedClient> match = matchOf(clients.clients.list, client.card);
    if (match && !(dialogs.*ask)(existsQuestion(clients.session, client.card), {})) {
        run.skip(match->intid);
        return false;
    }
    run.merge(client, match);
    return true;
}

// Tells which client is next; false when the user has cancelled the work.
bool goesOn(const ExchangeContext& context, const ComingClient& client, std::size_t done,
            std::size_t total) {
    const std::string name = fullName(client.card);
    return context.progress == nullptr ||
           context.progress->goesOn(
               {.work = Work::Importing, .done = done, .total = total, .name = name});
}

ComingClient clientIn(const fs::path& folder, bool isTemporary) {
    return {.source = folder, .card = KlientDat(folder), .isTemporary = isTemporary};
}

std::vector<fs::path> subFolders(const fs::path& folder) {
    std::vector<fs::path> folders;
    std::error_code error;
    for (const std::string& name : listFiles(folder, "*.*"))
        if (fs::is_directory(fs::symlink_status(folder / name, error)))
            folders.push_back(folder / name);
    return folders;
}

// The clients in the folders below a folder, one by one, until the user cancels the work.
void eachClient(const ExchangeContext& context, const fs::path& folder, bool isTemporary,
                const std::function<void(const ComingClient&)>& act) {
    const std::vector<fs::path> klist = subFolders(folder);
    for (std::size_t i = 0; i < klist.size(); ++i) {
        const ComingClient client = clientIn(klist[i], isTemporary);
        if (!goesOn(context, client, i, klist.size()))
            return;
        act(client);
    }
}

// ---- Folders

// The row because of which the client of a folder is not to be added.
std::optional<std::size_t> refusingRow(const ClientContext& clients, const KlientDat& card) {
    const NameSearch search(clients.clients.list, card.value("prijmeni"), card.value("jmeno"));
    const bool isNameless = card.value("jmeno") + " " + card.value("prijmeni") == " ";
    for (auto row = search.from(0); row; row = search.from(*row + 1))
        if (isNameless || !clients.platform.dialogs.question(existsQuestion(clients.session, card)))
            return row;
    return std::nullopt;
}

void addUnlessRefused(ImportRun& run, const ComingClient& client) {
    const ClientContext& clients = run.context().clients;
    if (const std::optional<std::size_t> row = refusingRow(clients, client.card))
        run.skip(
            std::string(subItem(clients.clients.list.unfinishedRows()[*row], ClientColumn::Intid)));
    else
        run.merge(client, std::nullopt);
}

} // namespace

std::optional<std::size_t> matchClient(const ListView& list, std::string_view prijmeni,
                                       std::string_view jmeno) {
    return NameSearch(list, prijmeni, jmeno).from(0);
}

ImportedClients importClient(ExchangeContext& context) {
    std::optional<UnpackedArchive> unpacked = unpackChosenArchive(context);
    if (!unpacked)
        return {};
    const ComingClient client = clientIn(unpacked->folder, true);
    if (!client.card.exists()) {
        context.clients.platform.dialogs.message("Toto není soubor individuálního exportu");
        return {};
    }
    ImportRun run(context);
    if (!goesOn(context, client, 0, 1) || mergeAfterQuestion(run, client, &Dialogs::confirmation))
        unpacked->remove(context.clients.session);
    return run.results;
}

ImportedClients importGroup(ExchangeContext& context) {
    std::optional<UnpackedArchive> unpacked = unpackChosenArchive(context);
    if (!unpacked)
        return {};
    if (listFiles(unpacked->folder, "*.*").empty()) {
        context.clients.platform.dialogs.message("Toto není soubor hromadného exportu");
        return {};
    }
    ImportRun run(context);
    eachClient(context, unpacked->folder, true, [&](const ComingClient& client) {
        if (client.card.exists())
            mergeAfterQuestion(run, client, &Dialogs::question);
    });
    unpacked->remove(context.clients.session);
    return run.results;
}

ImportedClients vlozK(ExchangeContext& context, const fs::path& folder) {
    if (folder.empty())
        return {};
    ImportRun run(context);
    addUnlessRefused(run, clientIn(folder, false));
    return run.results;
}

ImportedClients importFolders(ExchangeContext& context) {
    ClientContext& clients = context.clients;
    const fs::path chosen = clients.platform.dialogs.chooseFolder(t(clients.session, "t134"));
    if (chosen.empty())
        return {};
    ImportRun run(context);
    eachClient(context, chosen, false,
               [&](const ComingClient& client) { addUnlessRefused(run, client); });
    return run.results;
}

} // namespace vorna
