#include "clients/client_deletion.h"
#include "clients/import_folder.h"
#include "exchange/client_import.h"
#include "tests/exchange/import_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vorna {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string zizka =
    zipOf({{.name = "klient.dat",
            .content = klientDatOf("\x8Ei\x9Eka", "Jan", // as older installations wrote it
                                   "titulpred=Ing.\r\nrc=785212/1234\r\nstav=2\r\npohlavi=0\r\n"
                                   "narozeni=01.02.1980\r\ntelefon=+420 1\r\nadresa2=Praha\r\n")},
           {.name = measurement, .content = "measured"},
           {.name = "D241224.rtf", .content = "{\\rtf1}"},
           {.name = "notes/x.txt", .content = "not of the folder itself"}});

// ---- A new client

TEST(ClientImport, ANewClientIsMadeByDrivingTheCard) {
    ImportDesk desk;
    desk.addClient("Adam", "a1");
    desk.select(0);
    Texts tabs;
    desk.tabs.tabChanged = [&] { tabs.push_back(std::to_string(desk.tabs.selected)); };
    const LocalTime begin = desk.seams.clock.now();
    EXPECT_THAT(desk.importOne(zizka), ElementsAre(firstIntid + std::string(" new")));
    EXPECT_EQ(desk.seams.clock.now() - begin, std::chrono::milliseconds{4200})
        << "two turns of the card and two notices";
    EXPECT_THAT(desk.takeShown(), ElementsAre(fileChooser, "notice: saved", "notice: imported"));
    EXPECT_THAT(tabs, ElementsAre("1", "2"));

    EXPECT_EQ(desk.column("Žižka", "intid"), firstIntid);
    EXPECT_EQ(desk.column("Žižka", "zalozeni"), "31.1.2025 14:30:05") << "made anew";
    EXPECT_EQ(desk.column("Žižka", "narozeni"), "12.02.1978") << "from the personal number";
    EXPECT_EQ(desk.column("Žižka", "adresa2 || stav || titulpred"), "Praha2Ing.");
    EXPECT_EQ(desk.namesOf(firstIntid), std::string(measurement) + ",D241224.rtf,klient.dat");
    EXPECT_EQ(desk.klientDatValue(firstIntid, "intid"), firstIntid);
    EXPECT_EQ(desk.klientDatValue(firstIntid, "zalozeni"), "1.1.2001 10:00") << "the archive's";
    EXPECT_EQ(desk.klientDatValue(firstIntid, "narozeni"), "01.02.1980") << "likewise";
    EXPECT_FALSE(desk.hasImportFolder());

    ASSERT_EQ(desk.tab.list.size(), 2U);
    EXPECT_EQ(desk.tab.list.selected, 1);
    EXPECT_EQ(subItem(desk.tab.list.row(1), ClientColumn::LastVisit), "24.12.2024 18:00");
    EXPECT_EQ(desk.card.surname.text.get(), "Žižka");
    EXPECT_EQ(desk.card.gender.index, 1);
    EXPECT_EQ(desk.place.session.currentClientFolder, firstIntid);
    EXPECT_FALSE(desk.place.session.newClientPending) << "reloaded";
    EXPECT_EQ(desk.measurements.list.size(), 1U);
    EXPECT_FALSE(fs::exists(desk.place.session.dataRoot / "backup")) << "nothing was replaced";
}

TEST(ClientImport, ATakenIntidIsWaitedOut) {
    ImportDesk desk;
    desk.addClient("Adam", firstIntid);
    desk.importOne(zizka);
    EXPECT_EQ(desk.column("Žižka", "intid"), "a79170121206") << "a second later";
    EXPECT_EQ(desk.klientDatValue(firstIntid, "prijmeni"), "Adam");
}

TEST(ClientImport, AClientWhomTheFilterHidesIsNew) {
    ImportDesk desk;
    desk.addClient("Žižka", "a1");
    desk.tab.filter.text = "Adam";
    searchClients(desk.context);
    desk.importOne(zizka);
    EXPECT_EQ(desk.column("Žižka", "intid"), std::string("a1|") + firstIntid);
}

// ---- An existing client

