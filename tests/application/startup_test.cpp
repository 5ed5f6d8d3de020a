#include "application/startup.h"
#include "core/file_names.h"
#include "core/reference_database.h"
#include "core/settings_file.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/test_installation.h"
#include "tests/support/test_platform.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vorna {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

constexpr std::string_view copiedFiles[] = {
    names::referenceApm,   names::referenceTcm, names::clients, names::anamnesis,
    names::recommendation, names::newk,         names::setup,   names::user};

// One start of the program.
struct Process {
    Session session;
    MainWindow window;
    bool firstRun = false;
};

// A machine with an installation that never ran.
class StartupTest : public ::testing::Test {
protected:
    StartupTest() { copyInstallation(folders.appFolder); }

    std::unique_ptr<Process> start() {
        auto run = std::make_unique<Process>();
        run->firstRun = startUp(folders, run->session, run->window, seams.platform);
        return run;
    }
    // Starts with one setting in place of the shipped one.
    std::unique_ptr<Process> startWith(std::string_view key, std::string_view value) {
        WriteIniValue(dataRoot / names::setup, "Global", key, value);
        return start();
    }
    [[nodiscard]] Texts backups() const { return listFiles(dataRoot / names::backup, "*"); }

    ScratchFolder folder;
    StartupFolders folders{folder / "installation", folder / "data"};
    fs::path dataRoot = folders.commonData / names::dataRoot;
    TestPlatform seams;
};

TEST_F(StartupTest, TheFirstRunCopiesTheInstallationAndMovesItsStarterFoldersAside) {
    writeFileAtomically(folders.appFolder / names::data / "starter", "x");
    const auto run = start();
    EXPECT_TRUE(run->firstRun);
    for (const std::string_view name : copiedFiles)
        EXPECT_TRUE(fs::is_regular_file(dataRoot / name)) << name;
    EXPECT_EQ(readWholeFile(dataRoot / names::anamnesis),
              readWholeFile(folders.appFolder / names::anamnesis));
    EXPECT_TRUE(fs::exists(dataRoot / names::data / "starter"));
    EXPECT_TRUE(fs::exists(dataRoot / names::html / "css" / "text.css"));
    EXPECT_TRUE(fs::is_directory(dataRoot / names::log));
    EXPECT_FALSE(fs::exists(folders.appFolder / names::data));
    EXPECT_FALSE(fs::exists(folders.appFolder / names::html));
    EXPECT_TRUE(fs::exists(folders.appFolder / names::dataMovedAside / "starter"));
    EXPECT_TRUE(fs::is_directory(folders.appFolder / names::htmlMovedAside));
    EXPECT_EQ(backups(), Texts{}) << "there was nothing to lay aside";
    EXPECT_EQ(seams.dialogs.shown, Texts{});
}

TEST_F(StartupTest, ASessionBeginsWithTheClientListAndNoClient) {
    const auto run = start();
    const Session& session = run->session;
    const MainWindow& window = run->window;
    EXPECT_EQ(window.caption(), "VORNA - TCM");
    EXPECT_EQ(session.language, languageCzech) << "the user's";
    EXPECT_EQ(ReadIniValue(dataRoot / names::setup, "Global", "Jazyk"), "1");
    EXPECT_EQ(session.dataRoot, dataRoot);
    EXPECT_EQ(session.clientsFolder, dataRoot / names::data);
    EXPECT_EQ(session.currentClientFolder, "");
    EXPECT_FALSE(session.newClientPending);
    const std::vector<Tab>& tabs = window.tabs.tabs();
    EXPECT_EQ(window.tabs.selected, 0);
    EXPECT_EQ(tabs[0].caption, "Klienti");
    EXPECT_EQ(tabs[5].caption, "Nastavení");
    EXPECT_FALSE(tabs[2].enabled);
    EXPECT_FALSE(tabs[3].visible);
    EXPECT_EQ(
        window.clients.list.headers.get(),
        (Texts{"Příjmení", "Jméno", "Datum narození", "Telefon", "Poslední návštěva", "Založen"}));
    EXPECT_EQ(window.card.gender.rows.get(), (Texts{"muž", "žena"}));
    EXPECT_EQ(window.chartLabels.at(6)->caption.get(), "ENERGETICKÉ OKRUHY");
    EXPECT_EQ(window.print.charts.at(6)->caption.get(), "ENERGETICKÉ OKRUHY");
    EXPECT_EQ(window.chartLabels.at(4)->caption.get(), "PRVKY V KRUHU");
}

