#include "tests/support/evaluation_fixture.h"

#include "acquisition/measurement_name.h"
#include "application/startup.h"
#include "clients/client_list.h"
#include "clients/measurement_tab.h"
#include "core/file_names.h"
#include "core/settings_file.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/test_installation.h"

#include <regex>

namespace vorna {
namespace {

constexpr const char* clientFolder = "a826541203";

void addClient(const fs::path& dataRoot) {
    Database(dataRoot / names::clients)
        .execute("insert into klienti (prijmeni, jmeno, intid) values (?, 'Jana', ?)",
                 {"O'Hara & Co", clientFolder});
}

// Made once in a process: the installation, and the data root of its first run.
class House {
public:
    House() : folders{folder_ / "installation", folder_ / "data"} {
        copyInstallation(folders.appFolder);
        nameTextsByTheirKeys(folders.appFolder);
        TestPlatform seams;
        Session session;
        MainWindow window;
        startUp(folders, session, window, seams.platform);
        addClient(session.dataRoot);
    }

private:
    ScratchFolder folder_;

public:
    const StartupFolders folders;
};

const House& house() {
    static const House made;
    return made;
}

std::string rowText(const ListRow& row) {
    std::string text = row.text;
    for (std::size_t column = 1; column <= 4; ++column)
        text.append("|").append(row.subItem(column));
    return text + "|" + row.tag;
}

ShownWindow lookAt(const Window& window) {
    ShownWindow shown{.section = window.section(), .caption = window.caption()};
    for (Control* const control : window.controls()) {
        std::string& text = shown.texts[control->name()];
        if (const auto* const chart = dynamic_cast<const ChartControl*>(control))
            text = chart->dataXml;
        else if (const auto* const picture = dynamic_cast<const Picture*>(control))
            text = picture->path;
        else if (const auto* const list = dynamic_cast<const ListView*>(control))
            for (const ListRow& row : list->rows())
                shown.rows.push_back(rowText(row));
        else if (const auto* const caption = control->captionProperty())
            text = *caption;
        else if (const auto* const content = control->textProperty())
            text = *content;
    }
    return shown;
}

} // namespace

void RecordingWindows::showModal(Window& window) {
    window.open();
    window.load();
    shown.push_back(lookAt(window));
    if (visit)
        visit(window);
    if (!window.closed())
        window.close();
}

std::vector<std::string> attributesOf(const std::string& document, const std::string& element,
                                      const std::string& attribute) {
    const std::regex elements("<" + element + " [^>]*>");
    const std::regex attributes(" " + attribute + R"( ?=(["'])(.*?)\1)");
    std::vector<std::string> found;
    for (std::sregex_iterator at(document.begin(), document.end(), elements), end; at != end;
         ++at) {
        const std::string text = at->str();
        std::smatch match;
        found.push_back(std::regex_search(text, match, attributes) ? match[2].str() : "");
    }
    return found;
}

StoredValues levelValues(int chartUnits) {
    return levelValues(chartUnits, {});
}

StoredValues levelValues(int chartUnits, const std::map<int, int>& changed) {
    StoredValues values;
    values.fill(chartUnits * 30);
    values[0] = 0;
    for (const auto& [slot, units] : changed)
        values.at(static_cast<std::size_t>(slot)) = units * 30;
    return values;
}

StoredValues slotNumbers() {
    StoredValues values{};
    for (std::size_t slot = 1; slot <= slotCount; ++slot)
        values[slot] = static_cast<std::int32_t>(slot) * 30;
    return values;
}

StoredValues sampleValues() {
    struct Channel {
        int left;
        int right;
    };
    constexpr Channel channels[] = {
        {88, 94},   // heart
        {102, 97},  // small intestine
        {91, 89},   // pericardium
        {112, 172}, // triple energizer
        {74, 79},   // lungs
        {96, 104},  // large intestine
        {58, 64},   // bladder
        {62, 118},  // kidneys
        {131, 126}, // gallbladder
        {149, 214}, // liver
        {92, 99},   // stomach
        {90, 93},   // spleen
    };
    StoredValues values{};
    std::size_t slot = 0;
    for (const Channel& channel : channels) {
        values[++slot] = channel.left * 30;
        values[slot + pairDistance] = channel.right * 30;
    }
    return values;
}

EvaluationDesk::EvaluationDesk(std::int16_t mode)
    : context{.session = session,
              .state = state,
              .platform = seams.platform,
              .windows = windows,
              .clientList = window.clients.list,
              .measurementList = window.measurements.list,
              .recommend = {}} {
    const fs::path dataRoot = house().folders.commonData / names::dataRoot;
    WriteIniValue(dataRoot / names::setup, "Global", "ModFunkce", mode == modeTcm ? "1" : "0");
    fs::remove_all(dataRoot / names::data / clientFolder);
    fs::create_directories(dataRoot / names::data / clientFolder);
    startUp(house().folders, session, window, seams.platform);
    session.odchylka = 15;
    bindMainWindow(window, context, {});
    selectClientRow(window, 0);
}

fs::path EvaluationDesk::measure(std::string_view kindLetter, const StoredValues& values,
                                 char modeLetter) {
    const std::string name = formatMeasurementName(
        {.time = seams.clock.now(),
         .kindLetter = kindLetter.front(),
         .clientLabel = clientLabel(window.clients.list.rows()[0].text, "Jana"),
         .practitioner = "Dvorak",
         .modeLetter = modeLetter});
    const fs::path file = currentClientFile(session, name);
    writeMeasurementFile(file, {.setLabel = "set", .values = values});
    select(name);
    return file;
}

void EvaluationDesk::select(std::string_view name) {
    window.measurements.list.setRows({measurementRow(name)});
    window.measurements.list.selected = 0;
}

const std::vector<ShownWindow>& EvaluationDesk::press(int button) {
    windows.shown.clear();
    window.chartButtons.at(button)->click();
    return windows.shown;
}

} // namespace vorna
