#include "recommendation/meridian_therapy.h"

#include "acquisition/measurement_sets.h"
#include "core/reference_database.h"
#include "evaluation/scoring.h"
#include "platform/text.h"

namespace vorna {
namespace {

// How a proposal's point is looked up; 1 and 3 alike.
enum class MeridianType : std::int64_t { OnThePathway = 1, Paired = 2, AlsoOnThePathway = 3 };

Recordset queryPoint(Database& database, MeridianType type, std::int64_t pointType,
                     const std::string& code) {
    return database.query(std::string("select * from Qtherapy_m where ") +
                              (type == MeridianType::Paired ? "pairpointType" : "PointType") +
                              " = ? and meridian = ? order by pointLong, pairPointLong",
                          {pointType, code});
}

void fillRow(ListRow& row, const Recordset& point, MeridianType type, TreatedSide side,
             const Session& session) {
    const bool paired = type == MeridianType::Paired;
    const std::string pointLong = point.text(paired ? "pairPointLong" : "pointLong");
    row.tag = pointLong + sideDigit(side);
    row.setSubItem(pointLabelColumn, point.text(paired ? "pairShortName" : "shortName") +
                                         std::string(lastCharacters(pointLong, 2)) +
                                         (paired ? "" : " " + sideLabel(session, side)));
    row.setSubItem(proposalMeridianColumn, point.text("meridian"));
    row.setSubItem(meridianNameColumn, point.text("MeridianName"));
}

void appendProposal(EvaluationContext& context, const Recordset& therapy, std::int16_t meridian,
                    Proposals& proposals) {
    Session& session = context.session;
    const auto type = static_cast<MeridianType>(therapy.number("meridiantype"));
    if (type != MeridianType::OnThePathway && type != MeridianType::Paired &&
        type != MeridianType::AlsoOnThePathway)
        throw Failure("a proposal has no way to look up its point");
    const std::string extIndex = lookupSetPoint(session, meridian, context.state.CurrentKind,
                                                PointField::ExtIndex, SetKey::Slot);
    const Recordset point =
        queryPoint(referenceDatabase(session), type, therapy.number("PointType"),
                   std::string(firstCharacters(extIndex, 2)));
    point.requireRow();
    proposals.push_back({.text = therapy.text("therapytext")});
    const TreatedSide side = meridian <= pairDistance ? TreatedSide::Left : TreatedSide::Right;
    fillRow(proposals.back(), point, type, side, session);
    if (!therapy.isNull("adTherapyText"))
        proposals.back().setSubItem(additionalTextColumn, therapy.text("adTherapyText"));
}

} // namespace

void therapyMeridian(EvaluationContext& context, std::int16_t pkproblem, std::int16_t meridian,
                     Proposals& proposals) {
    Recordset therapies = referenceDatabase(context.session)
                              .query("select * from therapy_m where pkproblem = ? order by therapy",
                                     {std::int64_t{pkproblem}});
    therapies.requireRow();
    for (; !therapies.atEnd(); therapies.moveNext())
        appendProposal(context, therapies, meridian, proposals);
}

} // namespace vorna