TEST_F(StartupTest, TheSecondStartKeepsEverything) {
    start();
    writeFileAtomically(dataRoot / names::anamnesis, "mine");
    WriteIniValue(dataRoot / names::user, "Global", "name", "Dvořák");
    Database(dataRoot / names::clients)
        .execute("insert into klienti (prijmeni, intid) values ('Nováková', 'a1')");
    const auto run = start();
    EXPECT_FALSE(run->firstRun);
    EXPECT_EQ(readWholeFile(dataRoot / names::anamnesis), "mine");
    EXPECT_EQ(run->session.userName, "Dvořák");
    EXPECT_EQ(run->window.practitionerName.text.get(), "Dvořák");
    ASSERT_EQ(run->window.clients.list.rows().size(), 1U);
    EXPECT_EQ(run->window.clients.list.rows()[0].text, "Nováková");
    EXPECT_EQ(backups(), Texts{});
}

TEST_F(StartupTest, ADeletedReportFolderIsAFirstRunAgainAndAgain) {
    start();
    writeFileAtomically(dataRoot / names::anamnesis, "mine");
    fs::create_directories(dataRoot / names::data / "a1");
    fs::remove_all(dataRoot / names::html);
    EXPECT_TRUE(start()->firstRun);
    EXPECT_EQ(readWholeFile(dataRoot / names::anamnesis),
              readWholeFile(folders.appFolder / names::anamnesis));
    EXPECT_TRUE(fs::exists(dataRoot / names::data / "a1")) << "the starter folder is gone";
    EXPECT_FALSE(fs::exists(dataRoot / names::html));
    seams.loop.wait(1h);
    EXPECT_TRUE(start()->firstRun);
    EXPECT_EQ(backups(), (Texts{"20250131-143005-first-run", "20250131-153005-first-run"}));
    const fs::path backup = dataRoot / names::backup / "20250131-143005-first-run";
    EXPECT_EQ(readWholeFile(backup / names::anamnesis), "mine");
    EXPECT_EQ(listFiles(backup, "*").size(), std::size(copiedFiles));
    EXPECT_EQ(seams.dialogs.shown, Texts{}) << "the missing starter folders are passed over";
}

// A first run that is cut off, or that the disk has no room for, goes on at the next start, which
// overwrites nothing; without a mark of it, what is missing stays so.
TEST_F(StartupTest, AnUnfinishedFirstRunIsFinishedByTheNextStart) {
    writeFileAtomically(folders.appFolder / names::data / "starter", "x");
    start();
    EXPECT_FALSE(fs::exists(dataRoot / names::unfinishedFirstRun));
    writeFileAtomically(dataRoot / names::anamnesis, "mine");
    for (const std::string_view name : {names::clients, names::newk})
        fs::remove(dataRoot / name);
    for (const std::string_view name : {names::data, names::html})
        fs::remove_all(dataRoot / name);
    fs::create_directories(dataRoot / names::html);
    EXPECT_FALSE(start()->session.clientDb) << "not a first run's doing";
    EXPECT_FALSE(fs::exists(dataRoot / names::html / "css"));

    createEmptyFile(dataRoot / names::unfinishedFirstRun);
    fs::remove_all(dataRoot / names::html); // where it was cut off does not matter
    const auto run = start();
    EXPECT_FALSE(run->firstRun);
    EXPECT_TRUE(run->session.clientDb);
    EXPECT_TRUE(fs::exists(dataRoot / names::newk));
    EXPECT_TRUE(fs::exists(dataRoot / names::data / "starter")) << "from where it was moved to";
    EXPECT_TRUE(fs::exists(dataRoot / names::html / "css" / "text.css"));
    EXPECT_EQ(readWholeFile(dataRoot / names::anamnesis), "mine");
    EXPECT_EQ(backups(), Texts{});
    EXPECT_FALSE(fs::exists(dataRoot / names::unfinishedFirstRun));
}

// A read-only installation keeps its starter folders: the clients' folders are laid aside then.
TEST_F(StartupTest, AStarterFolderThatStaysIsCopiedOverTheClients) {
    fs::create_directories(folders.appFolder / names::dataMovedAside);
    writeFileAtomically(folders.appFolder / names::data / "a1", "shipped");
    start();
    EXPECT_TRUE(fs::exists(folders.appFolder / names::data)) << "the other name is taken";
    writeFileAtomically(dataRoot / names::data / "a1", "mine");
    fs::remove_all(dataRoot / names::html);
    start();
    EXPECT_EQ(readWholeFile(dataRoot / names::data / "a1"), "shipped");
    EXPECT_EQ(
        readWholeFile(dataRoot / names::backup / "20250131-143005-first-run" / names::data / "a1"),
        "mine");
}

