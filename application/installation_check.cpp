#include "application/installation_check.h"

#include "acquisition/measurement_sets.h"
#include "application/main_window.h"
#include "clients/info_panel.h"
#include "clients/picture_window.h"
#include "core/file_names.h"
#include "core/reference_database.h"
#include "core/settings_file.h"
#include "evaluation/balance_window.h"
#include "evaluation/chart_window.h"
#include "evaluation/element_window.h"
#include "evaluation/quadrant_window.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

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
        wanted.push_back(names::languageFile(language));
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
    return keys;
}

// Captioned controls that the code fills and the language files leave alone.
bool isFilledByCode(const Control& control) {
    static const std::set<std::string> filled{
        "Form1 SkinLabel20", "Form1 Check2", "Form1 tlac",   "Form1 Option3", "Form1 Label3",
        "Form5 Image1",      "Form5 Image2", "Form5 Label1", "Form5 Label2",  "graffrm Picture1",
        "Form3 Label4",      "Form3 Label3", "Form3 Label1", "Form3 Label2",  "Form3 Label5",
        "Form3 Picture1",    "Form7 Label4", "Form7 Label3", "Form8 Label4",  "Form8 Label3",
        "Form6 Image1"};
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
    InfoPanel infoPanel(context.session);
    PictureWindow pictureWindow(context.session);
    for (Window* const window :
         {static_cast<Window*>(&mainWindow), static_cast<Window*>(&chartWindow),
          static_cast<Window*>(&balanceWindow), static_cast<Window*>(&infoPanel),
          static_cast<Window*>(&elementWindow), static_cast<Window*>(&quadrantWindow),
          static_cast<Window*>(&pictureWindow)})
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

// ---- Reference databases

struct Reference {
    Session& session;
    std::string where; // names the database and language in a fault
    Faults& faults;

    void fault(const std::string& text) const { faults.push_back(where + ": " + text); }

    template <class Lookup>
    void mustFind(const std::string& what, Lookup&& lookup) const {
        if (orEmpty(lookup).empty())
            fault(what + " is missing or empty");
    }
};

void checkSets(const Reference& reference) {
    for (int sada = setP; sada <= setE; ++sada) {
        std::set<std::string> extIndexes;
        std::set<std::string> slots;
        const std::string set = "set " + std::to_string(sada) + ", run place ";
        for (int place = 1; place <= slotCount; ++place) {
            const auto field = [&](PointField which) {
                return lookupSetPoint(reference.session, place, sada, which, SetKey::RunPlace);
            };
            const std::string here = set + std::to_string(place);
            for (const PointField which : {PointField::ExtIndex, PointField::ShortName,
                                           PointField::Description, PointField::Place})
                reference.mustFind(here + ", field " + std::to_string(static_cast<int>(which)),
                                   [&] { return field(which); });
            if (!extIndexes.insert(field(PointField::ExtIndex)).second)
                reference.fault(here + ": the extIndex stands twice in the set");
            slots.insert(field(PointField::Slot));
            reference.mustFind(here + ", slot by its number", [&] {
                return lookupSetPoint(reference.session, place, sada, PointField::ExtIndex,
                                      SetKey::Slot);
            });
        }
        if (slots.size() != slotCount)
            reference.fault("set " + std::to_string(sada) + " does not fill the 24 slots");
    }
    Recordset orphans = referenceDatabase(reference.session)
                            .query("select sada, poradimereni from sadymereni where longpoint not"
                                   " in (select pointLong from Points)");
    for (; !orphans.atEnd(); orphans.moveNext())
        reference.fault("set " + orphans.text("sada") + ", run place " +
                        orphans.text("poradimereni") + ": the point does not exist");
}

struct ChartOrder {
    int graf;
    int firstSet;
    int lastSet;
    int places;
    bool slots; // places lead to slots; else to labels alone
};

void checkChartOrders(const Reference& reference) {
    constexpr std::array orders{ChartOrder{1, 1, 4, 24, true},  ChartOrder{2, 1, 4, 24, true},
                                ChartOrder{18, 1, 4, 24, true}, ChartOrder{9, 1, 3, 6, true},
                                ChartOrder{10, 1, 3, 6, true},  ChartOrder{11, 1, 3, 6, true},
                                ChartOrder{12, 1, 3, 6, true},  ChartOrder{15, 2, 2, 6, false},
                                ChartOrder{16, 2, 2, 6, false}};
    for (const ChartOrder& order : orders) {
        for (int sada = order.firstSet; sada <= order.lastSet; ++sada) {
            std::set<std::string> slots;
            for (int place = 1; place <= order.places; ++place) {
                const std::string here = "chart " + std::to_string(order.graf) + ", set " +
                                         std::to_string(sada) + ", place " + std::to_string(place);
                reference.mustFind(here, [&] {
                    return lookupChartPoint(reference.session, place, sada, PointField::ShortName,
                                            order.graf);
                });
                if (order.slots && !slots
                                        .insert(lookupChartPoint(reference.session, place, sada,
                                                                 PointField::Slot, order.graf))
                                        .second)
                    reference.fault(here + ": the slot stands twice");
            }
        }
    }
    for (int entry = 1; entry <= 12; ++entry)
        reference.mustFind("element entry " + std::to_string(entry), [&] {
            return lookupChartPoint(reference.session, entry, setP, PointField::Meridian, 3);
        });
}

void checkWords(const Reference& reference) {
    Session& session = reference.session;
    for (const int chart : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 14, 15, 16, 17, 18})
        reference.mustFind("chart name " + std::to_string(chart),
                           [&] { return vratNazevGrafu(session, chart); });
    for (int element = 1; element <= 5; ++element)
        reference.mustFind("element " + std::to_string(element),
                           [&] { return vratElement(session, element); });
    for (int side = 1; side <= 3; ++side)
        reference.mustFind("side " + std::to_string(side),
                           [&] { return vratSkelet(session, side); });
    for (int problem = 1; problem <= 3; ++problem)
        reference.mustFind("problem " + std::to_string(problem),
                           [&] { return vratProblem(session, problem); });
    for (const int graf : {5, 6})
        for (int column = 1; column <= 6; ++column)
            reference.mustFind("evaluation text " + std::to_string(graf) + "/" +
                                   std::to_string(column),
                               [&] { return vratTherapyApm(session, graf, column); });
    for (int code = 1; code <= 12; ++code) {
        const std::string meridian = (code < 10 ? "0" : "") + std::to_string(code);
        reference.mustFind("slot of meridian " + meridian + " in the first set",
                           [&] { return vratCisloUlozeni(session, meridian, setP); });
    }
    Recordset points = referenceDatabase(session).query("select count(*) as n from Points");
    if (points.number("n") != 361)
        reference.fault(points.text("n") + " points, 361 are wanted");
}

