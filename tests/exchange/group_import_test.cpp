#include "clients/client_record.h"
#include "exchange/client_import.h"
#include "tests/exchange/import_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vorna {
namespace {

using testing::ElementsAre;
using testing::IsSupersetOf;

// ---- Groups

TEST(GroupImport, EveryClientGetsAFolderOfItsOwnAndAnAnswerOfItsOwn) {
    ImportDesk desk;
    desk.addClient("Bára", "a1");
    desk.addClient("Cyril", "a2");
    const std::string group =
        zipOf({{.name = "b9/klient.dat", .content = klientDatOf("Nová", "Eva")},
               {.name = "b1/KLIENT.DAT", .content = klientDatOf("BÁRA", "jan", "rc=b\r\n")},
               {.name = "b2/klient.dat", .content = klientDatOf("Cyril", "Jan", "rc=c\r\n")},
               {.name = "b3/x.daf", .content = "no client"},
               {.name = "b4/klient.dat", .content = klientDatOf("Dan", "Jan")},
               {.name = "b4/" + std::string(measurement), .content = "Dan's"},
               {.name = "b5/klient.dat", .content = klientDatOf("DAN", "JAN")},
               {.name = "b6/klient.dat", .content = klientDatOf("Emil", "Jan")}});
    EXPECT_THAT(desk.importMany(group, {false, true, false}),
                ElementsAre("a1 skipped", "a2 overwritten", "a79170121407 new",
                            "a79170121407 skipped", "a791701222,2 new", "a791701230,4 new"));
    EXPECT_THAT(desk.takeShown(),
                ElementsAre(fileChooser, "question: again? BÁRA jan", "question: again? Cyril Jan",
                            "notice: imported", "notice: saved", "notice: imported",
                            "question: again? DAN JAN", "notice: saved", "notice: imported",
                            "notice: saved", "notice: imported"));
    EXPECT_EQ(desk.column("Bára", "coalesce(rc, '')"), "");
    EXPECT_EQ(desk.column("Cyril", "rc"), "c");
    EXPECT_EQ(desk.namesOf("a79170121407"), std::string(measurement) + ",klient.dat");
    EXPECT_FALSE(desk.hasImportFolder());
    const std::vector<fs::path> backups = {desk.place.session.dataRoot /
                                           "backup/20250131-143005-import"};
    EXPECT_TRUE(fs::exists(backups[0] / "data/a2/klient.dat"));
    EXPECT_FALSE(fs::exists(backups[0] / "data/a1"));
}

// Names and texts in Windows-1250, folders parted by backslashes, measurements without practitioner
// and mode.
TEST(GroupImport, AnArchiveOfAnOlderInstallationComesInWhole) {
    const std::string name = "\xD8"
                             "eho\xF8 \x8Ei\x9Eka"; // Řehoř Žižka
    ImportDesk desk;
    desk.importMany(zipOf({{.name = "a1\\klient.dat", .content = klientDatOf(name, "\x8A\xE1rka")},
                           {.name = "a1\\070131143005_P_" + name + ".daf", .content = "first"},
                           {.name = "a1\\080131143005_T_" + name + ".daf", .content = "last"}}));
    EXPECT_EQ(desk.column("Řehoř Žižka", "jmeno || intid"), std::string("Šárka") + firstIntid);
    EXPECT_EQ(desk.namesOf(firstIntid), "070131143005_P_Řehoř Žižka.daf,"
                                        "080131143005_T_Řehoř Žižka.daf,klient.dat");
    EXPECT_EQ(subItem(desk.tab.list.row(0), ClientColumn::LastVisit), "31.01.2008 14:30");
    ASSERT_EQ(desk.measurements.list.size(), 2U);
    EXPECT_EQ(desk.measurements.list.row(0).sub, (Texts{"T", "", "A"}));
    EXPECT_EQ(readWholeFile(desk.folderOf(firstIntid) / "080131143005_T_Řehoř Žižka.daf"), "last");
}

TEST(GroupImport, OneBackupHoldsWhatAllClientsWere) {
    ImportDesk desk;
    std::vector<ZipEntry> entries;
    for (int i = 0; i < 15; ++i) {
        const std::string name = "K" + std::to_string(i);
        desk.addClient(name, "a" + std::to_string(i));
        entries.push_back({.name = name + "/klient.dat", .content = klientDatOf(name, "Jan")});
    }
    EXPECT_EQ(desk.importMany(zipOf(entries), std::deque<bool>(15, true)).size(), 15U);
    const fs::path backups = desk.place.session.dataRoot / "backup";
    ASSERT_EQ(listFiles(backups, "*").size(), 1U);
    EXPECT_EQ(listFiles(backups / "20250131-143005-import" / "data", "*").size(), 15U);
}

TEST(GroupImport, ACancelledOneLeavesWholeClients) {
    std::vector<ZipEntry> entries;
    for (int i = 0; i < 4; ++i) {
        const std::string name = "K" + std::to_string(i);
        entries.push_back({.name = name + "/" + measurement, .content = name});
        entries.push_back({.name = name + "/klient.dat", .content = klientDatOf(name, "Jan")});
    }
    std::size_t most = 0;
    Texts steps;
    for (int calls = 0; calls < 14; ++calls) {
        ImportDesk desk;
        CancelAfter progress(calls);
        desk.exchange.progress = &progress;
        const Texts clients = desk.importMany(zipOf(entries));
        EXPECT_FALSE(progress.wrong);
        EXPECT_EQ(desk.tab.list.size(), clients.size());
        EXPECT_EQ(listFiles(desk.place.session.clientsFolder, "*").size(), clients.size());
        for (const std::string& client : clients)
            EXPECT_EQ(desk.namesOf(client.substr(0, client.find(' '))),
                      std::string(measurement) + ",klient.dat");
        EXPECT_EQ(desk.takeShown().size(), 1 + 2 * clients.size()) << "a wish is not told";
        EXPECT_GE(clients.size(), most);
        most = clients.size();
        steps = progress.steps;
    }
    EXPECT_EQ(most, 4U);
    EXPECT_THAT(steps, IsSupersetOf({"1/8 K0/klient.dat", "0/4 K0 Jan", "3/4 K3 Jan"}));
}

// ---- Folders

TEST(FolderImport, EachFolderBecomesANewClientUnlessTheAnswerIsNo) {
    ImportDesk desk;
    desk.addClient("Adam", "a1");
    desk.addClient("Adam", "a2");
    desk.place.addClient("", "a3");
    desk.place.session.clientDb->execute("update klienti set jmeno='' where intid='a3'");
    searchClients(desk.context);
    const auto come = [&](const std::string& name, const std::string& content) {
        desk.place.folder.write("from/" + name, content);
    };
    come("1/klient.dat", klientDatOf("adam", "JAN"));
    come("1/x.daf", "x");
    come("1/deeper/y", "");
    come("2/klient.dat", klientDatOf("Bára", "Eva"));
    come("3/x.daf", "no klient.dat, and there is a client without a name");
    come("a file", "");
    const Tree before = treeOf(desk.place.folder / "from");

    EXPECT_TRUE(vlozK(desk.exchange, {}).empty());
    desk.seams.dialogs.paths = {desk.place.folder / "from"};
    desk.seams.dialogs.answers = {true, false};
    EXPECT_THAT(told(importFolders(desk.exchange)),
                ElementsAre("a2 skipped", firstIntid + std::string(" new"), "a3 skipped"));
    EXPECT_THAT(desk.takeShown(),
                ElementsAre("folder:  | from where", "question: again? adam JAN",
                            "question: again? adam JAN", "notice: saved", "notice: imported"));
    desk.seams.dialogs.answers = {true, true};
    EXPECT_THAT(told(vlozK(desk.exchange, desk.place.folder / "from/1")),
                ElementsAre("a791701218,2 new"));
    EXPECT_EQ(desk.column("adam", "intid"), "a791701218,2") << "another client of the name";
    EXPECT_EQ(desk.namesOf("a791701218,2"), "klient.dat,x.daf");
    EXPECT_EQ(treeOf(desk.place.folder / "from"), before) << "the folders stay as they are";
}

// ---- There and back

Tree clientsOf(ExchangeDesk& desk) {
    Tree clients;
    Recordset rows = desk.place.session.clientDb->query(
        "select *, prijmeni || jmeno || narozeni || stav as facts from klienti");
    for (; !rows.atEnd(); rows.moveNext()) {
        clients[rows.text("prijmeni")] = rows.text("facts");
        for (const auto& [name, content] : treeOf(desk.folderOf(rows.text("intid"))))
            if (name != "klient.dat") // holds the intid and the moment of the import
                clients[rows.text("prijmeni") + "/" + name] = content;
    }
    return clients;
}

TEST(RoundTrip, WhatLeavesOneInstallationComesIntoAnother) {
    ImportDesk from(languageEnglish);
    for (const auto* const name : {"Žižka", "Čapek", "Лекарь", "O''Hara"}) {
        newClient(from.context);
        from.card.surname.text = name;
        from.card.firstName.text = "Jan";
        from.card.born.type("01.02.1980");
        from.card.maritalStatus.choose(3);
        saveClient(from.context);
        from.place.folder.write("VORNA/data/" + from.place.session.currentClientFolder +
                                    "/250131143005_P_" + name + "_Jan~Dvořák^T.daf",
                                std::string(300, '\x7F'));
        from.place.folder.write(
            "VORNA/data/" + from.place.session.currentClientFolder + "/anamneza.rtf", name);
    }
    from.seams.dialogs.paths = {from.place.folder / "out"};
    const fs::path archive = exportGroup(from.exchange);
    const Tree clients = clientsOf(from);
    ASSERT_EQ(clients.size(), 12U);

    ImportDesk to(languageEnglish);
    for (const ImportResult result : {ImportResult::New, ImportResult::Overwritten}) {
        to.seams.dialogs.paths = {archive};
        to.seams.dialogs.answers = std::deque<bool>(4, true);
        const ImportedClients came = importGroup(to.exchange);
        ASSERT_EQ(came.size(), 4U);
        for (const ImportedClient& client : came)
            EXPECT_EQ(client.result, result);
        EXPECT_EQ(clientsOf(to), clients);
    }
}

} // namespace
} // namespace vorna
