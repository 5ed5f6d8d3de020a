#include "acquisition/value_conversion.h"
#include "platform/failure.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

Session sessionWith(std::int16_t posun, std::int16_t sklon, std::int16_t koef = 30) {
    Session session;
    session.posun = posun;
    session.sklon = sklon;
    session.koef = koef;
    return session;
}

Session curve(std::int16_t koeflog, std::int16_t maxhod) {
    Session session;
    session.koeflog = koeflog;
    session.maxhod = maxhod;
    return session;
}

TEST(ValueConversion, ContactIsStrictlyAboveTheZeroPoint) {
    const Session session = sessionWith(1030, 100);
    EXPECT_FALSE(hasContact(session, 1029));
    EXPECT_FALSE(hasContact(session, 1030));
    EXPECT_TRUE(hasContact(session, 1031));
}

TEST(ValueConversion, FollowsTheChainOfAValue) {
    struct Case {
        const char* rule;
        std::int16_t reading, posun, sklon, koef;
        double calibrated;
        std::int32_t display;
    };
    constexpr Case cases[] = {
        {"plain", 1234, 0, 100, 30, 1234, 41},
        {"zero point and slope", 3000, 1030, 152, 30, 2994.4, 100},
        {"halves go to the even neighbour below", 75, 0, 100, 30, 75, 2},
        {"and above", 105, 0, 100, 30, 105, 4},
        {"the slope is divided first", 3, 0, 70, 1, 2.0999999999999996, 2},
        {"below the zero point", 0, 1030, 100, 30, -1030, -34},
    };
    for (const Case& c : cases) {
        const Session session = sessionWith(c.posun, c.sklon, c.koef);
        EXPECT_EQ(calibratedValue(session, c.reading), c.calibrated) << c.rule;
        EXPECT_EQ(displayValue(session, calibratedValue(session, c.reading)), c.display) << c.rule;
    }
}

