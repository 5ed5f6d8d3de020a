#include "exchange/client_merge.h"

#include "acquisition/measurement_name.h"
#include "clients/client_record.h"
#include "core/file_names.h"
#include "core/main_tabs.h"
#include "core/number.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

#include <array>

namespace vorna {
namespace {

using namespace std::chrono_literals;

constexpr auto turnOfTheCard = 100ms; // what the card's own handlers get

// Longer than a client takes where time jumps, shorter than its notices take where it does not.
constexpr std::chrono::steady_clock::duration batchTime = 1s;

void showTab(ClientContext& clients, MainTab tab) {
    clients.tabs.select(static_cast<std::size_t>(tab));
}

void chooseByNumber(ComboBox& list, const std::string& number) {
    attempt([&] { list.choose(roundToInt32(numberOfDecimalText(number))); });
}

// The newest measurement's date and time without seconds; empty when there is none.
std::string lastVisit(const fs::path& folder) {
    const std::vector<std::string> names = listFiles(folder, names::measurementPattern);
    return names.empty() ? std::string{}
                         : std::string(withoutLastCharacters(vratdatum(names.back()), 3));
}

void takeFiles(const ComingClient& client, const std::vector<FileOnItsWay>& files) {
    for (const FileOnItsWay& file : files)
        attempt([&] { client.isTemporary ? moveFile(file) : copyFile(file); });
}

void rewriteKlientDat(const fs::path& folder, const ClientCard& card, const std::string& intid) {
    std::vector<IniValue> values{{"intid", intid}};
    for (const char* const key :
         {"prijmeni", "jmeno", "titulpred", "titulza", "adresa", "stav", "email", "telefon",
          "pohlavi", "narozeni", "rc", "adresa2", "povolani", "telefon2", "zalozeni"})
        values.push_back({key, cardValue(card, key)});
    WriteIniValues(under(folder, names::klientDat), "global", values);
}

} // namespace

ImportRun::ImportRun(ExchangeContext& context)
    : context_(context), backup_(context.clients.session, context.clients.platform.clock) {
    for (const std::string& name : listFiles(context.clients.session.clientsFolder, "*"))
        folders_.insert(foldCase(name));
}

ImportRun::~ImportRun() {
    endBatch();
}

void ImportRun::merge(const ComingClient& client, const std::optional<MatchedClient>& match) {
    const auto begun = std::chrono::steady_clock::now();
    beginCard(match.has_value());
    if (!match && !takeOwnIntid()) {
        skip({});
        return;
    }
    fillCard(client);
    if (match)
        overwrite(client, *match);
    else
        makeNew(client);
    batchNext(std::chrono::steady_clock::now() - begun);
}

void ImportRun::skip(const std::string& intid) {
    results.push_back({.intid = intid, .result = ImportResult::Skipped});
}

// A blank card of a new client. One that is to overwrite an existing client leaves the current
// client what it was.
void ImportRun::beginCard(bool matched) {
    Session& session = context_.clients.session;
    const std::string current = session.currentClientFolder;
    newClient(context_.clients);
    if (matched)
        session.currentClientFolder = current;
}

// An intid counts seconds and tells neither a clock that was set back nor noon from the midnight
// after it: a folder that is there already belongs to somebody else. False when no time brings
// another one.
bool ImportRun::takeOwnIntid() {
    constexpr int tries = 60;
    Platform& platform = context_.clients.platform;
    Property<std::string>& intid = context_.clients.card.intid.text;
    for (int i = 0; i < tries && isTaken(intid); ++i) {
        platform.loop.wait(1s);
        attempt([&] { intid = vratUnik(platform.locale, platform.clock.now()); });
    }
    const bool taken = isTaken(intid);
    folders_.insert(foldCase(intid.get()));
    return !taken;
}

// By the folders that were there at the beginning, whatever their case, and those that came since.
bool ImportRun::isTaken(const std::string& intid) const {
    return !intid.empty() && (folders_.contains(foldCase(intid)) ||
                              !isMissing(context_.clients.session.clientsFolder / intid));
}

void ImportRun::fillCard(const ComingClient& client) {
    ClientCard& card = context_.clients.card;
    for (const char* const key :
         {"prijmeni", "jmeno", "narozeni", "telefon", "email", "adresa", "adresa2", "povolani",
          "telefon2", "pohlavi", "stav", "titulpred", "titulza", "rc"}) {
        const std::string value = client.card.value(key);
        if (TextBox* const box = cardBox(card, key))
            box->text = value;
        else if (std::string_view(key) == "narozeni")
            card.born.type(value);
        else
            chooseByNumber(std::string_view(key) == "stav" ? card.maritalStatus : card.gender,
                           value);
    }
    card.lastVisit.text = lastVisit(client.source);
}

void ImportRun::makeNew(const ComingClient& client) {
    ClientContext& clients = context_.clients;
    Session& session = clients.session;
    EventLoop& loop = clients.platform.loop;
    loop.wait(turnOfTheCard);
    fillFromPersonalNumber(session, clients.card);
    loop.wait(turnOfTheCard);
    saveClient(clients);
    const std::string intid = clients.card.intid.text;
    attempt([&] {
        const fs::path folder = clientFolder(session, session.currentClientFolder);
        takeFiles(client, filesOnTheirWay(client.source, folder));
        WriteIniValue(under(folder, names::klientDat), "global", "intid", intid);
    });
    attempt([&] { nac_klientadb(clients); });
    showTab(clients, MainTab::Measurements);
    clients.platform.dialogs.notice(t(session, "t12"));
    results.push_back({.intid = intid, .result = ImportResult::New});
}

void ImportRun::overwrite(const ComingClient& client, const MatchedClient& match) {
    showTab(context_.clients, MainTab::Clients);
    const Session& session = context_.clients.session;
    Dialogs& dialogs = context_.clients.platform.dialogs;
    if (!attempt([&] { storeOver(client, match); })) {
        if (!refusalTold_)
            dialogs.message(t(session, "noBackup"));
        refusalTold_ = true;
        skip(match.intid);
        return;
    }
    dialogs.notice(t(session, "t12"));
    results.push_back({.intid = match.intid, .result = ImportResult::Overwritten});
}

// Failure when the backup cannot be made; then nothing has changed.
void ImportRun::storeOver(const ComingClient& client, const MatchedClient& match) {
    Session& session = context_.clients.session;
    const ClientCard& card = context_.clients.card;
    const fs::path folder = clientFolder(session, match.intid);
    const std::vector<FileOnItsWay> files = filesOnTheirWay(client.source, folder);
    std::vector<fs::path> replaced{under(folder, names::klientDat)};
    for (const FileOnItsWay& file : files)
        if (file.to != replaced.front())
            replaced.push_back(file.to);
    std::error_code error;
    std::erase_if(replaced, [&](const fs::path& path) {
        return isMissing(path) || fs::is_directory(path, error); // a folder is never replaced
    });
    if (!backup_.begun())
        endBatch(); // the table is copied as it stands in its file
    backup_.keep(match.intid, replaced);
    attempt([&] { updateClient(session, card, match.id); });
    attempt([&] { changeRow(match); });
    fs::create_directory(folder, error); // for a client whose folder was lost
    takeFiles(client, files);
    attempt([&] { rewriteKlientDat(folder, card, match.intid); });
    attempt([&] {
        context_.clients.clients.list.change(match.row, [&](ListRow& row) {
            setSubItem(row, ClientColumn::LastVisit, lastVisit(folder));
            row.finished = true;
        });
    });
}

void ImportRun::changeRow(const MatchedClient& match) {
    const ClientCard& card = context_.clients.card;
    context_.clients.clients.list.change(match.row, [&](ListRow& row) {
        row.text = card.surname.text;
        setSubItem(row, ClientColumn::FirstName, card.firstName.text);
        setSubItem(row, ClientColumn::Telephone, card.telephone.text);
        setSubItem(row, ClientColumn::Born, card.born.text);
    });
}

// Files first: a row never leads to a client whose files a crash has taken.
void ImportRun::endBatch() {
    flushFileSystem(context_.clients.session.clientsFolder);
    if (batch_)
        attempt([&] { batch_->commit(); });
    batch_.reset();
}

// Where a client takes no time but the disk's, the next ones are stored together, and no longer
// than for a moment: the table is locked meanwhile.
void ImportRun::batchNext(std::chrono::steady_clock::duration taken) {
    const auto now = std::chrono::steady_clock::now();
    if (batch_ && now - batchBegun_ < batchTime)
        return;
    endBatch();
    if (taken < batchTime)
        attempt([&] { batch_.emplace(clientDatabase(context_.clients.session)); });
    batchBegun_ = std::chrono::steady_clock::now();
}

} // namespace vorna
