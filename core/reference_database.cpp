#include "core/reference_database.h"

#include "platform/text.h"

#include <array>

namespace vorna {
namespace {

// The steps of the switch. ?1 is the language. The short name is first reset to the language's
// own, then extended: English names get a blank, all others a slash, the English name and a blank.
constexpr const char* resetMeridians =
    R"(update Meridians set meridianName = l."j-meridianName", shortName = l."j-shortName",
         "descr-short" = l."j-descr-short", description = l."j-description"
       from _Meridians l where l."j-meridian" = Meridians.meridian and l.jazyk = ?1)";
constexpr const char* extendShortNameByBlank =
    R"(update Meridians set shortName = coalesce(shortName, '') || ' '
       from _Meridians l where l."j-meridian" = Meridians.meridian and l.jazyk = 2)";
constexpr const char* extendShortNameByEnglish =
    R"(update Meridians set shortName =
         coalesce(shortName, '') || '/' || coalesce(l."j-shortName", '') || ' '
       from _Meridians l where l."j-meridian" = Meridians.meridian and l.jazyk = 2)";
constexpr std::array restOfSwitch{
    R"(update Elements set elementname = l."j-elementname", elementcolor = l."j-elementcolor"
       from _elements l where l."j-id" = Elements.id and l.jazyk = ?1)",
    R"(update EnergyTypes set energy = l."j-energy"
       from _EnergyTypes l where l."j-id" = EnergyTypes.id and l.jazyk = ?1)",
    R"(update GrafyTypy set nazevGrafu = l."j-nazevGrafu", nazevSloupce = l."j-nazevSloupce"
       from _GrafyTypy l where l."j-id" = GrafyTypy.id and l."j-sloupec" = GrafyTypy.sloupec
         and l.jazyk = ?1)",
    R"(update Points set descr = l."j-descr"
       from _Points l where l."j-pointLong" = Points.pointLong and l.jazyk = ?1)",
    R"(update PointTypes set type = l."j-type"
       from _pointTypes l where l."j-id" = PointTypes.id and l.jazyk = ?1)",
    R"(update ProblemTypes set descr = l."j-descr"
       from _ProblemTypes l where l."j-problem" = ProblemTypes.problem and l.jazyk = ?1)",
    R"(update Skelet set hodnota = l."j-hodnota"
       from _skelet l where l."j-ID" = Skelet.ID and l.jazyk = ?1)",
    R"(update Therapy_APM set text = l."j-text"
       from _Therapy_APM l where l."j-graf" = Therapy_APM.graf
         and l."j-column" = Therapy_APM."column" and l.jazyk = ?1)",
    R"(update Therapy_e set therapyText = l."j-therapyText"
       from _Therapy_e l where l."j-therapy" = Therapy_e.therapy and l.jazyk = ?1)",
    R"(update Therapy_m set therapyText = l."j-therapytext", adTherapyText = l."j-adtherapytext"
       from _Therapy_m l where l."j-therapy" = Therapy_m.therapy and l.jazyk = ?1)",
};

std::string firstRow(Database& database, std::string_view statement,
                     const std::vector<DatabaseValue>& values, std::string_view column) {
    return database.query(statement, values).text(column);
}

// The point that a text names, as a value of a statement.
std::string pointKey(std::string_view text) {
    return quotedText(firstCharacters(text, 4));
}

} // namespace

void nastavJazyk(Database& database, std::int16_t language) {
    const std::vector<DatabaseValue> values{std::int64_t{language}};
    // One transaction: the switch costs one flush to the disk, and a start that is cut off leaves
    // the previous language whole.
    Transaction transaction(database);
    attempt([&] { database.execute(resetMeridians, values); });
    attempt([&] {
        database.execute(language == languageEnglish ? extendShortNameByBlank
                                                     : extendShortNameByEnglish);
    });
    for (const char* const step : restOfSwitch)
        attempt([&] { database.execute(step, values); });
    transaction.commit();
}

ReferenceReading::ReferenceReading(Session& session) {
    attempt([&] {
        Database& database = referenceDatabase(session);
        database.executeScript("begin");
        database_ = &database;
    });
}

ReferenceReading::~ReferenceReading() {
    if (database_ != nullptr)
        attempt([&] { database_->executeScript("commit"); });
}

std::string vratSkelet(Session& session, std::int64_t id) {
    return firstRow(referenceDatabase(session), "select * from Skelet where ID = ?", {id},
                    "hodnota");
}

std::string vratElement(Session& session, std::int64_t id) {
    return firstRow(referenceDatabase(session), "select * from Elements where id = ?", {id},
                    "elementname");
}

std::string vratTypBodu(Session& session, std::string_view pointLong) {
    Recordset rows = referenceDatabase(session).query(
        "select PointTypes.type from Points"
        " join SpecPoints on Points.pointLong = SpecPoints.pointLong"
        " join PointTypes on SpecPoints.PointType = PointTypes.id where Points.pointLong = ?",
        {quotedText(pointLong)});
    std::string types;
    for (; !rows.atEnd(); rows.moveNext())
        types += (types.empty() ? "" : ", ") + rows.text("type");
    return types;
}

std::string vratTherapyApm(Session& session, int graf, int column) {
    return firstRow(referenceDatabase(session),
                    R"(select * from Therapy_APM where graf = ? and "column" = ?)",
                    {std::int64_t{graf}, std::int64_t{column}}, "text");
}

std::string vratProblem(Session& session, int problem) {
    return firstRow(referenceDatabase(session), "select * from ProblemTypes where problem = ?",
                    {std::int64_t{problem}}, "descr");
}

std::int64_t vratIdKlienta(Session& session, std::string_view intid) {
    return clientDatabase(session)
        .query("select * from klienti where intid = ?", {quotedText(intid)})
        .number("id");
}

std::string vratNazevGrafu(Session& session, int id) {
    return upperCase(firstRow(referenceDatabase(session), "select * from GrafyTypy where id = ?",
                              {std::int64_t{id}}, "nazevGrafu"));
}

std::string vratPopisBodu(Session& session, std::string_view text) {
    return firstRow(referenceDatabase(session), "select * from Points where pointLong = ?",
                    {pointKey(text)}, "descr");
}

std::string vratChinaBodu(Session& session, std::string_view text) {
    return firstRow(referenceDatabase(session), "select * from Points where pointLong = ?",
                    {pointKey(text)}, "china");
}

} // namespace vorna
