#include "core/reference_database.h"

#include "platform/text.h"

#include <vector>

namespace vorna {
namespace {

// The steps of the switch. ?1 is the language. Each writes only the rows that are not in it yet, so
// that a start in the language of the one before leaves the file alone.
//
// A short name is first reset to the language's own, then extended: English names get a blank, all
// others a slash, the English name and a blank. Where nothing was reset, for want of a row or
// because that step failed (then ?2 is 0), the name is extended every time.
constexpr const char* resetMeridians =
    R"(update Meridians set meridianName = l."j-meridianName", shortName = l."j-shortName",
         "descr-short" = l."j-descr-short", description = l."j-description"
       from _Meridians l where l."j-meridian" = Meridians.meridian and l.jazyk = ?1
         and (Meridians.meridianName is not l."j-meridianName"
           or Meridians."descr-short" is not l."j-descr-short"
           or Meridians.description is not l."j-description"
           or Meridians.shortName is not coalesce(
             (select coalesce(l."j-shortName", '') || case ?1 when 2 then ' '
                     else '/' || coalesce(e."j-shortName", '') || ' ' end
              from _Meridians e where e."j-meridian" = l."j-meridian" and e.jazyk = 2),
             l."j-shortName")))";
constexpr const char* extendShortNames =
    R"(update Meridians set shortName = coalesce(Meridians.shortName, '') || case ?1 when 2 then ' '
                     else '/' || coalesce(e."j-shortName", '') || ' ' end
       from _Meridians e left join _Meridians own
         on own."j-meridian" = e."j-meridian" and own.jazyk = ?1
       where e."j-meridian" = Meridians.meridian and e.jazyk = 2
         and (not ?2 or own."j-meridian" is null
           or Meridians.shortName is own."j-shortName"))";

// A plain table, its sister of all languages, and the columns that find and hold a row's texts; a
// column's name in the sister table has j- in front.
struct Translation {
    std::string_view table;
    std::string_view sister;
    std::vector<std::string_view> keys;
    std::vector<std::string_view> texts;
};

const std::vector<Translation>& translations() {
    static const std::vector<Translation> all{
        {"Elements", "_elements", {"id"}, {"elementname", "elementcolor"}},
        {"EnergyTypes", "_EnergyTypes", {"id"}, {"energy"}},
        {"GrafyTypy", "_GrafyTypy", {"id", "sloupec"}, {"nazevGrafu", "nazevSloupce"}},
        {"Points", "_Points", {"pointLong"}, {"descr"}},
        {"PointTypes", "_pointTypes", {"id"}, {"type"}},
        {"ProblemTypes", "_ProblemTypes", {"problem"}, {"descr"}},
        {"Skelet", "_skelet", {"ID"}, {"hodnota"}},
        {"Therapy_APM", "_Therapy_APM", {"graf", "column"}, {"text"}},
        {"Therapy_e", "_Therapy_e", {"therapy"}, {"therapyText"}},
        {"Therapy_m", "_Therapy_m", {"therapy"}, {"therapyText", "adTherapyText"}},
    };
    return all;
}

// Brings the rows of the table that are not in the language into it.
std::string stepOf(const Translation& translation) {
    const std::string table(translation.table);
    const auto quoted = [](const std::string& name) { return "\"" + name + "\""; };
    const auto here = [&](std::string_view column) {
        return table + "." + quoted(std::string(column));
    };
    const auto there = [&](std::string_view column) {
        return "l." + quoted("j-" + std::string(column));
    };
    std::string set;
    std::string differs;
    for (const std::string_view text : translation.texts) {
        set += (set.empty() ? "" : ", ") + quoted(std::string(text)) + " = " + there(text);
        differs += (differs.empty() ? "" : " or ") + here(text) + " is not " + there(text);
    }
    std::string found = "l.jazyk = ?1";
    for (const std::string_view key : translation.keys)
        found += " and " + there(key) + " = " + here(key);
    return "update " + table + " set " + set + " from " + std::string(translation.sister) +
           " l where " + found + " and (" + differs + ")";
}

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
    // One transaction: the switch costs at most one flush to the disk, and a start that is cut off
    // leaves the previous language whole.
    Transaction transaction(database);
    const bool reset = attempt([&] { database.execute(resetMeridians, values); });
    std::vector<DatabaseValue> extension = values;
    extension.emplace_back(std::int64_t{reset ? 1 : 0});
    attempt([&] { database.execute(extendShortNames, extension); });
    for (const Translation& translation : translations())
        attempt([&] { database.execute(stepOf(translation), values); });
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
