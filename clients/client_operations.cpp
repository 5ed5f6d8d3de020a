#include "clients/client_operations.h"

#include "clients/client_record.h"
#include "core/file_names.h"
#include "core/main_tabs.h"
#include "core/number.h"
#include "core/reference_database.h"
#include "core/settings_file.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

namespace vorna {
namespace {

// ---- Loading

void setTabCaption(TabStrip& tabs, MainTab tab, const std::string& caption) {
    tabs.change(static_cast<std::size_t>(tab), [&](Tab& one) { one.caption = caption; });
}

// Where the client's klient.dat lies; empty when its name is none that a folder can have, so that
// no write can reach the client that was current before.
void setKlientDatPath(Session& session, std::string_view intid) {
    session.klientDatPath.clear();
    attempt([&] { session.klientDatPath = under(clientFolder(session, intid), names::klientDat); });
}

// What has no value, or none that fits, is empty: a field must not keep the client before.
void loadRow(ClientContext& context, const Recordset& row) {
    ClientCard& card = context.card;
    for (const CardValue& value : cardValues(card))
        if (TextBox* const box = cardBox(card, value.column))
            box->text = row.textOrEmpty(value.column);
    setTabCaption(context.tabs, MainTab::Card,
                  row.textOrEmpty("prijmeni") + " " +
                      std::string(firstCharacters(row.textOrEmpty("jmeno"), 1)) + ".");
    card.maritalStatus.index = -1;
    attempt([&] {
        card.maritalStatus.choose(roundToInt32(numberOfDecimalText(row.textOrEmpty("stav"))));
    });
    card.founded.text = withoutSeconds(row.textOrEmpty("zalozeni"));
    card.intid.text = row.textOrEmpty("intid");
    if (context.session.language != languageCzech)
        card.born.type(row.textOrEmpty("narozeni"));
}

// A client without a gender in its file shows the first one.
void loadGender(const Session& session, ClientCard& card) {
    if (session.language == languageCzech)
        return;
    card.gender.index = -1;
    const std::string pohlavi = ReadIniValue(session.klientDatPath, "global", "pohlavi");
    attempt([&] {
        card.gender.choose(pohlavi.empty() ? 0 : roundToInt32(numberOfDecimalText(pohlavi)));
    });
}

void loadCard(ClientContext& context, const std::string& id) {
    Session& session = context.session;
    ClientCard& card = context.card;
    card.id.text = "";
    const bool loaded = attempt([&] {
        const Recordset row = queryClient(session, id);
        loadRow(context, row);
        card.id.text = id;
    });
    // A new client whose row could not be stored keeps what was typed; of anybody else the card
    // must not show the client before.
    if (!loaded && card.intid.text.get() != session.currentClientFolder) {
        clearCard(card);
        card.intid.text = "";
    }
    loadGender(session, card);
}

// ---- Saving

// Failure when the current client can have no file.
const std::filesystem::path& klientDat(const Session& session) {
    if (session.klientDatPath.empty())
        throw Failure("a client's file has no place");
    return session.klientDatPath;
}

void addListRow(ClientContext& context) {
    const ClientCard& card = context.card;
    ListRow row{.text = card.surname.text, .finished = true};
    attempt([&] { row.tag = decimalText(vratIdKlienta(context.session, card.intid.text.get())); });
    setSubItem(row, ClientColumn::FirstName, card.firstName.text);
    setSubItem(row, ClientColumn::Telephone, card.telephone.text);
    setSubItem(row, ClientColumn::LastVisit, card.lastVisit.text);
    setSubItem(row, ClientColumn::Founded, withoutSeconds(card.founded.text.get()));
    setSubItem(row, ClientColumn::Intid, card.intid.text);
    setSubItem(row, ClientColumn::Born, card.born.text);
    ListView& list = context.clients.list;
    list.add(std::move(row));
    list.selected = static_cast<int>(list.size()) - 1;
}

void storeNewClient(ClientContext& context) {
    Session& session = context.session;
    const Platform& platform = context.platform;
    attempt([&] {
        insertClient(session, context.card,
                     defaultDateTimeText(platform.locale, platform.clock.now()));
    });
    addListRow(context);
    session.currentClientFolder = context.card.intid.text;
    attempt([&] {
        std::error_code error; // the folder of a card that is saved again is there already
        std::filesystem::create_directory(clientFolder(session, session.currentClientFolder),
                                          error);
    });
    setKlientDatPath(session, session.currentClientFolder);
    attempt([&] { copyFileOver(under(session.dataRoot, names::user), klientDat(session)); });
}

void storeChanges(ClientContext& context) {
    const ClientCard& card = context.card;
    attempt([&] { updateClient(context.session, card, card.id.text.get()); });
    attempt([&] {
        if (card.id.text.get().empty())
            throw Failure("a card without a row changes none of the list");
        ListView& list = context.clients.list;
        list.change(static_cast<std::size_t>(list.selected.get()), [&](ListRow& row) {
            row.text = card.surname.text;
            setSubItem(row, ClientColumn::FirstName, card.firstName.text);
            setSubItem(row, ClientColumn::Telephone, card.telephone.text);
            setSubItem(row, ClientColumn::Born, card.born.text);
        });
    });
    setKlientDatPath(context.session, card.intid.text.get());
}

} // namespace

void searchClients(ClientContext& context) {
    fillClientList(context.session, context.clients);
    clearCard(context.card);
    // The card shows nobody now: a save must not reach the client that it showed before.
    if (!context.session.newClientPending) {
        context.card.id.text = "";
        context.card.intid.text = "";
    }
    context.session.currentClientFolder.clear();
}

void nac_klientadb(ClientContext& context) {
    Session& session = context.session;
    const ListRow* const row = context.clients.list.selectedRow();
    if (row == nullptr)
        throw Failure("no client is selected");
    session.newClientPending = false;
    session.currentClientFolder = subItem(*row, ClientColumn::Intid);
    context.clients.selectedIndex.caption =
        decimalText(std::int64_t{context.clients.list.selected});
    context.measurements.list.clear();
    context.measurements.documents.clear();
    setKlientDatPath(session, session.currentClientFolder);
    loadCard(context, row->tag);
    context.tabs.change(static_cast<std::size_t>(MainTab::Measurements),
                        [](Tab& tab) { tab.enabled = true; });
    context.card.anamnesis.visible = true;
    fillFromPersonalNumber(session, context.card);
    fillMeasurementList(session, context.measurements);
    fillDocumentList(session, context.measurements);
}

void newClient(ClientContext& context) {
    Session& session = context.session;
    session.newClientPending = true;
    clearCard(context.card);
    context.card.lastVisit.text = "";
    context.card.intid.text = ""; // when no new one can be made, not the one before
    session.currentClientFolder.clear();
    const LocalTime now = context.platform.clock.now();
    attempt([&] { context.card.intid.text = vratUnik(context.platform.locale, now); });
    context.card.founded.text = formatTime(now, "dd.MM.yyyy HH:mm");
    context.tabs.select(static_cast<std::size_t>(MainTab::Card));
    context.card.anamnesis.visible = false;
}

void saveClient(ClientContext& context) {
    if (context.session.newClientPending)
        storeNewClient(context);
    else
        storeChanges(context);
    attempt([&] { writeKlientDat(klientDat(context.session), context.card); });
    context.platform.dialogs.notice(t(context.session, "T1"));
    context.card.anamnesis.visible = true;
}

void PridatPosledniNavstevu(ClientContext& context) {
    Session& session = context.session;
    if (session.currentClientFolder.empty())
        return;
    const LocalTime now = context.platform.clock.now();
    attempt([&] {
        clientDatabase(session).execute("update klienti set poslakce = ? where intid = ?",
                                        {defaultDateTimeText(context.platform.locale, now),
                                         quotedText(session.currentClientFolder)});
    });
    const std::string visit = formatTime(now, "dd.MM.yyyy HH:mm:ss");
    attempt([&] {
        ListView& list = context.clients.list;
        list.change(static_cast<std::size_t>(list.selected.get()), [&](ListRow& row) {
            setSubItem(row, ClientColumn::LastVisit, visit);
            row.finished = true;
        });
    });
    context.card.lastVisit.text = visit;
    attempt([&] { WriteIniValue(klientDat(session), "global", "posledni", visit); });
}

} // namespace vorna
