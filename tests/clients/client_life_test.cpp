#include "clients/client_deletion.h"
#include "clients/client_record.h"
#include "tests/clients/client_desk.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

constexpr const char* noDate = "__.__.____";

// The card as one text.
std::string shown(const ClientCard& card) {
    std::string text;
    for (const CardValue& value : cardValues(card))
        text += value.text + "|";
    return text + cardValue(card, "pohlavi");
}

TEST(VratUnik, HoldsBothCountsOfSecondsAndTheLastSigns) {
    struct Case {
        const char* locale;
        const char* time;
        int milliseconds;
        const char* intid;
    };
    // 31 January 2025, 14:30:05: 791649005 seconds since 2000 and 52205 since midnight.
    const Case cases[] = {
        {"cs_CZ", "2025-01-31T14:30:05", 0, "a79170121005"},
        {"cs_CZ", "2025-01-31T14:30:05", 500, "a791701211,5"}, // halves to the even neighbour
        {"en_US", "2025-01-31T14:30:06", 500, "a791701212.5"}, // 52206.5 goes to 52206
        {"cs_CZ", "2025-01-31T14:30:05", 453, "a79170121045"}, // seven digits: 52205,45
        {"cs_CZ", "2025-01-31T00:00:05", 0, "a7915968105"},    // one digit alone
        {"cs_CZ", "1999-12-31T23:59:59", 0, "a8640099"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(vratUnik(localeByName(c.locale),
                           *parseTime(c.time) + std::chrono::milliseconds{c.milliseconds}),
                  c.intid);
}

TEST(ClientCard, ThePersonalNumberGivesBirthDateAndGenderInCzech) {
    struct Case {
        const char *rc, *born;
        int gender;
    };
    const Case cases[] = {
        {"785212/1234", "12.02.1978", 1}, {"045212/1234", "12.02.2004", 1},
        {"145212", "12.02.2014", 1},      {"155212", "12.02.1915", 1},
        {"786112", "12.11.1978", 1},      {"781131", "31.11.1978", 0},
        {"780101", "01.01.1978", 0},      {"782512", "__.19.78__", -1},
        {"78", "__.19.78__", -1},         {"x85212", "12.02.____", 1},
    };
    ClientDesk desk;
    for (const Case& c : cases) {
        desk.card.personalNumber.text = c.rc;
        fillFromPersonalNumber(desk.place.session, desk.card);
        EXPECT_EQ(desk.card.born.text.get(), c.born) << c.rc;
        EXPECT_EQ(desk.card.gender.index, c.gender) << c.rc;
    }
    desk.place.session.language = languageGerman;
    desk.card.personalNumber.text = "785212/1234";
    fillFromPersonalNumber(desk.place.session, desk.card);
    EXPECT_EQ(desk.card.gender.index, 1) << "left as it was";
    EXPECT_EQ(desk.card.born.text.get(), "12.02.____");
}

TEST(ClientCard, EnterGoesFromFieldToField) {
    ClientDesk desk;
    bindCardKeys(desk.window, desk.card);
    std::string way;
    desk.window.focusWatcher = [&](Control& control) { way += control.name() + " "; };
    const Control* at = &desk.card.surname;
    while (at->enterPressed) {
        call(at->enterPressed);
        at = desk.window.activeControl;
    }
    EXPECT_EQ(way, "Text2 Text3 Text6 Text8 Combo2 Text7 Text9 Text10 Text5 Text11 Text4 ");
}

TEST(ClientLife, FromNewToDeletedTheCopiesStayInStep) {
    ClientDesk desk(languageEnglish);
    newClient(desk.context);
    EXPECT_EQ(desk.tabs.selected, 1);
    EXPECT_FALSE(desk.card.anamnesis.visible);
    EXPECT_EQ(desk.card.founded.text.get(), "31.01.2025 14:30");
    const std::string intid = desk.card.intid.text;
    EXPECT_EQ(intid, "a79170121005");
    EXPECT_TRUE(fs::is_empty(desk.place.session.clientsFolder)) << "nothing is stored before";

    desk.card.surname.text = "Žáková";
    desk.card.firstName.text = "Šárka";
    desk.card.telephone.text = "\"+420\" 123";
    desk.card.born.type("01.02.1980");
    desk.card.gender.choose(1);
    desk.card.maritalStatus.choose(2);
    saveClient(desk.context);
    EXPECT_EQ(desk.seams.dialogs.shown, Texts{"notice: saved"});
    EXPECT_EQ(desk.column("Žáková", "zalozeni"), "31.1.2025 14:30:05");
    EXPECT_EQ(desk.klientDat("zalozeni"), "31.01.2025 14:30") << "no seconds";
    EXPECT_EQ(desk.klientDat("pohlavi"), "1");
    EXPECT_EQ(desk.klientDat("stav"), "2");
    EXPECT_EQ(desk.klientDat("telefon"), "\"+420\" 123");
    EXPECT_EQ(desk.klientDat("name"), "Dvořák") << "a copy of user.ini to begin with";
    EXPECT_EQ(desk.place.session.currentClientFolder, intid);
    EXPECT_TRUE(desk.card.anamnesis.visible);
    ASSERT_EQ(desk.tab.list.size(), 1U);
    EXPECT_EQ(desk.tab.list.row(0).tag, "1");
    EXPECT_EQ(desk.tab.list.row(0).sub,
              (Texts{"Šárka", "01.02.1980", "\"+420\" 123", "", "31.01.2025 14:30", intid}));

    searchClients(desk.context);
    EXPECT_EQ(shown(desk.card), std::string("|||||-1|||||||") + noDate + "|-1");
    EXPECT_EQ(desk.place.session.currentClientFolder, "");
    const std::string name = "250131143005_P_Z_S~D^T.daf";
    desk.place.folder.write("VORNA/data/" + intid + "/" + name, "");
    desk.place.folder.write("VORNA/data/" + intid + "/D250101.rtf", "");
    desk.place.folder.write("VORNA/data/" + intid + "/d250102.RTF", "");
    desk.select(0);
    EXPECT_EQ(shown(desk.card), "Žáková|Šárka||||2||\"+420\" 123|||||01.02.1980|1");
    EXPECT_EQ(desk.tabs.tabs()[1].caption, "Žáková Š.");
    EXPECT_TRUE(desk.tabs.tabs()[2].enabled);
    EXPECT_EQ(desk.measurements.list.row(0).tag, name);
    EXPECT_EQ(desk.measurements.documents.size(), 2U);

    desk.card.surname.text = "Nová";
    desk.card.gender.index = -1;
    saveClient(desk.context);
    EXPECT_EQ(desk.column("Nová", "intid"), intid);
    EXPECT_EQ(desk.klientDat("prijmeni"), "Nová");
    EXPECT_EQ(desk.klientDat("pohlavi"), "-1");
    EXPECT_EQ(desk.tab.list.row(0).text, "Nová");

    desk.place.folder.write("VORNA/data/" + intid + "/notes/inner.txt", "");
    desk.place.folder.write("VORNA/data/a2/klient.dat", "another client");
    deleteClient(desk.context);
    EXPECT_EQ(desk.seams.dialogs.shown.back(), "question: delete Nová Šárka?");
    EXPECT_TRUE(fs::exists(desk.folderOf(intid))) << "the answer was no";
    desk.seams.dialogs.answers = {true};
    deleteClient(desk.context);
    EXPECT_EQ(desk.seams.dialogs.shown.back(), "notice: deleted");
    EXPECT_FALSE(fs::exists(desk.folderOf(intid)));
    EXPECT_EQ(desk.column("Nová", "id"), "");
    EXPECT_EQ(desk.tab.list.size(), 0U);
    EXPECT_EQ(desk.tabs.tabs()[1].caption, "Karta");
    EXPECT_EQ(desk.place.session.currentClientFolder, intid) << "keeps its old value";
    EXPECT_TRUE(fs::exists(desk.folderOf("a2") / "klient.dat"));
    deleteClient(desk.context);
    EXPECT_EQ(desk.seams.dialogs.shown.back(), "notice: deleted") << "nothing is selected";
    saveClient(desk.context);
    EXPECT_FALSE(fs::exists(desk.folderOf(intid))) << "a save of the card brings nobody back";
}

TEST(ClientLife, ANewCardStaysNewUntilARowIsClicked) {
    ClientDesk desk;
    newClient(desk.context);
    desk.card.surname.text = "Novák";
    saveClient(desk.context);
    saveClient(desk.context);
    EXPECT_EQ(desk.column("Novák", "intid"), "a79170121005|a79170121005");
    EXPECT_EQ(desk.tab.list.size(), 2U);
    EXPECT_EQ(desk.tab.list.row(1).tag, "1") << "the first row of that name";
    searchClients(desk.context);
    EXPECT_TRUE(desk.place.session.newClientPending);
    EXPECT_EQ(desk.card.intid.text.get(), "a79170121005");
    desk.select(0);
    EXPECT_FALSE(desk.place.session.newClientPending);
}

TEST(ClientLife, WhatCannotBeStoredIsMissingAndTheRestIsWritten) {
    struct Case {
        const char* rule;
        std::function<void(ClientDesk&)> damage;
        bool row, file;
    };
    const Case cases[] = {
        {"an apostrophe breaks the statement",
         [](ClientDesk& desk) { desk.card.address.text = "O'Neil"; }, false, true},
        {"a doubled one does not", [](ClientDesk& desk) { desk.card.address.text = "O''Neil"; },
         true, true},
        {"the database is damaged",
         [](ClientDesk& desk) { desk.place.session.clientDb->executeScript("drop table klienti"); },
         false, true},
        {"the database is not open", [](ClientDesk& desk) { desk.place.session.clientDb.reset(); },
         false, true},
        {"another program holds the database",
         [](ClientDesk& desk) {
             static std::optional<Database> other;
             other.emplace(desk.place.session.dataRoot / names::clients);
             other->executeScript("begin exclusive");
         },
         false, true},
        {"a file stands in the folder's place",
         [](ClientDesk& desk) { desk.place.folder.write("VORNA/data/a79170121005", ""); }, true,
         false},
        {"there is no user.ini",
         [](ClientDesk& desk) { fs::remove(desk.place.session.dataRoot / names::user); }, true,
         true},
        {"long and broken text",
         [](ClientDesk& desk) {
             desk.card.address.text = std::string(10000, 'x') + "\r\n[global]\nintid=a2";
             desk.card.occupation.text = "Лекарь 医生";
         },
         true, true},
    };
    for (const Case& c : cases) {
        ClientDesk desk;
        newClient(desk.context);
        desk.card.surname.text = "Novák";
        c.damage(desk);
        saveClient(desk.context);
        EXPECT_EQ(desk.seams.dialogs.shown, Texts{"notice: saved"}) << c.rule;
        ASSERT_EQ(desk.tab.list.size(), 1U) << c.rule;
        EXPECT_EQ(desk.tab.list.row(0).tag, c.row ? "1" : "") << c.rule;
        EXPECT_EQ(desk.klientDat("prijmeni"), c.file ? "Novák" : "") << c.rule;
        EXPECT_EQ(desk.klientDat("intid"), c.file ? "a79170121005" : "") << c.rule;
        EXPECT_EQ(desk.klientDat("povolani"),
                  c.file ? desk.card.occupation.text.get() : std::string{})
            << c.rule;
        if (!c.row) {
            searchClients(desk.context);
            EXPECT_EQ(desk.tab.list.size(), 0U) << c.rule;
        }
    }
}

TEST(ClientLife, AClientsNameThatIsNoFolderNameTouchesNobody) {
    for (const char* const intid : {"../a2", "", "a2/../a3", "C:x"}) {
        ClientDesk desk;
        desk.place.folder.write("VORNA/a2/klient.dat", "[global]\nprijmeni=other\n");
        desk.place.folder.write("VORNA/data/a1/klient.dat", "[global]\nprijmeni=first\n");
        desk.place.addClient("Adam", "a1");
        desk.place.addClient("Zdeněk", intid);
        searchClients(desk.context);
        desk.select(0);
        desk.select(1);
        EXPECT_EQ(desk.card.surname.text.get(), "Zdeněk");
        saveClient(desk.context);
        desk.seams.dialogs.answers = {true};
        deleteClient(desk.context);
        EXPECT_EQ(desk.column("Zdeněk", "id"), "");
        EXPECT_EQ(readWholeFile(desk.folderOf("a1") / "klient.dat"), "[global]\nprijmeni=first\n");
        EXPECT_TRUE(fs::exists(desk.place.session.dataRoot / "a2/klient.dat"));
        EXPECT_TRUE(fs::is_directory(desk.place.session.clientsFolder));
    }
}

TEST(ClientLife, ABlankCardBelongsToNobody) {
    ClientDesk desk;
    desk.place.addClient("Adam", "a1");
    desk.place.useClient("a1");
    searchClients(desk.context);
    desk.select(0);
    searchClients(desk.context);
    saveClient(desk.context);
    EXPECT_EQ(desk.column("Adam", "intid"), "a1");
    EXPECT_TRUE(fs::is_empty(desk.folderOf("a1")));
    EXPECT_FALSE(fs::exists(desk.place.session.clientsFolder / "klient.dat"));
}

TEST(ClientLife, InCzechAClientWithoutANumberKeepsWhatTheCardShowed) {
    ClientDesk desk;
    for (const char* const name : {"Adam", "Bára"})
        desk.place.addClient(name, std::string("a") + name[0]);
    desk.place.session.clientDb->execute(
        "update klienti set rc = '785212/1234' where prijmeni = 'Adam'");
    desk.place.useClient("aB");
    searchClients(desk.context);
    desk.select(0);
    desk.select(1);
    EXPECT_EQ(desk.card.born.text.get(), "12.02.1978");
    EXPECT_EQ(desk.card.gender.index, 1);
    EXPECT_EQ(desk.card.telephone.text.get(), "1") << "all else is the client's own";
    saveClient(desk.context);
    EXPECT_EQ(desk.column("Bára", "narozeni"), "12.02.1978");
    EXPECT_EQ(desk.klientDat("pohlavi"), "1");
}

TEST(ClientLife, GenderAndStatusComeFromWhatIsThere) {
    struct Case {
        const char *file, *stav;
        int gender, status;
    };
    const Case cases[] = {
        {"", "2", 0, 2},
        {"pohlavi=1", "-1", 1, -1},
        {"pohlavi=-1", "0", -1, 0},
        {"pohlavi=7", "9", -1, -1},
        {"pohlavi=x", "", -1, -1},
    };
    for (const Case& c : cases) {
        ClientDesk desk(languageGerman);
        desk.card.gender.index = 1; // of the client before
        desk.card.maritalStatus.index = 3;
        desk.place.addClient("Adam", "a1");
        desk.place.session.clientDb->execute("update klienti set stav = ?", {std::string(c.stav)});
        desk.place.folder.write("VORNA/data/a1/klient.dat",
                                std::string("[global]\n") + c.file + "\n");
        searchClients(desk.context);
        desk.select(0);
        EXPECT_EQ(desk.card.gender.index, c.gender) << c.file;
        EXPECT_EQ(desk.card.maritalStatus.index, c.status) << c.stav;
        EXPECT_EQ(desk.card.born.text.get(), "01.02.1980");
    }
}

TEST(ClientDeletion, NothingOfTheClientStaysInBackupsAndReports) {
    ClientDesk desk;
    desk.place.addClient("Adam", "a1");
    desk.place.addClient("Bára", "a2");
    desk.place.addClient("Cyril", "c:3");
    for (const char* const client : {"a1", "a2"})
        for (const char* const root : {"VORNA/", "VORNA/backup/20250101-000000-import/"})
            desk.place.folder.write(root + std::string("data/") + client + "/250131143005_P_x.daf",
                                    "");
    const fs::path backup = desk.place.session.dataRoot / "backup/20250101-000000-import";
    fs::copy_file(desk.place.session.dataRoot / names::clients, backup / names::clients);
    desk.place.folder.write("VORNA/HTML/sestava.html", "Adam");
    desk.place.folder.write("VORNA/HTML/graf10.bmp", "");
    desk.place.folder.write("VORNA/HTML/.vorna-4711.new~", "half a page");
    desk.place.folder.write("VORNA/HTML/css/text.css", "");
    desk.place.folder.write("VORNA/data/TempImport/a1/klient.dat", "Adam");
    searchClients(desk.context);

    desk.select(1);
    desk.measurements.list.selected = 0;
    deleteMeasurement(desk.context);
    EXPECT_EQ(desk.seams.dialogs.shown,
              Texts{"question: Opravdu chcete odstranit měření: 31.01.2025 14:30 ?"});
    EXPECT_EQ(desk.measurements.list.size(), 1U);
    desk.seams.dialogs.answers = {true, true};
    deleteMeasurement(desk.context);
    EXPECT_EQ(desk.measurements.list.size(), 0U);
    EXPECT_TRUE(fs::is_empty(backup / "data/a2"));

    desk.select(0);
    deleteClient(desk.context);
    EXPECT_FALSE(fs::exists(backup / "data/a1"));
    EXPECT_FALSE(fs::exists(desk.place.session.clientsFolder / "TempImport"));
    EXPECT_TRUE(fs::exists(backup / "data/a2"));
    for (const fs::path& root : {desk.place.session.dataRoot, backup}) {
        EXPECT_EQ(readWholeFile(root / names::clients).find("Adam"), std::string::npos) << root;
        EXPECT_NE(readWholeFile(root / names::clients).find("Bára"), std::string::npos) << root;
    }
    desk.tab.list.selected = 1;
    desk.seams.dialogs.answers = {true};
    deleteClient(desk.context);
    EXPECT_EQ(readWholeFile(backup / names::clients).find("Cyril"), std::string::npos);
    EXPECT_FALSE(fs::exists(desk.place.session.dataRoot / "HTML/sestava.html"));
    EXPECT_FALSE(fs::exists(desk.place.session.dataRoot / "HTML/graf10.bmp"));
    EXPECT_FALSE(fs::exists(desk.place.session.dataRoot / "HTML/.vorna-4711.new~"));
    EXPECT_TRUE(fs::exists(desk.place.session.dataRoot / "HTML/css/text.css"));
}

TEST(ClientDeletion, AllDataGoAfterTwoQuestions) {
    ClientDesk desk;
    desk.place.addClient("Adam", "a1");
    desk.place.folder.write("VORNA/data/a1/notes/x.txt", "");
    desk.place.folder.write("VORNA/data/TEMPImport/klient.dat", "");
    desk.place.folder.write("VORNA/backup/20250101-000000-import/klienti.mdb", "");
    fs::create_directories(desk.place.folder / "elsewhere");
    desk.place.folder.write("elsewhere/kept.txt", "");
    fs::create_directory_symlink(desk.place.folder / "elsewhere", desk.folderOf("link"));
    searchClients(desk.context);
    for (const std::deque<bool>& answers : {std::deque<bool>{false}, {true, false}}) {
        desk.seams.dialogs.answers = answers;
        EXPECT_FALSE(deleteAllClients(desk.context));
        EXPECT_TRUE(fs::exists(desk.folderOf("a1")));
    }
    desk.seams.dialogs.answers = {true, true};
    EXPECT_TRUE(deleteAllClients(desk.context));
    EXPECT_EQ(desk.seams.dialogs.shown.size(), 6U);
    EXPECT_EQ(
        desk.seams.dialogs.shown[0],
        "question: Dojde k nevratnému smazání všech záznamů. Máte provedenou zálohu? | POZOR");
    EXPECT_TRUE(fs::is_empty(desk.place.session.clientsFolder));
    EXPECT_FALSE(fs::exists(desk.place.session.dataRoot / "backup"));
    EXPECT_TRUE(fs::exists(desk.place.folder / "elsewhere/kept.txt"));
    EXPECT_EQ(desk.tab.list.size(), 0U);
    searchClients(desk.context);
    EXPECT_EQ(desk.tab.list.size(), 0U);
}

TEST(ClientLife, AVisitIsNotedInEveryPlace) {
    ClientDesk desk;
    desk.place.addClient("Adam", "a1");
    desk.place.useClient("a1");
    searchClients(desk.context);
    desk.select(0);
    PridatPosledniNavstevu(desk.context);
    EXPECT_EQ(desk.column("Adam", "poslakce"), "31.1.2025 14:30:05");
    EXPECT_EQ(desk.klientDat("posledni"), "31.01.2025 14:30:05");
    EXPECT_EQ(desk.card.lastVisit.text.get(), "31.01.2025 14:30:05");
    EXPECT_EQ(subItem(desk.tab.list.row(0), ClientColumn::LastVisit), "31.01.2025 14:30:05");
}

} // namespace
} // namespace vorna