TEST(ClientImport, AnExistingClientIsOverwrittenAfterTheQuestionAndLiesInTheBackup) {
    ImportDesk desk(languageEnglish);
    desk.addClient("Adam", "a1");
    desk.addClient("ŽIŽKA", "a2",
                   {"250131143005_P_x.daf", "d241224.RTF", "notes/y.txt", "anamneza.rtf"});
    desk.place.session.clientDb->execute("update klienti set stav='1', titulza='CSc.'");
    const std::string klientDat = readWholeFile(desk.folderOf("a2") / "klient.dat");
    desk.select(0);
    const LocalTime begin = desk.seams.clock.now();

    EXPECT_THAT(desk.importOne(zizka), ElementsAre("a2 skipped"));
    EXPECT_THAT(desk.takeShown(), ElementsAre(fileChooser, "confirmation: again? Žižka Jan"));
    EXPECT_TRUE(desk.hasImportFolder()) << "the answer Cancel leaves it";
    EXPECT_EQ(readWholeFile(desk.folderOf("a2") / "klient.dat"), klientDat);
    EXPECT_EQ(desk.card.surname.text.get(), "Adam");

    EXPECT_THAT(desk.importOne(zizka, {true}), ElementsAre("a2 overwritten"));
    EXPECT_THAT(desk.takeShown(),
                ElementsAre(fileChooser, "confirmation: again? Žižka Jan", "notice: imported"));
    EXPECT_EQ(desk.seams.clock.now() - begin, std::chrono::milliseconds{2000});
    EXPECT_FALSE(desk.hasImportFolder());
    EXPECT_EQ(desk.tabs.selected, 0);
    EXPECT_EQ(desk.column("Žižka", "intid || stav || titulpred || titulza || narozeni || telefon"),
              "a22Ing.01.02.1980+420 1");
    EXPECT_EQ(desk.column("Žižka", "zalozeni"), "31.1.2025 14:30:05") << "the old one";
    EXPECT_EQ(desk.namesOf("a2"), std::string(measurement) +
                                      ",250131143005_P_x.daf,anamneza.rtf,d241224.RTF,"
                                      "klient.dat,notes");
    EXPECT_EQ(readWholeFile(desk.folderOf("a2") / "d241224.RTF"), "{\\rtf1}")
        << "one name, whatever its case";
    EXPECT_EQ(desk.klientDatValue("a2", "intid"), "a2");
    EXPECT_EQ(desk.klientDatValue("a2", "zalozeni"), "31.01.2025 14:30") << "of the import";
    EXPECT_EQ(desk.klientDatValue("a2", "pohlavi"), "0");
    const ListRow& row = desk.tab.list.row(1);
    EXPECT_EQ(row.text, "Žižka");
    EXPECT_EQ(row.sub,
              (Texts{"Jan", "01.02.1980", "+420 1", "31.01.2025 14:30", "31.1.2025 14:30", "a2"}))
        << "the newest measurement of both";
    EXPECT_EQ(desk.place.session.currentClientFolder, "a1") << "who was selected";
    EXPECT_TRUE(desk.place.session.newClientPending);

    const fs::path backup = desk.place.session.dataRoot / "backup/20250131-143005-import";
    EXPECT_EQ(treeOf(backup / "data"), (Tree{{"a2/", ""},
                                             {"a2/klient.dat", klientDat},
                                             {"a2/d241224.RTF", "d241224.RTF of ŽIŽKA"}}))
        << "what was replaced and no more";
    EXPECT_EQ(Database(backup / names::clients)
                  .query("select titulza from klienti where prijmeni = 'ŽIŽKA'")
                  .text("titulza"),
              "CSc.");
    desk.select(1);
    desk.seams.dialogs.answers = {true};
    deleteClient(desk.context);
    EXPECT_FALSE(fs::exists(backup / "data/a2")) << "who is deleted goes there too";
}