TEST_F(StartupTest, WhatCannotBeBackedUpIsNotOverwritten) {
    start();
    writeFileAtomically(dataRoot / names::anamnesis, "mine");
    fs::remove(dataRoot / names::newk);
    writeFileAtomically(dataRoot / names::backup, "a file in the way");
    fs::remove_all(dataRoot / names::html);
    EXPECT_TRUE(start()->firstRun);
    EXPECT_EQ(readWholeFile(dataRoot / names::anamnesis), "mine");
    EXPECT_TRUE(fs::exists(dataRoot / names::newk)) << "nothing was to be lost there";
}

TEST_F(StartupTest, WhatCannotBeCopiedStopsNothing) {
    fs::remove(folders.appFolder / names::clients);
    fs::remove(folders.appFolder / names::recommendation);
    fs::create_directories(folders.appFolder / names::recommendation); // no file
    writeFileAtomically(folders.appFolder / names::data / "starter", "x");
    writeFileAtomically(folder.write("data/VORNA/data", "a file in the way"), "x");
    const auto run = start();
    EXPECT_EQ(seams.dialogs.shown,
              Texts{"message: Following error occurd while copying folder " +
                    pathText(folders.appFolder / names::data) + " | Error message"});
    EXPECT_FALSE(fs::exists(dataRoot / names::clients));
    EXPECT_FALSE(fs::exists(dataRoot / names::recommendation));
    EXPECT_TRUE(fs::exists(dataRoot / names::setup)) << "behind the failed ones";
    EXPECT_TRUE(fs::exists(dataRoot / names::html));
    EXPECT_EQ(run->window.tabs.tabs()[0].caption, "Klienti");
    EXPECT_TRUE(run->window.clients.list.rows().empty());
}

TEST_F(StartupTest, ADamagedDataRootStartsWithWhatIsLeft) {
    start();
    writeFileAtomically(dataRoot / names::referenceTcm, "no database");
    writeFileAtomically(dataRoot / names::clients, "");
    writeFileAtomically(dataRoot / names::setup, std::string("\0\xff[Global\nkoef=", 15));
    fs::remove(dataRoot / names::user);
    fs::remove_all(dataRoot / names::data);
    fs::remove(folders.appFolder / names::languageFile(languageCzech));
    const auto run = start();
    EXPECT_FALSE(run->firstRun);
    EXPECT_FALSE(run->session.referenceDb);
    EXPECT_EQ(run->window.chartLabels.at(0)->caption.get(), "");
    EXPECT_EQ(run->window.tabs.tabs()[0].caption, "");
    EXPECT_EQ(run->session.koef, 30);
    EXPECT_TRUE(fs::exists(dataRoot / names::user)) << "made, empty";
    EXPECT_TRUE(fs::is_directory(dataRoot / names::data));
    EXPECT_EQ(seams.dialogs.shown, Texts{});
}

TEST_F(StartupTest, TheModeIsReadFromItsSetting) {
    struct Case {
        const char* setting;
        int mode;
        bool tcm; // shown and its folder
        bool tcmDatabase;
    };
    const Case cases[] = {{"1", 1, true, true},      {"", 1, true, true},
                          {"0", 0, false, false},    {"2", 2, false, true},
                          {"-1", -1, false, true},   {"x", 0, false, false},
                          {"99999", 0, false, false}};
    start();
    fs::remove(dataRoot / names::referenceApm); // so that it can be told which one opens
    for (const Case& mode : cases) {
        const auto run = startWith("ModFunkce", mode.setting);
        const MainWindow& window = run->window;
        EXPECT_EQ(run->session.mode, mode.mode) << mode.setting;
        EXPECT_EQ(run->session.modeFolder, folders.appFolder / "rezim" / (mode.tcm ? "tcm" : "apm"))
            << mode.setting;
        EXPECT_EQ(window.caption(), mode.tcm ? "VORNA - TCM" : "VORNA - APM") << mode.setting;
        EXPECT_EQ(window.tcmOption.checked, mode.tcm) << mode.setting;
        EXPECT_EQ(window.apmOption.checked, !mode.tcm) << mode.setting;
        EXPECT_EQ(window.tcmBadge.visible, mode.tcm) << mode.setting;
        EXPECT_EQ(window.apmBadge.visible, !mode.tcm) << mode.setting;
        EXPECT_EQ(window.library.showApm.visible, mode.mode == 0) << mode.setting;
        EXPECT_EQ(run->session.referenceDb.has_value(), mode.tcmDatabase) << mode.setting;
    }
}

