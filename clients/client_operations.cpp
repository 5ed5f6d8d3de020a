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
    attempt([&] { session.klientDatPath = clientFolder(session, intid) / names::klientDat; });
}

// A column without a value reads as empty: the field must not keep the client before.
std::string columnText(const Recordset& row, std::string_view column) {
    return row.isNull(column) ? std::string{} : row.text(column);
}

void loadRow(ClientContext& context, const Recordset& row) {
    ClientCard& card = context.card;
    for (const CardValue& value : cardValues(card))
        if (TextBox* const box = cardBox(card, value.column))
            attempt([&] { box->text = columnText(row, value.column); });
    attempt([&] {
        const std::string firstName = columnText(row, "jmeno");
        setTabCaption(context.tabs, MainTab::Card,
                      columnText(row, "prijmeni") + " " +
                          std::string(firstCharacters(firstName, 1)) + ".");
    });
    attempt([&] {
        card.maritalStatus.choose(roundToInt32(numberOfDecimalText(columnText(row, "stav"))));
    });
    attempt([&] { card.founded.text = withoutSeconds(columnText(row, "zalozeni")); });
    attempt([&] { card.intid.text = columnText(row, "intid"); });
    if (context.session.language != languageCzech)
        attempt([&] { card.born.type(columnText(row, "narozeni")); });
}

// A client without a gender in its file shows the first one.
void loadGender(const Session& session, ClientCard& card) {
    if (session.language == languageCzech)
        return;
    const std::string pohlavi = ReadIniValue(session.klientDatPath, "global", "pohlavi");
    attempt([&] {
        card.gender.choose(pohlavi.empty() ? 0 : roundToInt32(numberOfDecimalText(pohlavi)));
    });
}

void loadCard(ClientContext& context, const std::string& id) {
    context.card.id.text = id;
    const bool loaded = attempt([&] {
        const Recordset row = clientDatabase(context.session)
                                  .query("select * from klienti where id = ?",
                                         {std::int64_t{roundToInt32(numberOfDecimalText(id))}});
        row.requireRow();
        loadRow(context, row);
    });
    if (!loaded) { // not the client before under this one's name
        clearCard(context.card);
        context.card.id.text = "";
        context.card.intid.text = "";
    }
    loadGender(context.session, context.card);
}

// ---- Saving

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
    attempt([&] {
        if (session.klientDatPath.empty())
            throw Failure("a client's file has no place");
        copyFileOver(under(session.dataRoot, names::user), session.klientDatPath);
    });
}

void storeChanges(ClientContext& context) {
    const ClientCard& card = context.card;
    attempt([&] { updateClient(context.session, card, card.id.text.get()); });
    attempt([&] {
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
    writeKlientDat(context.session.klientDatPath, context.card);
    context.platform.dialogs.notice(t(context.session, "T1"));
    context.card.anamnesis.visible = true;
}

void PridatPosledniNavstevu(ClientContext& context) {
    Session& session = context.session;
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
    attempt([&] {
        if (session.klientDatPath.empty())
            throw Failure("a client's file has no place");
        WriteIniValue(session.klientDatPath, "global", "posledni", visit);
    });
}

} // namespace vorna
