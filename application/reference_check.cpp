#include "application/reference_check.h"

#include "acquisition/measurement_sets.h"
#include "application/main_window.h"
#include "application/picture_check.h"
#include "application/translation_check.h"
#include "core/file_names.h"
#include "core/reference_database.h"
#include "evaluation/scoring.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "recommendation/energy_therapy.h"
#include "recommendation/meridian_therapy.h"

#include <algorithm>
#include <array>
#include <set>

namespace vorna {
namespace {

using Faults = std::vector<std::string>;

// ---- Lookups

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

// ---- Proposals

// A measurement at one level but for one side of a pathway, which calls for the problem.
StoredValues valuesThatCallFor(int problem, std::size_t slot, std::int16_t koef) {
    constexpr int level = 100;
    constexpr int deviation = 60;
    StoredValues values{};
    std::fill(values.begin() + 1, values.end(), level * koef);
    values.at(slot) += (problem == 3 ? deviation : -deviation) * koef;
    return values;
}

bool areWhole(const Proposals& proposals) {
    return std::none_of(proposals.begin(), proposals.end(), [](const ListRow& row) {
        return row.text.empty() || row.subItem(pointLabelColumn).empty() || row.tag.empty();
    });
}

void checkEnergyProposals(const Reference& reference, EvaluationContext& context, int code) {
    std::string meridian = (code < 10 ? "0" : "") + std::to_string(code);
    const std::size_t left = slotOfText(vratCisloUlozeni(context.session, meridian, setP));
    for (int problem = 1; problem <= 3; ++problem) {
        for (const std::size_t slot : {left, left + pairDistance}) {
            context.state.CurrentRecord.values =
                valuesThatCallFor(problem, slot, context.session.koef);
            Proposals proposals;
            attempt([&] {
                therapyEnergy(context, static_cast<std::int16_t>(problem), meridian, proposals);
            });
            const std::string here =
                " proposal for problem " + std::to_string(problem) + " of meridian " + meridian;
            if (proposals.empty())
                reference.fault("no energy" + here);
            if (!areWhole(proposals))
                reference.fault("an energy" + here + " has no text or point");
        }
    }
}

void checkMeridianProposals(const Reference& reference, EvaluationContext& context, int slot) {
    for (int sada = setP; sada <= setE; ++sada) {
        for (int problem = 1; problem <= 3; ++problem) {
            context.state.CurrentKind = static_cast<std::int16_t>(sada);
            Proposals proposals;
            const bool whole = attempt([&] {
                therapyMeridian(context, static_cast<std::int16_t>(problem),
                                static_cast<std::int16_t>(slot), proposals);
            });
            if (!whole || proposals.empty() || !areWhole(proposals))
                reference.fault("the proposals for problem " + std::to_string(problem) +
                                " of slot " + std::to_string(slot) + " in set " +
                                std::to_string(sada) + " end at a point that is not there");
        }
    }
}

void checkProposals(const Reference& reference, EvaluationContext& context) {
    for (int code = 1; code <= 12; ++code)
        checkEnergyProposals(reference, context, code);
    for (int slot = 1; slot <= slotCount; ++slot)
        checkMeridianProposals(reference, context, slot);
}

} // namespace

void checkReferences(EvaluationContext& context, const std::filesystem::path& appFolder,
                     const std::filesystem::path& scratch, std::vector<std::string>& faults) {
    Session& session = context.session;
    for (const std::string_view name : {names::referenceTcm, names::referenceApm}) {
        session.modeFolder =
            under(appFolder, name == names::referenceTcm ? names::rezimTcm : names::rezimApm);
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
                checkTranslations(*session.referenceDb, language, reference.where, faults);
                checkProposals(reference, context);
            });
            if (!ran)
                reference.fault("the tables cannot be asked");
        }
        if (!attempt([&] { checkPictures(session, faults); }))
            faults.push_back(std::string(name) + ": the pictures cannot be asked for");
        session.referenceDb.reset();
    }
}

} // namespace vorna
