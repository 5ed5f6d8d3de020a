#include "application/main_window.h"
#include "core/file_names.h"
#include "core/settings_file.h"
#include "tests/support/no_windows.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/test_platform.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

using Texts = std::vector<std::string>;

// The settings tab of a session in TCM mode and Czech.
struct SettingsTab {
    SettingsTab() {
        session.dataRoot = folder.path();
        session.texts.setFile(folder.write("lang1.ini", "[other]\nt8=saved\nt17=the end\n"), false);
        folder.write("setup.ini", "; kept\n[Global]\nJazyk=1\nModFunkce=1\n");
        folder.write("user.ini", "[Global]\nname=Dvorak\npozx=15\n");
        window.tcmOption.checked = true;
        bindMainWindow(window, context, [this] { ++ended; });
    }
    [[nodiscard]] std::string setup(std::string_view key) const {
        return ReadIniValue(folder / "setup.ini", "Global", key);
    }
    [[nodiscard]] std::string user(std::string_view key) const {
        return ReadIniValue(folder / "user.ini", "Global", key);
    }

    ScratchFolder folder;
    TestPlatform seams;
    NoWindows windows;
    Session session;
    EvaluationState state;
    MainWindow window;
    EvaluationContext context{.session = session,
                              .state = state,
                              .platform = seams.platform,
                              .windows = windows,
                              .clientList = window.clients.list,
                              .measurementList = window.measurements.list,
                              .recommend = {}};
    int ended = 0;
};

TEST(MainWindow, SavingModeAndLanguageWritesWhatWasChosenAndEndsTheProcess) {
    struct Case {
        const char* rule;
        bool apm;
        std::vector<int> languages; // the buttons clicked
        const char* mode;
        const char* language;
    };
    const Case cases[] = {
        {"nothing was changed", false, {}, "1", "1"},
        {"the mode", true, {}, "0", "1"},
        {"the language", false, {3}, "1", "4"},
        {"the last click counts", true, {1, 0, 2}, "0", "3"},
    };
    for (const Case& choice : cases) {
        SettingsTab tab;
        tab.window.apmOption.checked = choice.apm;
        tab.window.tcmOption.checked = !choice.apm;
        for (const int language : choice.languages)
            call(tab.window.languageOptions.at(language)->clicked);
        tab.window.saveModeAndLanguage.click();
        EXPECT_EQ(tab.setup("ModFunkce"), choice.mode) << choice.rule;
        EXPECT_EQ(tab.setup("Jazyk"), choice.language) << choice.rule;
        EXPECT_EQ(tab.seams.dialogs.shown, Texts{"message: the end"}) << choice.rule;
        EXPECT_EQ(tab.ended, 1) << choice.rule;
        EXPECT_EQ(tab.user("pozx"), "15") << "the place is not written on this way";
        EXPECT_EQ(readWholeFile(tab.folder / "setup.ini").substr(0, 6), "; kept");
    }
}

TEST(MainWindow, SavingThePractitionerKeepsTheSession) {
    SettingsTab tab;
    tab.window.practitionerName.text = "Žofie O'Neil & syn";
    tab.window.practitionerContact.text = "+420 123";
    tab.window.practitionerAddress.text = "Brno";
    tab.window.savePractitioner.click();
    EXPECT_EQ(tab.user("name"), "Žofie O'Neil & syn");
    EXPECT_EQ(tab.user("kontakt"), "+420 123");
    EXPECT_EQ(tab.user("adresa"), "Brno");
    EXPECT_EQ(tab.session.userName, "Žofie O'Neil & syn");
    EXPECT_EQ(tab.session.userContact, "+420 123");
    EXPECT_EQ(tab.seams.dialogs.shown, Texts{"notice: saved"});
    EXPECT_EQ(tab.ended, 0);
    EXPECT_EQ(tab.user("pozx"), "15");
}

TEST(MainWindow, ASaveThatCannotWriteSaysNothingElse) {
    SettingsTab tab;
    tab.session.dataRoot = tab.folder / "missing";
    tab.window.practitionerName.text = "Nová";
    tab.window.savePractitioner.click();
    tab.window.saveModeAndLanguage.click();
    EXPECT_EQ(tab.session.userName, "Nová");
    EXPECT_EQ(tab.seams.dialogs.shown, (Texts{"notice: saved", "message: the end"}));
    EXPECT_EQ(tab.ended, 1);
}

TEST(MainWindow, AChangeOfTheTabFillsItAnew) {
    SettingsTab tab;
    tab.session.clientsFolder = tab.folder / "data";
    tab.session.currentClientFolder = "a1";
    tab.folder.write("lang1.ini", "[other]\nt122=help\nt123=settings\nt124=free\nt125=about\n");
    tab.folder.write("data/a1/250131143005_P_x.daf", "");
    MainWindow& window = tab.window;
    const auto go = [&](MainTab to) { window.tabs.select(static_cast<std::size_t>(to)); };
    go(MainTab::Measurements);
    EXPECT_EQ(window.measurements.list.size(), 1U);
    tab.folder.write("data/a1/250131143006_P_x.daf", "");
    go(MainTab::Measurements);
    EXPECT_EQ(window.measurements.list.size(), 1U) << "the same tab is no change";
    for (int visits = 0; visits < 2; ++visits) {
        go(MainTab::Settings);
        ASSERT_EQ(window.settingsList.size(), 4U);
        EXPECT_EQ(window.settingsList.row(3).text, "about");
        go(MainTab::Measurements);
    }
    EXPECT_EQ(window.measurements.list.size(), 2U);
    EXPECT_TRUE(window.measureEnergy.visible);
    tab.session.mode = modeApm;
    go(MainTab::Clients);
    EXPECT_FALSE(window.measureEnergy.visible);
}

} // namespace
} // namespace vorna
