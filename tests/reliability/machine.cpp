#include "tests/reliability/machine.h"

#include "core/file_names.h"
#include "core/reference_database.h"
#include "exchange/zip/zip_archive.h"
#include "tests/support/workplace.h"

#include <sqlite3.h>

#include <memory>

namespace vorna {
namespace {

// Makes the folders on the way, too.
void lay(const fs::path& file, std::string_view bytes) {
    fs::create_directories(file.parent_path());
    writeFileAtomically(file, bytes);
}

std::string document(const std::string& text) {
    return "{\\rtf1 " + text +
           "{\\pict\\pngblip\\picw1\\pich1 89504e470d0a1a0a0000000d49484452000000010000000108060000"
           "001f15c4890000000d49444154789c6360606060000000050001a5f645400000000049454e44ae426082}}";
}

void addClient(const Machine& machine, const std::string& surname, const std::string& intid) {
    Database(machine.dataRoot() / names::clients)
        .execute("insert into klienti (prijmeni, jmeno, narozeni, telefon, adresa, intid, zalozeni)"
                 " values (?, 'Jan', '01.02.1980', '1', 'Brno', ?, '31.1.2020 14:30:05')",
                 {surname, intid});
    const fs::path folder = machine.dataRoot() / names::data / intid;
    lay(folder / names::klientDat, "[global]\r\nprijmeni=" + surname + "\r\nintid=" + intid +
                                       "\r\njmeno=Jan\r\ntitulpred=\r\ntitulza=\r\nadresa=Brno"
                                       "\r\nstav=1\r\nemail=\r\ntelefon=1\r\npohlavi=0\r\n"
                                       "narozeni=01.02.1980\r\nrc=\r\nadresa2=\r\npovolani=\r\n"
                                       "telefon2=\r\nzalozeni=31.01.2020 14:30\r\n");
    lay(folder / names::anamnesis, document("history of " + surname));
    lay(folder / "D250101.rtf", document("recommendation for " + surname));
    lay(folder / ("250131143005_P_" + surname + "_Jan~Dvorak^T.daf"), std::string(300, 'v'));
}

struct CloseDatabase {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
};
struct FinishStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

// The rows of a query, their values joined by "|"; one row "?" more where it cannot be run to its
// end.
Rows rowsOf(sqlite3* database, const std::string& query) {
    sqlite3_stmt* made = nullptr;
    sqlite3_prepare_v2(database, query.c_str(), -1, &made, nullptr);
    const std::unique_ptr<sqlite3_stmt, FinishStatement> statement(made);
    Rows rows;
    int result = SQLITE_ERROR;
    while ((result = sqlite3_step(made)) == SQLITE_ROW) {
        std::string row;
        for (int i = 0; i < sqlite3_column_count(made); ++i) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(made, i));
            row.append(text == nullptr ? "null" : text).append("|");
        }
        rows.push_back(row);
    }
    if (result != SQLITE_DONE)
        rows.emplace_back("?");
    return rows;
}

// Empty for one that is damaged.
Tables tablesOf(const fs::path& file) {
    sqlite3* opened = nullptr;
    sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    const std::unique_ptr<sqlite3, CloseDatabase> database(opened);
    if (rowsOf(opened, "pragma integrity_check") != Rows{"ok|"})
        return {};
    Tables tables;
    for (std::string table :
         rowsOf(opened, "select name from sqlite_master where type = 'table'")) {
        table.pop_back();
        tables[table] = rowsOf(opened, "select * from \"" + table + "\"");
    }
    return tables;
}

// Most databases are met again and again; one with a journal is none yet.
void readDatabase(const fs::path& file, const std::string& name, MachineState& state) {
    static std::map<std::string, Tables> known;
    const bool settled = isMissing(file.string() + "-journal");
    const std::string bytes = settled ? readWholeFile(file) : "";
    const auto at = known.find(bytes);
    const Tables tables = settled && at != known.end() ? at->second : tablesOf(file);
    if (settled)
        known[bytes] = tables;
    if (tables.empty())
        state.damaged.push_back(name);
    state.databases[name] = tables;
}

