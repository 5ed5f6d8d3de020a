#include "content/proposal_table.h"

#include "platform/failure.h"
#include "platform/text.h"

#include <functional>
#include <vector>

namespace vorna {
namespace {

constexpr int problems = 3;
constexpr std::int64_t sidesDiffer = 1;
constexpr std::int64_t luoPoint = 16;
constexpr std::int64_t paired = 2; // the meridiantype of a paired point

// One proposal: a column of the table of its problem.
struct Rule {
    std::string name; // "E2", "M21"
    std::string text;
    std::string additionalText;
    // The labels of its points on a pathway.
    std::function<std::string(const std::string& meridian)> points;
};

struct Pathway {
    std::string meridian;
    std::string name;
};

// "LU 9" of the short name "LU " and the key "0109".
std::string labelOf(const Recordset& row, std::string_view shortName, std::string_view pointLong) {
    std::string number(lastCharacters(row.text(pointLong), 2));
    if (number.starts_with('0'))
        number.erase(0, 1);
    return row.text(shortName) + number;
}

std::string joined(Recordset rows, std::string_view shortName, std::string_view pointLong) {
    std::string labels;
    for (rows.requireRow(); !rows.atEnd(); rows.moveNext())
        labels += (labels.empty() ? "" : ", ") + labelOf(rows, shortName, pointLong);
    return labels;
}

Rule energyRule(Database& reference, const Recordset& row, std::int64_t problem) {
    const std::int64_t therapy = row.number("therapy");
    Rule rule{.name = "E" + std::to_string(therapy), .text = row.text("therapyText")};
    if (problem == sidesDiffer)
        rule.points = [&reference](const std::string& meridian) {
            return joined(reference.query("select m.shortName, s.pointLong from SpecPoints s"
                                          " join Meridians m on m.meridian = s.pkMeridian"
                                          " where s.pkMeridian = ? and s.PointType = ?",
                                          {meridian, luoPoint}),
                          "shortName", "pointLong");
        };
    else
        rule.points = [&reference, therapy](const std::string& meridian) {
            return joined(
                reference.query("select m.shortName, p.pointLong from QTherapy_e q"
                                " join Meridians m on m.Element = q.kde"
                                " and m.Energy = q.Energy"
                                " join Points p on p.Meridian = m.meridian"
                                " and p.Povel = q.povelBodu"
                                " where q.therapy = ? and q.lecenaDraha = ?"
                                " and (coalesce(q.kdeP, 1) <> 0 or m.meridian = q.lecenaDraha)"
                                " order by p.pointLong",
                                {therapy, meridian}),
                "shortName", "pointLong");
        };
    return rule;
}

Rule meridianRule(Database& reference, const Recordset& row) {
    const bool isPaired = row.number("meridiantype") == paired;
    const std::int64_t kind = row.number("PointType");
    return {.name = "M" + std::to_string(row.number("therapy")),
            .text = row.text("therapyText"),
            .additionalText = row.textOrEmpty("adTherapyText"),
            .points = [&reference, isPaired, kind](const std::string& meridian) {
                const Recordset point = reference.query(
                    std::string("select * from Qtherapy_m where ") +
                        (isPaired ? "pairpointType" : "PointType") + " = ? and meridian = ?",
                    {kind, meridian});
                return isPaired ? labelOf(point, "pairShortName", "pairPointLong")
                                : labelOf(point, "shortName", "pointLong");
            }};
}

std::vector<Rule> rulesOf(Database& reference, std::int64_t problem) {
    std::vector<Rule> rules;
    Recordset energy =
        reference.query("select * from Therapy_e where problem = ? order by therapy", {problem});
    for (; !energy.atEnd(); energy.moveNext())
        rules.push_back(energyRule(reference, energy, problem));
    Recordset meridian =
        reference.query("select * from Therapy_m where pkproblem = ? order by therapy", {problem});
    for (; !meridian.atEnd(); meridian.moveNext())
        rules.push_back(meridianRule(reference, meridian));
    return rules;
}

std::vector<Pathway> pathways(Database& reference) {
    std::vector<Pathway> found;
    Recordset rows = reference.query("select * from Meridians where Element > 0 order by meridian");
    for (; !rows.atEnd(); rows.moveNext())
        found.push_back({rows.text("meridian"), rows.text("meridianName")});
    return found;
}

std::string problemSection(const std::vector<Rule>& rules, const std::vector<Pathway>& meridians) {
    std::string page = "| Proposal | Text | Reason or caution |\n|---|---|---|\n";
    std::string header = "| Meridian |";
    std::string line = "|---|";
    for (const Rule& rule : rules) {
        page += "| " + rule.name + " | " + rule.text + " | " + rule.additionalText + " |\n";
        header += " " + rule.name + " |";
        line += "---|";
    }
    page += "\n" + header + "\n" + line + "\n";
    for (const Pathway& pathway : meridians) {
        page += "| " + pathway.name + " |";
        for (const Rule& rule : rules)
            page += " " + rule.points(pathway.meridian) + " |";
        page += "\n";
    }
    return page;
}

} // namespace

std::string proposalTable(Database& reference) {
    std::string page = "# Proposals\n\n"
                       "Made by `vorna-content proposals` from the tables of the installation.\n"
                       "E: energy therapy, offered in the element chart. M: meridian therapy,\n"
                       "offered in the other charts, in this order.\n";
    for (std::int64_t problem = 1; problem <= problems; ++problem) {
        const std::string name =
            reference.query("select descr from ProblemTypes where problem = ?", {problem})
                .text("descr");
        page += "\n## Problem " + std::to_string(problem) + ": " + name + "\n\n" +
                problemSection(rulesOf(reference, problem), pathways(reference));
    }
    return page;
}

} // namespace vorna
