// The main window's view model: the record of its controls, which start-up fills and from which
// all other windows are opened, and the saves of its settings tab.
#pragma once

#include "core/session.h"
#include "core/window.h"
#include "evaluation/evaluation_driver.h"
#include "platform/platform.h"

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace vorna {

inline constexpr int languageCount = 4;

// The tabs by index.
enum class MainTab : std::size_t {
    Clients = 0,
    Card = 1,
    Measurements = 2,
    Unused = 3,
    Library = 4,
    Settings = 5
};
inline constexpr std::size_t mainTabCount = 6;

// Members of a control array share their name and are told apart by their index.
template <class T>
struct ControlArray {
    ControlArray(Window& window, std::string_view name, std::initializer_list<int> indices) {
        for (const int index : indices)
            members.push_back(std::make_unique<T>(window, std::string(name), index));
    }
    // Null when the array has no such member.
    [[nodiscard]] T* at(int index) const {
        for (const auto& member : members)
            if (member->index() == index)
                return member.get();
        return nullptr;
    }
    std::vector<std::unique_ptr<T>> members;
};

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

    // Clients
    ListView clientList{*this, "ListView2"};
    Label surnameLabel{*this, "SkinLabel1"};
    Label firstNameLabel{*this, "SkinLabel2"};
    Label bornLabel{*this, "SkinLabel3"};
    Label telephoneLabel{*this, "SkinLabel4"};
    Label foundedLabel{*this, "SkinLabel14"};

    // Card
    ComboBox gender{*this, "Combo1"};
    ComboBox maritalStatus{*this, "Combo2"};

    // Measurements
    ListView measurementList{*this, "ListView1"};
    Button copyMeasurement{*this, "Command43"};
    ControlArray<Button> chartButtons{*this, "tlac", {0, 1, 2, 3, 4, 5, 6}};
    ControlArray<Label> chartLabels{*this, "SkinLabel20", {0, 1, 2, 3, 4, 5, 6}};
    ControlArray<CheckBox> reportCharts{*this, "Check2", {0, 1, 2, 3, 5, 6}};

    // Library
    ListView meridianGrid{*this, "DataGrid1"};
    ListView pointGrid{*this, "DataGrid2"};
    Button showApm{*this, "Command27"};

    // Settings
    CheckBox apmOption{*this, "Option1"};
    CheckBox tcmOption{*this, "Option2"};
    ControlArray<CheckBox> languageOptions{*this, "Option3", {0, 1, 2, 3}};
    Button saveModeAndLanguage{*this, "Command36"};
    TextBox practitionerName{*this, "Text14"};
    TextBox practitionerContact{*this, "Text15"};
    TextBox practitionerAddress{*this, "Text21"};
    Button savePractitioner{*this, "Command2"};

    WindowPlace place;
    // The language button that was clicked in this session, from 0; -1 when none was.
    int clickedLanguage = -1;
};

// Binds the actions of the window. All that is passed must outlive the window; `endProcess` is
// called where a save ends the process at once.
void bindMainWindow(MainWindow& window, EvaluationContext& context,
                    const std::function<void()>& endProcess);

// Makes the client of a row of the client list the current one and fills the measurement list.
// Failure when there is no such row.
void selectClientRow(MainWindow& window, Session& session, int row);

// Writes the practitioner's identity, keeps it in the session and says so.
void savePractitioner(MainWindow& window, Session& session, Platform& platform);

// Writes the mode, and the language when one was clicked; tells that the process ends now.
void saveModeAndLanguage(MainWindow& window, Session& session, Platform& platform);

} // namespace vorna
