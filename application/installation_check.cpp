#include "application/installation_check.h"

#include "application/main_window.h"
#include "application/reference_check.h"
#include "application/translation_check.h"
#include "clients/info_panel.h"
#include "clients/picture_window.h"
#include "core/file_names.h"
#include "core/settings_file.h"
#include "evaluation/balance_window.h"
#include "evaluation/chart_window.h"
#include "evaluation/element_window.h"
#include "evaluation/quadrant_window.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"
#include "recommendation/recommendation_window.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace vorna {
namespace {

using Faults = std::vector<std::string>;

// ---- Files

void checkFiles(const fs::path& appFolder, Faults& faults) {
    std::vector<std::string> wanted;
    for (const std::string_view name :
         {names::referenceTcm, names::referenceApm, names::clients, names::anamnesis,
          names::recommendation, names::setup, names::user, names::newk, names::startSound,
          names::pipSound, names::dingdongSound, names::twinklesSound})
        wanted.emplace_back(name);
    for (std::int16_t language = 1; language <= languageCount; ++language)
        for (const std::string& name :
             {names::languageFile(language), names::flagPicture(language)})
            wanted.push_back(name);
    for (const std::string_view mode : {"TCM", "APM"})
        wanted.push_back(names::modePicture(mode));
    std::error_code error;
    for (const std::string& name : wanted)
        if (!fs::is_regular_file(under(appFolder, name), error))
            faults.push_back("the file " + name + " is missing");
    const auto starterFolder = [&](std::string_view name, std::string_view movedAside) {
        if (!fs::is_directory(under(appFolder, name), error) &&
            !fs::is_directory(under(appFolder, movedAside), error))
            faults.push_back("the folder " + std::string(name) + " is missing");
    };
    starterFolder(names::data, names::dataMovedAside);
    starterFolder(names::html, names::htmlMovedAside);
}

// ---- Texts

using Texts = std::map<std::string, std::string>;

Texts readTexts(const fs::path& appFolder, std::int16_t language, Faults& faults) {
    Texts texts;
    const std::string name = names::languageFile(language);
    attempt([&] {
        const std::string text = decodeTextFile(readWholeFile(under(appFolder, name))).text;
        for (const IniEntry& entry : parseIniEntries(text)) {
            const std::string key = foldCase(entry.section + " " + entry.key);
            if (!texts.emplace(key, entry.value).second)
                faults.push_back(name + ": the key " + key + " stands twice");
            if (entry.value.empty())
                faults.push_back(name + ": the key " + key + " is empty");
            if (firstCharacters(entry.value, seenValueCharacters).size() != entry.value.size())
                faults.push_back(name + ": the key " + key + " is longer than a read shows");
            if (const std::string word = strangeWord(entry.value, language); !word.empty())
                faults.push_back(name + ": the key " + key + " is in another language: " + word);
        }
    });
    return texts;
}

// The texts that code asks for by their keys in section `other`.
std::vector<std::string> askedKeys() {
    std::vector<std::string> keys{"100",   "stav1", "stav2", "stav3", "stav4",
                                  "Pohl1", "Pohl2", "t144",  "t145",  "t146"};
    const auto range = [&](int first, int last) {
        for (int i = first; i <= last; ++i)
            keys.push_back("t" + std::to_string(i));
    };
    range(1, 12);
    range(16, 20);
    range(23, 34);
    range(36, 38);
    range(40, 40);
    range(42, 81);
    range(88, 128);
    range(131, 139);
    keys.insert(keys.end(), {"noBackup", "noClient"});
    return keys;
}

// Captioned controls that the code fills and the language files leave alone.
bool isFilledByCode(const Control& control) {
    static const std::set<std::string> filled{
        "Form1 SkinLabel20", "Form1 Check2",     "Form1 tlac",       "Form1 Option3",
        "Form1 Label3",      "Form1 Label5",     "Form1 Label6",     "Form1 Label7",
        "Form5 Image1",      "Form5 Image2",     "Form5 Label1",     "Form5 Label2",
        "graffrm Picture1",  "Form3 Label4",     "Form3 Label3",     "Form3 Label1",
        "Form3 Label2",      "Form3 Label5",     "Form3 Picture1",   "Form7 Label4",
        "Form7 Label3",      "Form8 Label4",     "Form8 Label3",     "Form6 Image1",
        "Form4 SkinLabel1",  "Form4 SkinLabel2", "Form4 SkinLabel3", "Form4 Label1",
        "Form4 Label2",      "Form4 Label3",     "Form4 Image1",     "Form4 Image2"};
    return filled.contains(control.window().section() + " " + control.name());
}

void checkCaptions(Window& window, const std::string& file, const Texts& texts, Faults& faults) {
    for (Control* const control : window.controls()) {
        if (control->captionProperty() == nullptr || isFilledByCode(*control))
            continue;
        const std::string key = window.section() + " " + control->name() + ".caption";
        if (!texts.contains(foldCase(key)))
            faults.push_back(file + ": the key " + key + " is missing");
    }
}

void checkWindows(EvaluationContext& context, const std::string& file, const Texts& texts,
                  Faults& faults) {
    MainWindow mainWindow;
    ChartWindow chartWindow(context);
    BalanceWindow balanceWindow(context);
    ElementWindow elementWindow(context);
    QuadrantWindow quadrantWindow(context);
    RecommendationWindow recommendationWindow(context, chartWindow);
    InfoPanel infoPanel(context.session);
    PictureWindow pictureWindow(context.session);
    for (Window* const window :
         {static_cast<Window*>(&mainWindow), static_cast<Window*>(&chartWindow),
          static_cast<Window*>(&balanceWindow), static_cast<Window*>(&infoPanel),
          static_cast<Window*>(&recommendationWindow), static_cast<Window*>(&elementWindow),
          static_cast<Window*>(&quadrantWindow), static_cast<Window*>(&pictureWindow)})
        checkCaptions(*window, file, texts, faults);
}

void checkTexts(EvaluationContext& context, const fs::path& appFolder, Faults& faults) {
    std::array<Texts, languageCount> all;
    std::set<std::string> anyKey;
    for (std::int16_t language = 1; language <= languageCount; ++language) {
        Texts& texts = all[static_cast<std::size_t>(language - 1)];
        texts = readTexts(appFolder, language, faults);
        for (const auto& [key, text] : texts)
            anyKey.insert(key);
    }
    for (const std::string& key : askedKeys())
        anyKey.insert(foldCase("other " + key));
    for (std::int16_t language = 1; language <= languageCount; ++language) {
        const Texts& texts = all[static_cast<std::size_t>(language - 1)];
        const std::string file = names::languageFile(language);
        for (const std::string& key : anyKey)
            if (!texts.contains(key))
                faults.push_back(file + ": the key " + key + " is missing");
        checkWindows(context, file, texts, faults);
    }
}

} // namespace

std::vector<std::string> checkInstallation(EvaluationContext& context,
                                           const std::filesystem::path& appFolder,
                                           const std::filesystem::path& scratch) {
    Faults faults;
    checkFiles(appFolder, faults);
    checkTexts(context, appFolder, faults);
    checkReferences(context, appFolder, scratch, faults);
    return faults;
}

} // namespace vorna
