#include "application/startup.h"

#include "core/backup.h"
#include "core/file_names.h"
#include "core/number.h"
#include "core/reference_database.h"
#include "core/session_settings.h"
#include "core/settings_file.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vorna {
namespace {

constexpr std::array filesOfFirstRun{
    names::referenceApm,   names::referenceTcm, names::clients, names::anamnesis,
    names::recommendation, names::newk,         names::setup,   names::user};
constexpr std::string_view programTitle = "VORNA";
constexpr WindowPlace defaultPlace{0, 0, 800 * twipsPerPixel, 600 * twipsPerPixel};

// One start-up under way.
struct Start {
    const StartupFolders& folders;
    Session& session;
    MainWindow& window;
    Platform& platform;

    [[nodiscard]] std::string setup(std::string_view key) const {
        return ReadIniValue(under(session.dataRoot, names::setup), "Global", key);
    }
    [[nodiscard]] std::string user(std::string_view section, std::string_view key) const {
        return ReadIniValue(under(session.dataRoot, names::user), section, key);
    }
};

// ---- Data root

// A missing folder is passed over; one that cannot be copied is told.
void copyStarterFolder(const Start& start, std::string_view name) {
    const fs::path folder = under(start.folders.appFolder, name);
    std::error_code error;
    if (!fs::is_directory(folder, error))
        return;
    if (!attempt([&] { copyFolderInto(folder, start.session.dataRoot); }))
        start.platform.dialogs.message(
            "Following error occurd while copying folder " + pathText(folder), "Error message");
}

void renameInApp(const Start& start, std::string_view from, std::string_view to) {
    std::error_code error; // the installation may be read-only, or the other name taken
    if (const fs::path target = under(start.folders.appFolder, to); isMissing(target))
        fs::rename(under(start.folders.appFolder, from), target, error);
}

// A database that was cut off in the middle of a change finds back to its state before when it is
// opened; the journal it did so with must not meet the file that replaces it.
void settleDatabases(const Session& session) {
    for (const std::string_view name : {names::referenceApm, names::referenceTcm, names::clients}) {
        const fs::path file = under(session.dataRoot, name);
        if (isMissing(file))
            continue;
        attempt([&] { Database(file, referencePassword); });
    }
}

void dropJournal(const fs::path& database) {
    std::error_code error; // there is none as a rule
    fs::path journal = database;
    fs::remove(journal += "-journal", error);
}

// Copies what the data root lacks of a file or folder of the installation and overwrites nothing.
// False when something could not be copied.
bool copyMissing(const fs::path& from, const fs::path& to) {
    std::error_code error;
    if (fs::is_directory(from, error)) {
        fs::create_directory(to, error);
        bool whole = true;
        for (const std::string& name : listFiles(from, "*"))
            whole = copyMissing(from / name, to / name) && whole;
        return whole;
    }
    return !fs::is_regular_file(from, error) || !isMissing(to) ||
           attempt([&] { copyFileOver(from, to); });
}

// A first run that was cut off, or found the disk full, goes on where it is possible: without that
// the client table, say, would be missing for ever.
void finishFirstRun(const Start& start) {
    const fs::path& app = start.folders.appFolder;
    const fs::path& root = start.session.dataRoot;
    std::error_code error;
    const fs::path mark = under(root, names::unfinishedFirstRun);
    if (!fs::is_regular_file(mark, error))
        return;
    bool whole = true;
    for (const std::string_view name : filesOfFirstRun)
        if (const fs::path file = under(app, name); !fs::is_directory(file, error))
            whole = copyMissing(file, under(root, name)) && whole;
    for (const auto& [name, aside] : {std::pair{names::data, names::dataMovedAside},
                                      std::pair{names::html, names::htmlMovedAside}}) {
        const fs::path folder = under(app, name);
        whole =
            copyMissing(isMissing(folder) ? under(app, aside) : folder, under(root, name)) && whole;
    }
    if (whole)
        fs::remove(mark, error);
}

void copyInstallation(const Start& start) {
    const Session& session = start.session;
    std::error_code error;
    if (fs::create_directories(session.dataRoot, error)) // clients' data is nobody else's
        fs::permissions(session.dataRoot, fs::perms::owner_all, error);
    // An installation whose starter folders were moved aside has nothing to finish.
    if (fs::is_directory(under(start.folders.appFolder, names::html), error))
        attempt([&] { createEmptyFile(under(session.dataRoot, names::unfinishedFirstRun)); });
    settleDatabases(session);
    std::vector<std::string_view> endangered(filesOfFirstRun.begin(), filesOfFirstRun.end());
    if (fs::is_directory(under(start.folders.appFolder, names::data), error))
        endangered.push_back(names::data);
    const bool safe = attempt(
        [&] { backUp(session.dataRoot, "first-run", endangered, start.platform.clock.now()); });
    for (const std::string_view name : filesOfFirstRun)
        attempt([&] {
            const fs::path target = under(session.dataRoot, name);
            if (!safe && !isMissing(target))
                throw Failure("a file that could not be backed up is not overwritten");
            copyFileOver(under(start.folders.appFolder, name), target);
            dropJournal(target);
        });
    if (safe || isMissing(under(session.dataRoot, names::data)))
        copyStarterFolder(start, names::data);
    copyStarterFolder(start, names::html);
    if (!fs::is_directory(session.dataRoot, error)) // nothing was copied: the next start wants them
        return;
    renameInApp(start, names::data, names::dataMovedAside);
    renameInApp(start, names::html, names::htmlMovedAside);
}

// First run is when there is no HTML folder. A data root that cannot be asked is none.
bool lacksHtml(const fs::path& dataRoot) {
    std::error_code error;
    const fs::path html = under(dataRoot, names::html);
    return isMissing(html) || fs::is_regular_file(html, error);
}

bool findDataRoot(const Start& start) {
    std::error_code error;
    start.session.appFolder = start.folders.appFolder;
    start.session.dataRoot = under(start.folders.commonData, names::dataRoot);
    finishFirstRun(start);
    const bool firstRun = lacksHtml(start.session.dataRoot);
    if (firstRun) {
        copyInstallation(start);
        finishFirstRun(start);
    }
    fs::create_directories(under(start.session.dataRoot, names::log), error);
    start.session.clientsFolder = under(start.session.dataRoot, names::data);
    return firstRun;
}

// ---- Language and mode

std::string languageOfLocale(const Locale& locale) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 4> languages{
        {{"CZECH", "1"}, {"ENGLISH", "2"}, {"GERMAN", "3"}, {"RUSSIAN", "4"}}};
    const std::string name = upperCase(locale.englishLanguageName);
    for (const auto& [language, number] : languages)
        if (name == language)
            return std::string(number);
    return "2";
}

