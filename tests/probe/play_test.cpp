#include "platform/failure.h"
#include "probe/play.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vorna {
namespace {

TEST(Play, AScriptHoldsEachReadingForItsTime) {
    const Play play = parseScript("# a touch\n1.5 0\r\n\n  2 1234\n0.5 9999 \n3 0");
    EXPECT_DOUBLE_EQ(lengthOf(play), 7);
    EXPECT_DOUBLE_EQ(play.lastPointFrom, 4);
    const std::pair<double, int> readings[] = {{0, 0},      {1.49, 0}, {1.5, 1234}, {3.49, 1234},
                                               {3.5, 9999}, {4, 0},    {6.9, 0},    {700, 0}};
    for (const auto& [seconds, reading] : readings)
        EXPECT_EQ(readingAt(play, seconds), reading) << seconds;
    EXPECT_EQ(readingAt(parseScript("1 77"), 5), 77); // the last one stays
}

TEST(Play, AFaultyScriptIsNamedByItsLine) {
    for (const char* text : {"1 0\n2", "1 0\n-1 5", "1 0\n1 10000", "1 0\n1 5 6", "1 0\nnan 5",
                             "1 0\none 5", "1 0\n1,5 6"})
        try {
            static_cast<void>(parseScript(text));
            ADD_FAILURE() << text;
        } catch (const Failure& failure) {
            EXPECT_NE(std::string(failure.what()).find("line 2 "), std::string::npos) << text;
        }
    EXPECT_THROW(parseScript(""), Failure);
    EXPECT_THROW(parseScript("# nothing\n"), Failure);
}

TEST(Play, AReadingIsWholeAndWhatTheProbeCanRead) {
    EXPECT_EQ(wholeReading(0.5), 0);
    EXPECT_EQ(wholeReading(9999.4), 9999);
    for (const double reading : {-0.6, 9999.6, std::nan("")})
        EXPECT_THROW(static_cast<void>(wholeReading(reading)), Failure) << reading;
}

TEST(Play, GoesEvenlyAndRepeatsItsEnd) {
    const Play play{.stretches = {{1, 0, 0}, {2, 100, 200}, {1, 0, 0}}, .repeatFrom = 1};
    EXPECT_EQ(readingAt(play, 2), 150);
    EXPECT_EQ(readingAt(play, 3.5), 0);
    EXPECT_EQ(readingAt(play, 4), 100);
    EXPECT_EQ(readingAt(play, 5), 150);
    EXPECT_EQ(readingAt(play, 8), 150);
}

} // namespace
} // namespace vorna