TEST(ClientImport, TheSameArchiveAgainChangesTheFoundingMomentAlone) {
    ImportDesk desk;
    desk.addClient("Adam", "a1");
    desk.importOne(zizka);
    desk.importOne(zizka, {true});
    desk.seams.loop.wait(std::chrono::hours{1});
    const auto state = [&] {
        Tree tree = treeOf(desk.folderOf(firstIntid));
        std::string& klientDat = tree.at("klient.dat");
        const std::size_t at = klientDat.find("zalozeni=");
        tree["founded"] = klientDat.substr(at, klientDat.find("\r\n", at) - at);
        klientDat.erase(at, tree["founded"].size());
        tree["row"] = desk.column("Žižka", "id || prijmeni || jmeno || narozeni || zalozeni ||"
                                           " rc || stav || telefon || adresa2 || intid");
        return tree;
    };
    const Tree before = state();
    EXPECT_THAT(desk.importOne(zizka, {true}), ElementsAre(HasSubstr("overwritten")));
    Tree after = state();
    EXPECT_EQ(before.at("founded"), "zalozeni=31.01.2025 14:30");
    EXPECT_EQ(std::exchange(after["founded"], before.at("founded")), "zalozeni=31.01.2025 15:30");
    EXPECT_EQ(after, before);
}

TEST(ClientImport, WithoutABackupNothingIsOverwritten) {
    ImportDesk desk;
    desk.addClient("Žižka", "a1", {measurement});
    desk.place.folder.write("VORNA/backup", "a file where the backups would lie");
    const Tree before = treeOf(desk.place.session.dataRoot);
    EXPECT_THAT(desk.importOne(zizka, {true}), ElementsAre("a1 skipped"));
    EXPECT_EQ(treeOf(desk.place.session.dataRoot), before);
    EXPECT_THAT(desk.takeShown(), ElementsAre(fileChooser, "confirmation: again? Žižka Jan",
                                              "message: not backed up"));
}

// ---- Which archive is which

