#include "core/session_settings.h"
#include "tests/support/workplace.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

TEST(SessionSettings, EachWayOfReadingHasItsEdges) {
    struct Case {
        const char* rule;
        const char* text; // of every key
        const char* posunrez;
        int maxhod, koeflog, dobamer, koef, sklon, odchylka, rozstep, posun;
    };
    const Case cases[] = {
        {"empty: the defaults", "", "3", 4000, 1, 40, 30, 100, 0, 50, 0},
        {"an explicit 0", "0", "0", 4000, 1, 0, 0, 0, 0, 0, 0},
        {"unreadable", "x", "x", 4000, 1, 0, 0, 0, 0, 0, 0},
        {"a number", "12", "12", 12, 12, 12, 12, 12, 12, 12, 12},
        {"negative", "-5", "-5", -5, -5, -5, -5, -5, -5, -5, -5},
        {"a tie in the locale's notation", "2,5", "2,5", 2, 2, 2, 2, 2, 2, 2, 2},
        {"rounds to 0", "0,5", "0,5", 4000, 1, 0, 0, 0, 0, 0, 0},
        {"the notation of another machine", "2.5", "2.5", 4000, 1, 0, 0, 0, 0, 0, 0},
        {"beyond 16 bits", "32768", "32768", 4000, 1, 0, 0, 0, 32768, 32768, 0},
        {"beyond 32 bits", "2147483648", "2147483648", 4000, 1, 0, 0, 0, 0, 0, 0},
    };
    const Workplace place;
    const Locale locale = localeByName("cs_CZ");
    for (const Case& c : cases) {
        SCOPED_TRACE(c.rule);
        std::string bytes = "[global]\n";
        for (const char* const key : {"posunrez", "maxhod", "koeflog", "dobamer", "koef", "sklon",
                                      "odchylka", "rozstep", "posun"})
            bytes += std::string(key) + "=" + c.text + "\n";
        place.folder.write("VORNA/setup.ini", bytes);
        Session session{.dataRoot = place.session.dataRoot};
        readScaleSettings(session, locale);
        readMeasuringTime(session, locale);
        readEvaluationSettings(session, locale);
        EXPECT_EQ(session.posunrez, c.posunrez);
        EXPECT_EQ(session.maxhod, c.maxhod);
        EXPECT_EQ(session.koeflog, c.koeflog);
        EXPECT_EQ(session.dobamer, c.dobamer);
        EXPECT_EQ(session.koef, c.koef);
        EXPECT_EQ(session.sklon, c.sklon);
        EXPECT_EQ(session.odchylka, c.odchylka);
        EXPECT_EQ(session.rozstep, c.rozstep);
        EXPECT_EQ(session.posun, c.posun);
    }
}

} // namespace
} // namespace vorna
