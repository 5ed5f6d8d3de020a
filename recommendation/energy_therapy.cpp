#include "recommendation/energy_therapy.h"

#include "acquisition/measurement_sets.h"
#include "core/number.h"
#include "core/reference_database.h"
#include "evaluation/scoring.h"
#include "platform/text.h"

#include <optional>

namespace vorna {
namespace {

constexpr std::int16_t sidesDiffer = 1;
constexpr std::int16_t below = 2;
constexpr std::int16_t above = 3;
constexpr int luoPoint = 16;

Recordset queryPoints(Database& database, std::int16_t problem, const std::string& lecenaDraha) {
    if (problem == sidesDiffer)
        return database.query(
            "select SpecPoints.pkMeridian, SpecPoints.pointLong as lecBod, SpecPoints.PointType,"
            " Meridians.shortName, Meridians.MeridianName from SpecPoints"
            " inner join Meridians on SpecPoints.pkMeridian = Meridians.meridian"
            " where SpecPoints.pkMeridian = ? and SpecPoints.PointType = ?"
            " order by SpecPoints.pointLong",
            {quotedText(lecenaDraha), std::int64_t{luoPoint}});
    return database.query(
        "select QTherapy_e.therapyText, Meridians.meridian, Meridians.MeridianName,"
        " Meridians.shortName, Points.pointLong as lecBod"
        " from (QTherapy_e inner join Meridians on QTherapy_e.kde = Meridians.Element)"
        " inner join Points on Meridians.meridian = Points.Meridian"
        " and QTherapy_e.povelBodu = Points.Povel"
        " where QTherapy_e.Problem = ? and QTherapy_e.lecenaDraha = ?"
        " and Meridians.Energy = QTherapy_e.Energy"
        " and not (coalesce(QTherapy_e.kdeP, 1) = 0"
        " and QTherapy_e.lecenaDraha <> Meridians.meridian)"
        " order by QTherapy_e.therapy, Meridians.meridian, Points.pointLong",
        {std::int64_t{problem}, quotedText(lecenaDraha)});
}

// The level of the whole measurement in chart units; a value that cannot be scaled counts as 0.
std::int32_t levelOf(const StoredValues& values, std::int16_t koef) {
    std::int32_t sum = 0;
    for (const std::int16_t value : scaledValues(values, koef))
        sum += value;
    return roundToInt16(sum / static_cast<double>(slotCount));
}

// The sides of the pathway whose values call for a treatment. A side that cannot be compared is
// left out.
std::vector<TreatedSide> sidesToTreat(EvaluationContext& context, std::int16_t problem,
                                      const std::string& lecenaDraha) {
    Session& session = context.session;
    const StoredValues& values = context.state.CurrentRecord.values;
    // The slots of the first set say where a pathway stands, whatever set was measured.
    const std::size_t n = slotOfText(vratCisloUlozeni(session, lecenaDraha, setP));
    const auto left = [&] { return ScaledValue(values.at(n), session.koef); };
    const auto right = [&] { return ScaledValue(values.at(n + pairDistance), session.koef); };
    std::vector<TreatedSide> sides;
    if (problem == sidesDiffer) {
        if (left() < right())
            sides.push_back(TreatedSide::Left);
        else if (left() > right())
            sides.push_back(TreatedSide::Right);
        return sides;
    }
    const double level = levelOf(values, session.koef);
    const auto treatIf = [&](TreatedSide side, const auto& value) {
        attempt([&] {
            if (problem == below && value() < roundToInt32(level - session.odchylka))
                sides.push_back(side);
            if (problem == above && value() > roundToInt32(level + session.odchylka))
                sides.push_back(side);
        });
    };
    treatIf(TreatedSide::Left, left);
    treatIf(TreatedSide::Right, right);
    return sides;
}

// What stands behind the text; a step that fails leaves its column empty.
void fillRow(ListRow& row, const Recordset& point, TreatedSide side, const Session& session) {
    attempt([&] {
        const std::string lecbod = point.text("lecBod");
        row.setSubItem(pointLabelColumn, point.text("shortName") +
                                             std::string(lastCharacters(lecbod, 2)) + " " +
                                             sideLabel(session, side));
    });
    // The query for sides that differ has no such column: the row stays without a pathway picture.
    attempt([&] { row.setSubItem(proposalMeridianColumn, point.text("meridian")); });
    attempt([&] { row.setSubItem(meridianNameColumn, point.text("MeridianName")); });
    attempt([&] { row.tag = point.text("lecBod") + sideDigit(side); });
}

} // namespace

void therapyEnergy(EvaluationContext& context, std::int16_t problem, std::string& lecenaDraha,
                   Proposals& proposals) {
    Session& session = context.session;
    static_cast<void>(numberOfDecimalText(lecenaDraha));
    std::optional<Recordset> sidesDifferText; // one text for all rows
    if (problem == sidesDiffer) {
        sidesDifferText.emplace(
            referenceDatabase(session).query("select * from therapy_e where problem = ?"
                                             " order by therapy",
                                             {std::int64_t{problem}}));
        sidesDifferText->requireRow();
    }
    if (characters(lecenaDraha, 2, 1).empty())
        lecenaDraha = "0" + lecenaDraha;
    attempt([&] {
        const std::vector<TreatedSide> sides = sidesToTreat(context, problem, lecenaDraha);
        Recordset points = queryPoints(referenceDatabase(session), problem, lecenaDraha);
        for (; !points.atEnd(); points.moveNext())
            for (const TreatedSide side : sides)
                attempt([&] { // a proposal without a text is none
                    const Recordset& texts = sidesDifferText ? *sidesDifferText : points;
                    proposals.push_back({.text = texts.text("therapyText")});
                    fillRow(proposals.back(), points, side, session);
                });
    });
}

} // namespace vorna