Tree filesBelow(const fs::path& folder) {
    Tree tree;
    std::error_code error;
    for (fs::recursive_directory_iterator at(folder, error), end; !error && at != end; ++at)
        if (at->is_regular_file())
            tree[pathText(at->path()).substr(pathText(folder).size() + 1)] =
                readWholeFile(at->path());
    return tree;
}

void readArchive(const fs::path& file, const std::string& name, MachineState& state) {
    static std::map<std::string, Tree> known; // archives are met again and again, too
    const std::string bytes = readWholeFile(file);
    if (!known.contains(bytes)) {
        const ScratchFolder scratch;
        ZipArchive archive;
        if (archive.openArchive(file) == 1 && archive.extractAll(scratch / "in") > 0)
            known[bytes] = filesBelow(scratch / "in");
    }
    if (!known.contains(bytes))
        state.damaged.push_back(name);
    else
        state.archives[name] = known[bytes];
}

} // namespace

void install(const Machine& machine) {
    Workplace shipped;
    shipped.openReference();
    shipped.openClients();
    shipped.session.referenceDb.reset();
    shipped.session.clientDb.reset();
    const fs::path to = machine.installation();
    fs::create_directories(to);
    for (const std::string_view name : {names::referenceTcm, names::referenceApm})
        copyFileOver(shipped.session.dataRoot / names::referenceTcm, to / name);
    copyFileOver(shipped.session.dataRoot / names::clients, to / names::clients);
    lay(to / names::anamnesis, document("history"));
    lay(to / names::recommendation, document("recommendation"));
    lay(to / names::newk, "; nothing\r\n");
    lay(to / names::setup, "; settings\r\n[Global]\r\nJazyk=0\r\nModFunkce=1\r\nkoef=30\r\n");
    lay(to / names::user, "[Global]\r\nname=Dvorak\r\nkontakt=1\r\n");
    lay(to / names::data / "starter" / names::klientDat, "[global]\r\nprijmeni=Starter\r\n");
    lay(to / names::html / "css/text.css", "body {}\n");
    lay(to / names::html / "css/page.css", "table {}\n");
    for (const char* const number : {"1", "2"}) {
        lay(to / ("lang" + std::string(number) + ".ini"), "[other]\r\nT1=saved\r\n");
        lay(to / ("VORNAhelp" + std::string(number) + ".chm"), std::string(5000, *number));
    }
    fs::create_directories(machine.commonData());
    fs::create_directories(machine.archives());
}

void settleIn(const Machine& machine) {
    Program(machine).start();
    addClient(machine, "Adam", "a1");
    addClient(machine, "Novák", "a2");
}

Program::Program(const Machine& at)
    : machine(at), evaluation{.session = session,
                              .state = state,
                              .platform = seams.platform,
                              .windows = windows,
                              .clientList = window.clients.list,
                              .measurementList = window.measurements.list,
                              .recommend = {}},
      clients(clientContext(window, session, seams.platform)), exchange{.clients = clients,
                                                                        .makeArchive =
                                                                            makeZipArchive} {
    bindMainWindow(window, evaluation, [] {});
}

bool Program::start() {
    return startUp({machine.installation(), machine.commonData()}, session, window, seams.platform);
}

void Program::select(std::string_view intid) {
    const auto& rows = window.clients.list.unfinishedRows();
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (subItem(rows[i], ClientColumn::Intid) == intid)
            selectClientRow(window, static_cast<int>(i));
}

MachineState stateOf(const Machine& machine) {
    MachineState state;
    for (auto& [name, bytes] : filesBelow(machine.folder)) {
        const fs::path file = machine.folder / name;
        if (file.extension() == ".mdb")
            readDatabase(file, name, state);
        else if (file.extension() == ".zip")
            readArchive(file, name, state);
        else
            state.files[name] = bytes;
    }
    return state;
}

} // namespace vorna