TEST(ClientImport, WhatIsNoSuchArchiveChangesNobody) {
    const std::string group = zipOf({{.name = "a5/klient.dat", .content = klientDatOf("B", "J")}});
    struct Case {
        const char* rule;
        std::string bytes;
        bool many;
        const char* told;
        bool leavesFolder;
    };
    const Case cases[] = {
        {"a group's for one", group, false, "message: Toto není soubor individuálního exportu",
         true},
        {"no entries", zipOf({}), false, "message: Toto není soubor individuálního exportu", true},
        {"no entries", zipOf({}), true, "message: Toto není soubor hromadného exportu", true},
        {"one client's for a group's", zizka, true, nullptr, false},
        {"folders without a klient.dat", zipOf({{.name = "a/x.daf"}, {.name = "b/"}}), true,
         nullptr, false},
        {"a klient.dat beyond all measure",
         zipOf({{.name = "a/klient.dat", .content = std::string(300'000, ';')}}), true, nullptr,
         false},
        {"no archive", "x", true, "is no zip archive.", false},
        {"out of the folder", zipOf({{.name = "klient.dat"}, {.name = "../a1/klient.dat"}}), false,
         "leads out of the folder.", false},
    };
    for (const Case& c : cases) {
        ImportDesk desk;
        desk.addClient("Adam", "a1");
        desk.place.folder.write("VORNA/data/TempImport/klient.dat", klientDatOf("Stará", "Eva"));
        removeImportFolder(desk.place.session);
        const Tree before = treeOf(desk.place.session.dataRoot);
        EXPECT_THAT(c.many ? desk.importMany(c.bytes) : desk.importOne(c.bytes), IsEmpty())
            << c.rule;
        const Texts shown = desk.takeShown();
        ASSERT_EQ(shown.size(), c.told == nullptr ? 1U : 2U) << c.rule;
        EXPECT_THAT(shown.back(), HasSubstr(c.told == nullptr ? fileChooser : c.told)) << c.rule;
        EXPECT_EQ(desk.hasImportFolder(), c.leavesFolder) << c.rule;
        removeImportFolder(desk.place.session);
        EXPECT_EQ(treeOf(desk.place.session.dataRoot), before) << c.rule;
    }
    ImportDesk desk;
    EXPECT_TRUE(importClient(desk.exchange).empty()) << "the chooser was cancelled";
    EXPECT_THAT(desk.takeShown(), ElementsAre(fileChooser));
}

// ---- What harms nobody

TEST(ClientImport, AHostileKlientDatHarmsNobody) {
    struct Case {
        const char* rule;
        std::string content;
        bool stored;
    };
    std::string binary = "[global]\r\nprijmeni=";
    for (int c = 0; c < 256; ++c)
        binary += static_cast<char>(c);
    const Case cases[] = {
        {"statements in the values",
         klientDatOf("x'); drop table klienti; --", "' or '1'='1",
                     "rc=1'' where 1=1; --\r\nstav=1; delete from klienti\r\n"),
         false},
        {"doubled apostrophes", klientDatOf("O''Hara", "Jan''; drop table klienti; --"), true},
        {"paths in the values",
         klientDatOf("../../x", "..\\..\\y", "intid=..\\..\\a1\r\nadresa=/etc/passwd\r\n"), true},
        {"binary", binary, true},
        {"numbers that are none",
         klientDatOf("X", "Y", "stav=99999999999999999999\r\npohlavi=-7\r\nnarozeni=\x01\x02\r\n"),
         true},
        {"endless values", klientDatOf(std::string(100'000, 'x'), "Y"), true},
        {"no section", "prijmeni=x", true},
        {"UTF-16", std::string("\xFF\xFE[\0g\0l\0", 8), true},
        {"nothing", "", true},
    };
    for (const Case& c : cases) {
        ImportDesk desk;
        desk.addClient("Adam", "a1", {measurement});
        const Tree before = treeOf(desk.folderOf("a1"));
        EXPECT_THAT(desk.importOne(zipOf({{.name = "klient.dat", .content = c.content},
                                          {.name = "x.daf", .content = "x"}})),
                    ElementsAre(firstIntid + std::string(" new")))
            << c.rule;
        EXPECT_EQ(treeOf(desk.folderOf("a1")), before) << c.rule;
        EXPECT_EQ(desk.column("Adam", "jmeno"), "Jan") << c.rule;
        EXPECT_EQ(
            desk.place.session.clientDb->query("select count(*) as n from klienti").number("n"),
            c.stored ? 2 : 1)
            << c.rule << ": a lonely apostrophe breaks the statement";
        EXPECT_EQ(desk.namesOf(firstIntid), "klient.dat,x.daf") << c.rule;
        EXPECT_EQ(listFiles(desk.place.session.clientsFolder, "*").size(), 2U) << c.rule;
    }
}

TEST(ClientImport, AnApostropheBreaksTheOverwritingStatementAlone) {
    ImportDesk desk;
    desk.addClient("Adam", "a1");
    EXPECT_THAT(desk.importOne(zipOf({{.name = "klient.dat",
                                       .content = klientDatOf("Adam", "Jan", "adresa=O'Neil")}}),
                               {true}),
                ElementsAre("a1 overwritten"));
    EXPECT_EQ(desk.column("Adam", "coalesce(adresa, 'as it was')"), "as it was");
    EXPECT_EQ(desk.klientDatValue("a1", "adresa"), "O'Neil");
}

TEST(ClientImport, AFullDiskLosesNothing) {
    for (const unsigned long room : {0UL, 500UL, 5'000UL, 9'000UL, 30'000UL}) {
        ImportDesk desk;
        desk.addClient("Žižka", "a1", {measurement, "anamneza.rtf"});
        const Tree before = treeOf(desk.folderOf("a1"));
        desk.offer(zizka, {true});
        {
            const FullDisk disk(room);
            importClient(desk.exchange);
        }
        const Tree after = treeOf(desk.folderOf("a1"));
        for (const auto& [name, content] : before) {
            const fs::path kept =
                desk.place.session.dataRoot / "backup/20250131-143005-import/data/a1" / name;
            EXPECT_TRUE(
                after.contains(name) &&
                (after.at(name) == content || (fs::exists(kept) && readWholeFile(kept) == content)))
                << name << " with room for " << room;
        }
        EXPECT_EQ(desk.column("Žižka", "jmeno"), "Jan") << room;
    }
}

} // namespace
} // namespace vorna
