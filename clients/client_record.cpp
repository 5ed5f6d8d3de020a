#include "clients/client_record.h"

#include "core/number.h"
#include "core/settings_file.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

#include <algorithm>
#include <cmath>

namespace vorna {
namespace {

constexpr auto millennium = std::chrono::local_days{std::chrono::year{2000} / 1 / 1};

// Seconds since midnight as a single-precision number, which has seven digits.
std::string secondsText(const Locale& locale, LocalTime now) {
    const auto midnight = std::chrono::floor<std::chrono::days>(now);
    const double seconds = std::chrono::duration<double>(now - midnight).count();
    double scale = 1e6; // 10^(7 digits - 1 before the point)
    for (double rest = seconds; rest >= 10; rest /= 10)
        scale /= 10;
    return numberText(locale, static_cast<float>(std::nearbyint(seconds * scale) / scale));
}

std::int64_t rowId(std::string_view id) {
    return roundToInt32(numberOfDecimalText(id));
}

std::vector<DatabaseValue> quotedValues(const std::vector<CardValue>& values) {
    std::vector<DatabaseValue> quoted;
    quoted.reserve(values.size());
    for (const CardValue& value : values)
        quoted.emplace_back(quotedText(value.text));
    return quoted;
}

} // namespace

std::string vratUnik(const Locale& locale, LocalTime now) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(now) - millennium;
    const std::int32_t a = roundToInt32(std::abs(static_cast<double>(seconds.count())));
    const std::string s = secondsText(locale, now);
    const std::int32_t b = roundToInt32(numberOfText(locale, s));
    return "a" + decimalText(std::int64_t{a} + b) + std::string(lastCharacters(s, 2));
}

std::string withoutSeconds(std::string_view zalozeni) {
    const bool hasSeconds = std::ranges::count(zalozeni, ':') == 2;
    return std::string(hasSeconds ? withoutLastCharacters(zalozeni, 3) : zalozeni);
}

std::filesystem::path clientFolder(const Session& session, std::string_view intid) {
    if (isForbiddenFileName(intid))
        throw Failure("a client's folder has no name that a folder can have");
    return under(session.clientsFolder, intid);
}

void insertClient(Session& session, const ClientCard& card, std::string_view zalozeni) {
    std::vector<CardValue> values = cardValues(card);
    values.push_back({"intid", card.intid.text});
    values.push_back({"zalozeni", std::string(zalozeni)});
    std::string columns;
    std::string places;
    for (const CardValue& value : values) {
        columns += (columns.empty() ? "" : ", ") + std::string(value.column);
        places += places.empty() ? "?" : ", ?";
    }
    clientDatabase(session).execute("insert into klienti (" + columns + ") values (" + places + ")",
                                    quotedValues(values));
}

void updateClient(Session& session, const ClientCard& card, std::string_view id) {
    const std::vector<CardValue> values = cardValues(card);
    std::string changes;
    for (const CardValue& value : values)
        changes += (changes.empty() ? "" : ", ") + std::string(value.column) + " = ?";
    std::vector<DatabaseValue> bound = quotedValues(values);
    bound.emplace_back(rowId(id));
    clientDatabase(session).execute("update klienti set " + changes + " where id = ?", bound);
}

Recordset queryClient(Session& session, std::string_view id) {
    Recordset row =
        clientDatabase(session).query("select * from klienti where id = ?", {rowId(id)});
    row.requireRow();
    return row;
}

void deleteClientRow(Session& session, std::string_view id) {
    clientDatabase(session).execute("delete from klienti where id = ?", {rowId(id)});
}

void writeKlientDat(const std::filesystem::path& file, const ClientCard& card) {
    std::vector<IniValue> values;
    for (const char* const key :
         {"prijmeni", "intid", "jmeno", "titulpred", "titulza", "adresa", "stav", "email",
          "telefon", "pohlavi", "narozeni", "rc", "adresa2", "povolani", "telefon2", "zalozeni"})
        values.push_back({key, cardValue(card, key)});
    WriteIniValues(file, "global", values);
}

} // namespace vorna
