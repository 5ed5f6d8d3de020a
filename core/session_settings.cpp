#include "core/session_settings.h"

#include "core/file_names.h"
#include "core/number.h"
#include "core/settings_file.h"
#include "platform/failure.h"
#include "platform/files.h"

namespace vorna {
namespace {

std::string setting(const Session& session, std::string_view key) {
    return ReadIniValue(under(session.dataRoot, names::setup), "Global", key);
}

// A missing key, unreadable or too large a value and 0 all give the default.
std::int16_t numberOrDefault(const Session& session, const Locale& locale, std::string_view key,
                             std::int16_t whenZero) {
    std::int16_t value = 0;
    attempt([&] { value = roundToInt16(numberOfText(locale, setting(session, key))); });
    return value == 0 ? whenZero : value;
}

// The empty text gives the default; unreadable text gives 0.
std::int32_t numberUnlessEmpty(const Session& session, const Locale& locale, std::string_view key,
                               std::int32_t whenEmpty) {
    const std::string text = setting(session, key);
    if (text.empty())
        return whenEmpty;
    std::int32_t value = 0;
    attempt([&] { value = roundToInt32(numberOfText(locale, text)); });
    return value;
}

// As above, with what does not fit 16 bits left 0.
std::int16_t shortNumberUnlessEmpty(const Session& session, const Locale& locale,
                                    std::string_view key, std::int16_t whenEmpty) {
    std::int16_t value = 0;
    attempt([&] { value = roundToInt16(numberUnlessEmpty(session, locale, key, whenEmpty)); });
    return value;
}

} // namespace

void readScaleSettings(Session& session, const Locale& locale) {
    session.posunrez = setting(session, "posunrez");
    if (session.posunrez.empty())
        session.posunrez = "3";
    session.maxhod = numberOrDefault(session, locale, "maxhod", 4000);
    session.koeflog = numberOrDefault(session, locale, "koeflog", 1);
}

void readMeasuringTime(Session& session, const Locale& locale) {
    session.dobamer = shortNumberUnlessEmpty(session, locale, "dobamer", 40);
}

void readEvaluationSettings(Session& session, const Locale& locale) {
    session.koef = shortNumberUnlessEmpty(session, locale, "koef", 30);
    session.sklon = shortNumberUnlessEmpty(session, locale, "sklon", 100);
    session.odchylka = numberUnlessEmpty(session, locale, "odchylka", 0);
    session.rozstep = numberUnlessEmpty(session, locale, "rozstep", 50);
    session.posun = shortNumberUnlessEmpty(session, locale, "posun", 0);
}

} // namespace vorna