// A row without a text in a language would show the language of the start before.
void checkTranslations(const Reference& reference, std::int16_t language) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 10> tables{
        {{"Meridians", "_Meridians"},
         {"Elements", "_elements"},
         {"EnergyTypes", "_EnergyTypes"},
         {"GrafyTypy", "_GrafyTypy"},
         {"PointTypes", "_pointTypes"},
         {"ProblemTypes", "_ProblemTypes"},
         {"Skelet", "_skelet"},
         {"Therapy_APM", "_Therapy_APM"},
         {"Therapy_e", "_Therapy_e"},
         {"Therapy_m", "_Therapy_m"}}};
    Database& database = referenceDatabase(reference.session);
    for (const auto& [plain, sister] : tables) {
        const std::string name(plain);
        const std::int64_t rows = database.query("select count(*) as n from " + name).number("n");
        const std::int64_t translated =
            database
                .query("select count(*) as n from " + std::string(sister) + " where jazyk = ?",
                       {std::int64_t{language}})
                .number("n");
        if (rows != translated)
            reference.fault(name + ": " + std::to_string(translated) + " of " +
                            std::to_string(rows) + " rows have a text");
    }
}

void checkReference(Session& session, const fs::path& appFolder, const fs::path& scratch,
                    Faults& faults) {
    for (const std::string_view name : {names::referenceTcm, names::referenceApm}) {
        const bool opened = attempt([&] {
            copyFileOver(under(appFolder, name), scratch / name);
            session.referenceDb.emplace(scratch / name, referencePassword);
        });
        if (!opened) {
            faults.push_back(std::string(name) + " does not open");
            continue;
        }
        for (std::int16_t language = 1; language <= languageCount; ++language) {
            const Reference reference{
                session, std::string(name) + ", language " + std::to_string(language), faults};
            const bool ran = attempt([&] {
                nastavJazyk(*session.referenceDb, language);
                checkSets(reference);
                checkChartOrders(reference);
                checkWords(reference);
                checkTranslations(reference, language);
            });
            if (!ran)
                reference.fault("the tables cannot be asked");
        }
        session.referenceDb.reset();
    }
}

} // namespace

std::vector<std::string> checkInstallation(EvaluationContext& context,
                                           const std::filesystem::path& appFolder,
                                           const std::filesystem::path& scratch) {
    Faults faults;
    checkFiles(appFolder, faults);
    checkTexts(context, appFolder, faults);
    checkReference(context.session, appFolder, scratch, faults);
    return faults;
}

} // namespace vorna