TEST(ValueConversion, WhatDoesNotFitFails) {
    EXPECT_THROW(calibratedValue(sessionWith(-32'000, 100), 9999), Failure);
    EXPECT_THROW(displayValue(sessionWith(0, 100, 0), 1234), Failure);
    EXPECT_THROW(storedValue(sessionWith(0, 100, 32'767), 1e6), Failure);
    EXPECT_THROW(peakOfLiveText(""), Failure);
    EXPECT_THROW(peakOfLiveText("---"), Failure);
}

TEST(ValueConversion, APeakIsWholeUnitsOfTheLiveText) {
    EXPECT_EQ(liveValueText(2994.4), "2994.4");
    EXPECT_EQ(liveValueText(1234), "1234");
    EXPECT_EQ(liveValueText(2.0999999999999996), "2.1") << "not the digits of its binary form";
    EXPECT_EQ(liveValueText(21464909.09), "21464909.09");
    EXPECT_EQ(liveValueText(-0.5), "-0.5");
    EXPECT_EQ(peakOfLiveText("2994.4"), 2994);
    EXPECT_EQ(peakOfLiveText("0.5"), 0);
    EXPECT_EQ(peakOfLiveText("1.5"), 2);
}

TEST(ValueConversion, APointIsStoredInDisplaySteps) {
    const Session session = sessionWith(0, 100);
    EXPECT_EQ(displayValue(session, 1234), 41);
    EXPECT_EQ(storedValue(session, 41), 1230);
}

TEST(ValueConversion, LinearDisplayIsTheWholeCalibratedValue) {
    EXPECT_EQ(linearValue(sessionWith(1030, 152), 3000), 2994);
    EXPECT_EQ(linearValue(sessionWith(0, 50), 5), 2);
    EXPECT_EQ(linearText(2994), "2994\r\n");
}

// Worked out apart from this program, in decimal arithmetic of 40 digits whose x, den and x + k
// were rounded to 24 binary digits.
TEST(ValueConversion, LogarithmicStepsAreTheCurves) {
    struct Case {
        std::int16_t k, m;
        std::int32_t linear;
        double x, b, den, q;
        int percent;
    };
    constexpr Case cases[] = {
        {1, 4000, 0, 1.0010000467300415, 0.0009995003330835331, 0.6926475763320923,
         99.99999172954684, 0},
        {1, 4000, 1, 1.000749945640564, 0.0009995003330835331, 0.6926475763320923,
         99.98196283483045, 0},
        {1, 4000, 1000, 0.7509999871253967, 0.0009995003330835331, 0.6926475763320923,
         80.73189464384497, 19},
        {1, 4000, 2000, 0.5009999871253967, 0.0009995003330835331, 0.6926475763320923,
         58.49035178557978, 42},
        {1, 4000, 3972, 0.00800000037997961, 0.0009995003330835331, 0.6926475763320923,
         1.006093955715379, 99},
        {1, 4000, 3999, 0.0012499999720603228, 0.0009995003330835331, 0.6926475763320923,
         0.03605695744751932, 0},
        {1, 4000, 4000, 0.0010000000474974513, 0.0009995003330835331, 0.6926475763320923,
         6.739842692196191e-06, 0},
        {1, 4000, 5000, -0.24899999797344208, 0.0009995003330835331, 0.6926475763320923,
         -41.485620467485106, 0},
        {5, 4000, 2000, 0.5009999871253967, 1.6096378924367667, 0.18228822946548462,
         52.2754478225638, 48},
        {100, 4000, 2000, 0.5009999871253967, 4.605180185938091, 0.00995023176074028,
         50.124322874465236, 50},
        {1, 2500, 1234, 0.5073999762535095, 0.0009995003330835331, 0.6926475763320923,
         59.1046370291417, 41},
        {32767, 4000, 2000, 0.5009999871253967, 10.397177220873893, 3.051804378628731e-05,
         50.095692460871525, 50},
    };
    for (const Case& c : cases) {
        const Session session = curve(c.k, c.m);
        const LogarithmicSteps steps = logarithmicSteps(session, c.linear);
        const std::string at = "k " + std::to_string(c.k) + ", m " + std::to_string(c.m) + ", L " +
                               std::to_string(c.linear);
        EXPECT_EQ(double{steps.x}, c.x) << at;
        EXPECT_NEAR(steps.b, c.b, 1e-14) << at;
        EXPECT_EQ(double{steps.den}, c.den) << at;
        EXPECT_NEAR(steps.q, c.q, 1e-7) << at;
        EXPECT_EQ(logarithmicPercent(session, c.linear), c.percent) << at;
    }
}

TEST(ValueConversion, LogarithmicPercentFallsBackToZeroAtTheTopOfTheScale) {
    const Session session = curve(1, 4000);
    EXPECT_EQ(logarithmicText(session, 0), "0 %");
    EXPECT_EQ(logarithmicText(session, 4000), "0 %");
    EXPECT_EQ(logarithmicText(session, 4001), "0 %");
    EXPECT_EQ(logarithmicText(session, 9000), "0 %"); // no logarithm there
    EXPECT_EQ(logarithmicText(session, -50), "-1 %");
    int last = 0;
    int highest = 0;
    for (std::int32_t linear = 0; linear < 4000; ++linear) {
        const int percent = logarithmicPercent(session, linear);
        if (percent == 0 && linear > 3900)
            break; // at the very top of the scale q rounds to 0
        ASSERT_GE(percent, last) << linear;
        last = percent;
        highest = std::max(highest, percent);
    }
    EXPECT_EQ(highest, 99);
}

TEST(ValueConversion, ACurveThatCannotBeShowsZero) {
    EXPECT_EQ(logarithmicPercent(curve(-5, 4000), 1000), 0);
    EXPECT_EQ(logarithmicPercent(curve(1, 0), 1000), 0);
}

} // namespace
} // namespace vorna
