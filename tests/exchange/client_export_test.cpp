#include "exchange/client_export.h"
#include "exchange/zip/zip_archive.h"
#include "tests/exchange/exchange_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vorna {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::StartsWith;

constexpr const char* folderChooser = "folder:  | where to";

// What an archive holds.
Tree contentOf(const ExchangeDesk& desk, const std::string& archive) {
    const fs::path folder = desk.place.folder / "unpacked";
    ZipArchive reader;
    EXPECT_EQ(reader.openArchive(desk.place.folder / archive), 1) << reader.lastErrorText();
    EXPECT_GE(reader.extractAll(folder), 0) << reader.lastErrorText();
    const Tree tree = treeOf(folder);
    fs::remove_all(folder);
    return tree;
}

TEST(ClientExport, WhatACrashLeftHalfWrittenIsLeftOut) {
    ExchangeDesk desk;
    desk.addClient("Adam", "a1", {".vorna-4711.new~", ".own~", "x.daf"});
    desk.select(0);
    desk.seams.dialogs.paths = {desk.place.folder / "out", desk.place.folder / "out"};
    exportClient(desk.exchange);
    exportGroup(desk.exchange);
    for (const auto& [archive, prefix] :
         {std::pair{"out/Adam_Jan.zip", ""}, {"out/VornaExport.zip", "a1/"}}) {
        const Tree content = contentOf(desk, archive);
        EXPECT_FALSE(content.contains(prefix + std::string(".vorna-4711.new~"))) << archive;
        EXPECT_TRUE(content.contains(prefix + std::string(".own~"))) << archive;
    }
}

TEST(ClientExport, TheFolderOfTheSelectedClientGoesIntoAnArchiveOfItsName) {
    ExchangeDesk desk;
    desk.addClient("Novák", "a1");
    desk.addClient("Žižka", "a2", {"250131143005_P_Žižka_Jan~D^T.daf", "notes/x.txt"});
    const Tree before = treeOf(desk.place.session.dataRoot);
    desk.place.folder.write("VORNA/data/TEMPIMPORT/klient.dat", "left by an import");
    desk.place.folder.write("out/Žižka_Jan.zip", "an older export");
    desk.select(1);
    desk.seams.dialogs.paths = {desk.place.folder / "out"};
    const fs::path archive = exportClient(desk.exchange);
    EXPECT_EQ(archive, desk.place.folder / "out/Žižka_Jan.zip");
    EXPECT_THAT(desk.takeShown(),
                ElementsAre(folderChooser, "message: exported : " + pathText(archive)));
    EXPECT_EQ(contentOf(desk, "out/Žižka_Jan.zip"), treeOf(desk.folderOf("a2")));
    EXPECT_EQ(treeOf(desk.place.session.dataRoot), before) << "nothing else changes";
    EXPECT_EQ(desk.place.session.currentClientFolder, "a2");
    EXPECT_EQ(desk.tab.list.selected, 1);
}

TEST(ClientExport, AllClientsOrNobodySelectedIsTheWholeFolder) {
    ExchangeDesk desk;
    desk.addClient("Novák", "a1", {"D250101.rtf"});
    desk.addClient("Žižka", "a2");
    const Tree all = treeOf(desk.place.session.clientsFolder);
    desk.seams.dialogs.paths = {desk.place.folder / "out", desk.place.folder / "out"};
    exportGroup(desk.exchange);
    EXPECT_THAT(desk.takeShown(), ElementsAre(folderChooser, "message: all exported : " +
                                                                 pathText(desk.place.folder /
                                                                          "out/VornaExport.zip")));
    EXPECT_EQ(contentOf(desk, "out/VornaExport.zip"), all);
    exportClient(desk.exchange);
    EXPECT_EQ(contentOf(desk, "out/_.zip"), all);
}