TEST_F(StartupTest, TheLanguageIsChosenOnceAndReadFromThenOn) {
    struct Case {
        const char* setting;
        const char* locale;
        int language;
        const char* written;
        const char* tab;
    };
    const Case cases[] = {
        {"0", "cs_CZ", 1, "1", "Klienti"},   {"", "en_GB", 2, "2", "Clients"},
        {"0", "de_AT", 3, "3", "Klienten"},  {"0", "ru_RU", 4, "4", "Клиенты"},
        {"0", "sk_SK", 2, "2", "Clients"},   {"3", "cs_CZ", 3, "3", "Klienten"},
        {"9", "cs_CZ", 9, "9", ""},          {"x", "cs_CZ", 0, "x", ""},
        {" 2 ", "cs_CZ", 2, "2", "Clients"},
    };
    start();
    for (const Case& choice : cases) {
        seams.platform.locale = localeByName(choice.locale);
        const auto run = startWith("Jazyk", choice.setting);
        const std::string rule = std::string(choice.setting) + choice.locale;
        EXPECT_EQ(run->session.language, choice.language) << rule;
        EXPECT_EQ(ReadIniValue(dataRoot / names::setup, "Global", "Jazyk"), choice.written) << rule;
        EXPECT_EQ(run->window.tabs.tabs()[0].caption, choice.tab) << rule;
        for (int i = 0; i < languageCount; ++i) {
            EXPECT_EQ(run->window.languageOptions.at(i)->checked, i == choice.language - 1) << rule;
            EXPECT_EQ(run->window.flags.at(i)->visible, i == choice.language - 1) << rule;
        }
    }
}

TEST_F(StartupTest, TheHelpOfTheLanguageIsCopied) {
    writeFileAtomically(folders.appFolder / names::helpFile(languageGerman), "deutsch");
    start();
    startWith("Jazyk", "3");
    const fs::path help = folders.appFolder / names::help;
    EXPECT_EQ(readWholeFile(help), "deutsch");
    const auto longAgo = fs::last_write_time(help) - std::chrono::hours(1);
    fs::last_write_time(help, longAgo);
    startWith("Jazyk", "3");
    EXPECT_EQ(fs::last_write_time(help), longAgo) << "what is there already is left alone";
    startWith("Jazyk", "9");
    EXPECT_EQ(readWholeFile(help), "deutsch") << "there is no ninth";
}

TEST_F(StartupTest, TheWindowComesUpWhereItsSettingsSay) {
    struct Case {
        const char* rule;
        float WindowPlace::*member;
        const char* section;
        const char* key;
        const char* text;
        float value;
    };
    const Case cases[] = {
        {"the locale's notation", &WindowPlace::left, "Global", "pozx", "1500,5", 1500.5F},
        {"left of the screen", &WindowPlace::left, "Global", "pozx", "-1200", 0},
        {"another locale's notation", &WindowPlace::left, "Global", "pozx", "1500.5", 0},
        {"no number", &WindowPlace::left, "Global", "pozx", "left", 0},
        {"a second screen", &WindowPlace::left, "Global", "pozx", "57600", 57600},
        {"the top", &WindowPlace::top, "Global", "pozy", "30", 30},
        {"above the screen", &WindowPlace::top, "Global", "pozy", "-0,5", 0},
        {"the width, however written", &WindowPlace::width, "design", "form1.width", "15000",
         15000},
        {"no number keeps the width", &WindowPlace::width, "design", "form1.Width", "wide", 12000},
        {"none is 800 pixels", &WindowPlace::width, "design", "form1.width", "", 12000},
        {"none is 600 pixels", &WindowPlace::height, "design", "form1.Height", "", 9000},
        {"a negative height stands", &WindowPlace::height, "design", "form1.Height", "-15", -15},
    };
    start();
    for (const Case& place : cases) {
        WriteIniValue(dataRoot / names::user, place.section, place.key, place.text);
        EXPECT_EQ(start()->window.place.*place.member, place.value) << place.rule;
    }
}

TEST_F(StartupTest, TheNextStartFindsTheWindowWhereItWasClosed) {
    const auto run = start();
    run->window.place = {1234.5F, 15, 20000.25F, 9999};
    shutDown(run->session, run->window, seams.platform);
    const fs::path user = dataRoot / names::user;
    EXPECT_EQ(ReadIniValue(user, "Global", "pozx"), "1234,5");
    EXPECT_EQ(ReadIniValue(user, "design", "form1.Width"), "20000,25");
    const WindowPlace place = start()->window.place;
    EXPECT_EQ(place.left, 1234.5F);
    EXPECT_EQ(place.top, 15);
    EXPECT_EQ(place.width, 20000.25F);
    EXPECT_EQ(place.height, 9999);
}

} // namespace
} // namespace vorna