void chooseLanguage(const Start& start) {
    if (const std::string chosen = start.setup("Jazyk"); chosen.empty() || chosen == "0")
        attempt([&] {
            WriteIniValue(under(start.session.dataRoot, names::setup), "global", "Jazyk",
                          languageOfLocale(start.platform.locale));
        });
    Session& session = start.session;
    if (const std::string number = start.setup("Jazyk"); number.empty() || number == "1")
        session.language = languageCzech;
    else
        attempt(
            [&] { session.language = roundToInt16(numberOfText(start.platform.locale, number)); });
    if (CheckBox* const option = start.window.languageOptions.at(session.language - 1))
        option->checked = true;
    session.texts.setFile(under(session.appFolder, names::languageFile(session.language)),
                          session.language == languageRussian);
}

void chooseMode(const Start& start) {
    Session& session = start.session;
    const std::string setting = start.setup("ModFunkce");
    const bool tcm = setting.empty() || setting == "1";
    session.mode = modeTcm;
    if (!tcm) {
        session.mode = 0; // what an unreadable setting leaves
        attempt([&] { session.mode = roundToInt16(numberOfText(start.platform.locale, setting)); });
    }
    session.modeFolder = under(session.appFolder, tcm ? names::rezimTcm : names::rezimApm);
    MainWindow& window = start.window;
    window.tcmOption.checked = tcm;
    window.apmOption.checked = !tcm;
    window.setCaption(std::string(programTitle) + " - " + t(session, tcm ? "t24" : "t23"));
    window.apmBadge.visible = !tcm;
    window.tcmBadge.visible = tcm;
}

void showFlag(const Start& start) {
    for (const auto& flag : start.window.flags.members)
        flag->visible = flag->index() == start.session.language - 1;
}

// A help that is in the language already is left as it is: most starts write nothing.
void copyHelp(const Start& start) {
    attempt([&] {
        const fs::path target = under(start.session.appFolder, names::help);
        const std::string help =
            readWholeFile(under(start.session.appFolder, names::helpFile(start.session.language)));
        std::string present;
        if (!attempt([&] { present = readWholeFile(target); }) || present != help)
            writeFileAtomically(target, help);
    });
}

// ---- Databases

void openDatabases(const Start& start) {
    Session& session = start.session;
    attempt([&] {
        const std::string_view file =
            session.mode != modeApm ? names::referenceTcm : names::referenceApm;
        session.referenceDb.emplace(under(session.dataRoot, file), referencePassword);
    });
    attempt([&] { nastavJazyk(referenceDatabase(session), session.language); });
    attempt([&] { session.clientDb.emplace(under(session.dataRoot, names::clients)); });
}