TEST(ClientExport, NothingToAddIsSilentAndTheOlderArchiveIsGone) {
    ExchangeDesk desk;
    desk.place.folder.write("out/VornaExport.zip", "an older export");
    desk.seams.dialogs.paths = {desk.place.folder / "out"};
    EXPECT_EQ(exportGroup(desk.exchange), fs::path{});
    EXPECT_THAT(desk.takeShown(), ElementsAre(folderChooser));
    EXPECT_TRUE(fs::is_empty(desk.place.folder / "out"));
}

TEST(ClientExport, FailuresAreToldAndLeaveNothing) {
    struct Case {
        const char* rule;
        std::function<void(ExchangeDesk&)> damage;
        const char* told;
    };
    const Case cases[] = {
        {"the folder is gone",
         [](ExchangeDesk& desk) { fs::remove_all(desk.place.folder / "out"); },
         "cannot be written: it does not exist"},
        {"the client's folder is gone",
         [](ExchangeDesk& desk) { fs::remove_all(desk.folderOf("a1")); },
         "a1\" cannot be read: it does not exist"},
        {"the client's name leads elsewhere",
         [](ExchangeDesk& desk) {
             desk.place.folder.write("VORNA/x_Jan.zip", "another's");
             desk.tab.list.change(0, [](ListRow& row) { row.text = "../VORNA/x"; });
         },
         "\"../VORNA/x_Jan.zip\" cannot be a file's name"},
        {"the client's folder leads elsewhere",
         [](ExchangeDesk& desk) { desk.place.session.currentClientFolder = "../../out"; },
         "cannot be read"},
        {"an archive of the name cannot go",
         [](ExchangeDesk& desk) { desk.place.folder.write("out/Novák_Jan.zip/x", ""); },
         "Novák_Jan.zip\" cannot be written"},
    };
    for (const Case& c : cases) {
        ExchangeDesk desk;
        desk.addClient("Novák", "a1");
        desk.select(0);
        c.damage(desk);
        const Tree before = treeOf(desk.place.folder.path());
        desk.seams.dialogs.paths = {desk.place.folder / "out"};
        EXPECT_EQ(exportClient(desk.exchange), fs::path{}) << c.rule;
        EXPECT_THAT(desk.takeShown(), ElementsAre(folderChooser, AllOf(StartsWith("message: The "),
                                                                       HasSubstr(c.told))))
            << c.rule;
        EXPECT_EQ(treeOf(desk.place.folder.path()), before) << c.rule;
    }
}

TEST(ClientExport, ACancelledChooserLeavesTheRootOfTheFileSystem) {
    ExchangeDesk desk;
    desk.addClient("Novák", "a1");
    desk.select(0);
    {
        const FullDisk disk(0); // the root itself is left alone
        exportClient(desk.exchange);
    }
    EXPECT_THAT(
        desk.takeShown(),
        ElementsAre(folderChooser, StartsWith("message: The archive \"/Novák_Jan.zip\" cannot")));
}

TEST(ClientExport, ACancelledExportLeavesNoArchiveAndSaysNothing) {
    ExchangeDesk desk;
    desk.addClient("Novák", "a1", {"250131143005_P_N.daf", "D250101.rtf"});
    int calls = 0;
    Texts steps;
    for (fs::path archive; archive.empty() && calls < 100; ++calls) {
        CancelAfter progress(calls);
        desk.exchange.progress = &progress;
        desk.seams.dialogs.paths = {desk.place.folder / "out"};
        archive = exportGroup(desk.exchange);
        EXPECT_FALSE(progress.wrong);
        EXPECT_EQ(fs::is_empty(desk.place.folder / "out"), archive.empty());
        EXPECT_EQ(desk.takeShown().size(), archive.empty() ? 1U : 2U);
        steps = progress.steps;
    }
    EXPECT_GT(calls, 3);
    EXPECT_THAT(steps, IsSupersetOf({"0/0 a1", "0/3 250131143005_P_N.daf", "1/3 D250101.rtf",
                                     "3/3 klient.dat"}));
}

} // namespace
} // namespace vorna
