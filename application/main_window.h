// The main window's view model: the record of its controls, which start-up fills and from which
// all other windows are opened, its tabs, and the saves of its settings tab.
#pragma once

#include "acquisition/free_measurement.h"
#include "acquisition/probe_search.h"
#include "application/settings_list.h"
#include "application/work_window.h"
#include "clients/client_operations.h"
#include "clients/knowledge_library.h"
#include "core/main_tabs.h"
#include "core/session.h"
#include "core/window.h"
#include "evaluation/evaluation_driver.h"
#include "exchange/archive.h"
#include "exchange/report.h"
#include "platform/platform.h"

#include <functional>

namespace vorna {

inline constexpr int languageCount = 4;

// Place and size in twips, of which a logical pixel has 15.
struct WindowPlace {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
};
inline constexpr float twipsPerPixel = 15;

struct MainWindow final : Window {
    MainWindow() : Window("Form1") {}

    TabStrip tabs{*this, "SSTab1", mainTabCount};
    Picture apmBadge{*this, "Image1"};
    Picture tcmBadge{*this, "Image2"};
    ControlArray<Picture> flags{*this, "Image7", {0, 1, 2, 3}};
    Picture activity{*this, "Image9"}; // blinks while something is measured

    ClientListTab clients{*this};
    Button exportClient{*this, "Command20"};
    Button importClient{*this, "Command24"};
    ClientCard card{*this};

    // Measurements
    MeasurementTab measurements{*this};
    Button measureSource{*this, "Command23"};
    Button measureTerminal{*this, "Command18"};
    Button measureBiorhythm{*this, "Command25"};
    Button measureEnergy{*this, "Command45"}; // in TCM mode only
    ControlArray<Button> chartButtons{*this, "tlac", {0, 1, 2, 3, 4, 5, 6}};
    ControlArray<Label> chartLabels{*this, "SkinLabel20", {0, 1, 2, 3, 4, 5, 6}};
    PrintPanel print{*this};

    LibraryTab library{*this};

    // Settings
    ListView settingsList{*this, "List1"};
    CheckBox apmOption{*this, "Option1"};
    CheckBox tcmOption{*this, "Option2"};
    ControlArray<CheckBox> languageOptions{*this, "Option3", {0, 1, 2, 3}};
    Button saveModeAndLanguage{*this, "Command36"};
    TextBox practitionerName{*this, "Text14"};
    TextBox practitionerContact{*this, "Text15"};
    TextBox practitionerAddress{*this, "Text21"};
    Button savePractitioner{*this, "Command2"};
    Button anamnesisTemplate{*this, "Command14"};
    Button recommendationTemplate{*this, "Command32"};
    Button exportGroup{*this, "Command38"};
    Button importGroup{*this, "Command34"};
    Button importFolders{*this, "Command35"};
    Button deleteAllData{*this, "Command47"};
    ProbeSettings probe{*this};
    FreeMeasurementTab freeMeasurement{*this};
    SettingsFrames settings{*this};

    WorkWindow work;          // of export and import
    ArchiveMaker makeArchive; // for them; set by the program

    // Shows a help file; empty where nobody can.
    std::function<void(const std::filesystem::path&)> showHelp;

    WindowPlace place;
    // The language button that was clicked in this session, from 0; -1 when none was.
    int clickedLanguage = -1;
};

// Binds the actions of the window. All that is passed must outlive the window; `endProcess` is
// called where a save ends the process at once.
void bindMainWindow(MainWindow& window, EvaluationContext& context,
                    const std::function<void()>& endProcess);

// What the operations on clients work with, out of the window.
ClientContext clientContext(MainWindow& window, Session& session, Platform& platform);

// Clicks on a row of the client list. Failure when there is no such row.
void selectClientRow(MainWindow& window, int row);

// What follows a change of the tab: the measurement list and the settings list are filled anew.
void changeTab(MainWindow& window, Session& session);

// Writes the practitioner's identity, keeps it in the session and says so.
void savePractitioner(MainWindow& window, Session& session, Platform& platform);

// Writes the mode, and the language when one was clicked; tells that the process ends now.
void saveModeAndLanguage(MainWindow& window, Session& session, Platform& platform);

} // namespace vorna