void nameCharts(const Start& start) {
    for (const auto& label : start.window.chartLabels.members) {
        const int i = label->index();
        attempt([&] { label->caption = vratNazevGrafu(start.session, i + 1); });
        if (CheckBox* const box = start.window.print.charts.at(i))
            box->caption = label->caption;
    }
}

void readReferenceTexts(const Start& start) {
    const ReferenceReading reading(start.session);
    bindLibrary(start.session, start.window.library);
    nameCharts(start);
}

// ---- Window

void readPractitioner(const Start& start) {
    if (const fs::path file = under(start.session.dataRoot, names::user); isMissing(file))
        attempt([&] { createEmptyFile(file); });
    start.window.practitionerName.text = start.user("Global", "name");
    start.window.practitionerContact.text = start.user("Global", "kontakt");
    start.window.practitionerAddress.text = start.user("Global", "adresa");
    start.session.userName = start.window.practitionerName.text;
    start.session.userContact = start.window.practitionerContact.text;
}

// An empty setting gives the default; one that is no number leaves the window as it is.
void readPlace(const Start& start, float& target, std::string_view section, std::string_view key) {
    const std::string text = start.user(section, key);
    if (!text.empty())
        attempt([&] {
            const auto value = static_cast<float>(numberOfText(start.platform.locale, text));
            if (!std::isfinite(value))
                throw Failure("a window's place is out of range");
            target = value;
        });
}

void placeWindow(const Start& start) {
    WindowPlace& place = start.window.place;
    place = defaultPlace;
    readPlace(start, place.left, "Global", "pozx");
    readPlace(start, place.top, "Global", "pozy");
    readPlace(start, place.width, "design", "form1.width");
    readPlace(start, place.height, "design", "form1.Height");
    place.left = std::max(place.left, 0.0F);
    place.top = std::max(place.top, 0.0F);
}

void fillTexts(const Start& start) {
    MainWindow& window = start.window;
    const auto texts = [&](std::initializer_list<const char*> keys) {
        std::vector<std::string> rows;
        for (const char* const key : keys)
            rows.push_back(t(start.session, key));
        return rows;
    };
    window.card.maritalStatus.rows = texts({"stav1", "stav2", "stav3", "stav4"});
    window.card.gender.rows = texts({"Pohl1", "Pohl2"});
    const std::vector<std::string> tabs = texts({"t103", "t104", "t105", "t106", "t107", "t108"});
    for (std::size_t i = 0; i < tabs.size(); ++i)
        window.tabs.change(i, [&](Tab& tab) { tab.caption = tabs[i]; });
    const ClientCard& card = window.card;
    window.clients.list.headers = std::vector<std::string>{
        card.surnameLabel.caption,   card.firstNameLabel.caption, card.bornLabel.caption,
        card.telephoneLabel.caption, t(start.session, "t109"),    card.foundedLabel.caption};
    window.measurements.list.headers = texts({"t110", "t111", "t112", "t113"});
    window.library.meridianGrid.headers = texts({"t114", "t115", "t116", "t117", "t118"});
    window.library.pointGrid.headers = texts({"t114", "t119", "t120", "t121"});
}

void fillLists(const Start& start) {
    MainWindow& window = start.window;
    window.tabs.change(static_cast<std::size_t>(MainTab::Measurements),
                       [](Tab& tab) { tab.enabled = false; });
    window.tabs.change(static_cast<std::size_t>(MainTab::Unused),
                       [](Tab& tab) { tab.visible = false; });
    ClientContext clients = clientContext(window, start.session, start.platform);
    searchClients(clients);
}

} // namespace

bool startUp(const StartupFolders& folders, Session& session, MainWindow& window,
             Platform& platform) {
    const Start start{folders, session, window, platform};
    const bool firstRun = findDataRoot(start);
    chooseLanguage(start);
    readScaleSettings(session, platform.locale);
    session.newClientPending = false;
    readMeasuringTime(session, platform.locale);
    chooseMode(start);
    showFlag(start);
    copyHelp(start);
    applyLanguage(session, window);
    openDatabases(start);
    readReferenceTexts(start);
    readPractitioner(start);
    std::error_code error; // without the folder the clients' steps fail, each on its own
    fs::create_directories(session.clientsFolder, error);
    readEvaluationSettings(session, platform.locale);
    placeWindow(start);
    fillLists(start);
    fillTexts(start);
    return firstRun;
}

void shutDown(const Session& session, const MainWindow& window, const Platform& platform) {
    const auto write = [&](std::string_view section, std::string_view key, float value) {
        attempt([&] {
            WriteIniValue(under(session.dataRoot, names::user), section, key,
                          numberText(platform.locale, value));
        });
    };
    write("Global", "pozx", window.place.left);
    write("Global", "pozy", window.place.top);
    write("design", "form1.Width", window.place.width);
    write("design", "form1.Height", window.place.height);
}

} // namespace vorna
