#include "content/sample_client.h"

#include "acquisition/measurement_name.h"
#include "acquisition/measurement_record.h"
#include "content/table_source.h"
#include "core/file_names.h"
#include "core/number.h"
#include "core/session.h"
#include "core/settings_file.h"
#include "platform/database.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <system_error>

namespace vorna {
namespace {

// Stored value per chart unit, as the settings are shipped.
constexpr std::int32_t shippedKoef = 30;

// The keys of klient.dat in the order in which a save writes them. All but the gender are columns
// of the client's row, too.
constexpr std::string_view genderKey = "pohlavi";
constexpr std::string_view foundedKey = "zalozeni";
constexpr std::array<std::string_view, 16> clientKeys{
    "prijmeni", "intid",   "jmeno",    "titulpred", "titulza", "adresa",   "stav",     "email",
    "telefon",  genderKey, "narozeni", "rc",        "adresa2", "povolani", "telefon2", foundedKey};

// The client's texts by key.
using ClientTexts = std::map<std::string, std::string, std::less<>>;

ClientTexts readClient(const fs::path& file) {
    const TableSource table = readTable(file);
    if (table.rows.size() != 1)
        failAt(table.header, "one row is wanted below this line");
    ClientTexts texts;
    for (const std::string_view key : clientKeys)
        texts.emplace(key, table.text(table.rows.front(), key));
    if (isForbiddenFileName(texts.at("intid")))
        failAt(table.placeOf(table.rows.front()), "intid is no folder name");
    return texts;
}

bool hasClient(Database& database, const ClientTexts& client) {
    return !database.query("select 1 from klienti where intid = ?", {client.at("intid")}).atEnd();
}

void addRow(Database& database, const ClientTexts& client) {
    std::string columns;
    std::string marks;
    std::vector<DatabaseValue> values;
    for (const std::string_view key : clientKeys) {
        if (key == genderKey)
            continue;
        columns.append(columns.empty() ? "" : ", ").append(key);
        marks += marks.empty() ? "?" : ", ?";
        values.emplace_back(client.at(std::string(key)));
    }
    database.execute("insert into klienti (" + columns + ") values (" + marks + ")", values);
}

// klient.dat begins as a copy of the practitioner's settings. Its founding date has no seconds.
void writeKlientDat(const fs::path& dataRoot, const fs::path& file, const ClientTexts& client) {
    std::string start;
    attempt([&] { start = readWholeFile(dataRoot / names::user); });
    naming(file, [&] {
        writeFileAtomically(file, start);
        for (const std::string_view key : clientKeys) {
            const std::string& text = client.at(std::string(key));
            WriteIniValue(file, "global", key,
                          key == foundedKey ? withoutLastCharacters(text, 3) : text);
        }
    });
}

// What the set chooser shows for the set of a kind letter.
std::string setLabel(const fs::path& sources, std::string_view kind) {
    constexpr std::array<std::string_view, 4> keys{"t126", "t127", "t128", "t145"};
    const auto set = static_cast<std::size_t>(setOfKindLetter(kind));
    return ReadIniValue(sources / "lang" / names::languageFile(languageEnglish), "other",
                        keys.at(set - 1));
}

// Twelve digits yyMMddHHmmss.
LocalTime measurementTime(std::string_view digits, const SourcePlace& place) {
    const auto two = [&](std::size_t position) {
        return std::string(characters(digits, position, 2));
    };
    const std::optional<LocalTime> time = parseTime("20" + two(1) + "-" + two(3) + "-" + two(5) +
                                                    "T" + two(7) + ":" + two(9) + ":" + two(11));
    if (!time || digits.size() != 12)
        failAt(place, "the time is not twelve digits of a moment");
    return *time;
}

std::int32_t storedValue(const std::string& text, const SourcePlace& place) {
    std::int32_t stored = 0;
    if (!attempt([&] { stored = roundToInt32(numberOfDecimalText(text) * shippedKoef); }))
        failAt(place, "\"" + text + "\" is no value");
    return stored;
}

void writeSampleMeasurement(const SampleClientPlan& plan, const ClientTexts& client,
                            const TableSource& table, const SourceRow& row) {
    const SourcePlace place = table.placeOf(row);
    const std::string kind = table.text(row, "kind");
    const std::string mode = table.text(row, "mode");
    if (kind != std::string(1, kindLetterOfSet(setOfKindLetter(kind))))
        failAt(place, "the kind is none of P, T, B and E");
    if (mode != "A" && mode != "T")
        failAt(place, "the mode is neither A nor T");

    MeasurementRecord record{.setLabel = setLabel(plan.sources, kind)};
    for (std::size_t slot = 1; slot <= slotCount; ++slot)
        record.values[slot] = storedValue(table.text(row, "v" + std::to_string(slot)), place);
    const std::string name = formatMeasurementName(
        {.time = measurementTime(table.text(row, "time"), place),
         .kindLetter = kind.front(),
         .clientLabel = clientLabel(client.at("prijmeni"), client.at("jmeno")),
         .practitioner = table.text(row, "practitioner"),
         .modeLetter = mode.front()});
    const fs::path file = plan.dataRoot / names::data / client.at("intid") / name;
    naming(file, [&] { writeMeasurementFile(file, record); });
}

} // namespace

bool addSampleClient(const SampleClientPlan& plan) {
    const ClientTexts client = readClient(plan.sources / "sample" / "sample_client.tsv");
    const TableSource measurements = readTable(plan.sources / "sample" / "measurements.tsv");
    const fs::path databaseFile = plan.dataRoot / names::clients;
    Database database = naming(databaseFile, [&] { return Database(databaseFile); });
    if (naming(databaseFile, [&] { return hasClient(database, client); }))
        return false;

    const fs::path folder = plan.dataRoot / names::data / client.at("intid");
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
        throw Failure(pathText(folder) + ": the folder cannot be made");
    writeKlientDat(plan.dataRoot, folder / names::klientDat, client);
    for (const SourceRow& row : measurements.rows)
        writeSampleMeasurement(plan, client, measurements, row);
    naming(databaseFile, [&] { addRow(database, client); });
    return true;
}

} // namespace vorna
