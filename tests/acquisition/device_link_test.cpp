#include "acquisition/device_link.h"
#include "acquisition/reading_line.h"
#include "core/file_names.h"
#include "core/settings_file.h"
#include "platform/failure.h"
#include "tests/support/scripted_serial_line.h"
#include "tests/support/test_platform.h"
#include "tests/support/workplace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vorna {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class DeviceLinkTest : public testing::Test {
protected:
    DeviceLinkTest() {
        place.session.texts.setFile(place.folder.write("lang2.ini", "[other]\nT2=no port\n"),
                                    false);
        WriteIniValue(place.session.dataRoot / names::setup, "global", "port", "COM4");
        line.log.clear();
    }

    // The parser's next tick; all other timers go on as well.
    void nextTick() { seams.loop.wait(20ms); }

    void openRun() {
        ASSERT_TRUE(link.openForRun());
        line.log.clear();
    }

    TestPlatform seams;
    Workplace place;
    Window window{"Form1"};
    Picture activity{window, "Image9"};
    ScriptedSerialLine line;
    DeviceLink link{place.session, seams.platform, line, activity};
};

TEST_F(DeviceLinkTest, OpensForARunAndLeavesTheOtherStateAlone) {
    EXPECT_TRUE(link.openForRun());
    EXPECT_THAT(line.log,
                ElementsAre("open /dev/ttyUSB4", "configure 9600,n,8,1", "flag 1", "number 8"));
    EXPECT_TRUE(link.parserRunning());
    EXPECT_FALSE(link.linkAlive);
    EXPECT_FALSE(link.screenUpdateOn);
    EXPECT_TRUE(link.blinkHold);
}

TEST_F(DeviceLinkTest, OpensForFreeMeasurementAfterAClose) {
    EXPECT_TRUE(link.openForFreeMeasurement());
    EXPECT_THAT(line.log, ElementsAre("close", "open /dev/ttyUSB4", "configure 9600,n,8,1",
                                      "flag 1", "number 9"));
    EXPECT_TRUE(link.parserRunning());
    EXPECT_TRUE(link.linkAlive);
    EXPECT_TRUE(link.screenUpdateOn);
    EXPECT_FALSE(link.blinkHold);
    EXPECT_FALSE(link.calibrationFailed);
}

TEST_F(DeviceLinkTest, APortThatDoesNotOpenIsToldForFreeMeasurementAlone) {
    line.opens = false;
    EXPECT_FALSE(link.openForRun());
    EXPECT_THAT(line.log, ElementsAre("open /dev/ttyUSB4"));
    EXPECT_TRUE(seams.dialogs.shown.empty());
    EXPECT_FALSE(link.calibrationFailed);

    EXPECT_FALSE(link.openForFreeMeasurement());
    EXPECT_THAT(seams.dialogs.shown, ElementsAre("message: no port"));
    EXPECT_TRUE(link.calibrationFailed);
    EXPECT_FALSE(link.parserRunning());
    EXPECT_FALSE(link.linkAlive);
    EXPECT_FALSE(link.screenUpdateOn);
}

TEST_F(DeviceLinkTest, ThePortSettingIsReadAtEachOpen) {
    for (const auto& [setting, path] :
         {std::pair{"/dev/pts/7", "open /dev/pts/7"}, std::pair{"com12", "open /dev/ttyUSB12"},
          std::pair{"", "open "}}) {
        WriteIniValue(place.session.dataRoot / names::setup, "global", "port", setting);
        line.log.clear();
        EXPECT_TRUE(link.openForRun());
        EXPECT_EQ(line.log.front(), path);
        link.stop();
    }
}

TEST_F(DeviceLinkTest, StoppingEndsEverything) {
    ASSERT_TRUE(link.openForFreeMeasurement());
    line.receive("xx1.234\r\nxx2.345\r\n");
    nextTick();
    link.stop();
    EXPECT_FALSE(line.isOpen);
    EXPECT_FALSE(link.linkAlive);
    EXPECT_FALSE(link.parserRunning());
    seams.loop.wait(2s);
    EXPECT_EQ(link.currentReading, 1234); // the line that waited is gone
    EXPECT_TRUE(link.screenUpdateOn);     // from one free measurement on for good
}

TEST_F(DeviceLinkTest, UsesOneLineATick) {
    openRun();
    std::vector<std::int16_t> seen;
    link.readingCut = [&](std::int16_t value) { seen.push_back(value); };
    line.receive("xx1.234\r\nabcdef xx0.456\r\nxx9.");
    nextTick();
    EXPECT_EQ(link.currentReading, 1234);
    nextTick();
    EXPECT_EQ(link.currentReading, 456);
    nextTick();
    line.receive("999\r\n");
    nextTick();
    EXPECT_EQ(link.currentReading, 9999);
    nextTick();
    EXPECT_THAT(seen, ElementsAre(1234, 456, 9999));
}

// The tick goes on with the old value: the log gets a line, the display its update.
TEST_F(DeviceLinkTest, ALineWithoutAReadingLeavesTheOldValue) {
    const std::string cases[] = {
        "xx1,2x4\r\n", std::string("xx1.2\0004\r\n", 9),
        "       \r\n", "\xff\xfe\xfd\xfc\xfb\xfa\xf9\r\n",
        "xxe.e11\r\n", "xx1.e99\r\n",
        "xxn.ann\r\n",
    };
    openRun();
    int averages = 0;
    link.averaged = [&] { ++averages; };
    line.receive("x1.234\r\n"); // the first line, too short
    nextTick();
    EXPECT_EQ(link.currentReading, 0);
    EXPECT_EQ(averages, 1);
    line.receive("xx0.777\r\n");
    nextTick();
    for (const std::string& text : cases) {
        averages = 0;
        line.receive(text);
        nextTick();
        EXPECT_EQ(link.currentReading, 777) << text;
        EXPECT_EQ(link.rawReading, 777) << text;
        EXPECT_EQ(averages, 1) << text;
    }
}

TEST_F(DeviceLinkTest, WhatTheDisplaySetsTo0Stays0WithoutANewReading) {
    openRun();
    link.averaged = [&] { link.currentReading = 0; };
    line.receive("xx0.020\r\n");
    nextTick();
    EXPECT_EQ(link.currentReading, 0);
    EXPECT_EQ(link.rawReading, 20);
    line.receive("xx?.???\r\n");
    nextTick();
    EXPECT_EQ(link.currentReading, 0);
}

TEST_F(DeviceLinkTest, KeepsThePeakOnlyWhileItTracks) {
    openRun();
    const auto feed = [&](int reading) {
        line.receive(formatReadingLine(reading));
        nextTick();
    };
    feed(5000);
    EXPECT_EQ(link.peakRaw, 0);
    link.peakTracking = true;
    feed(300);
    feed(1200);
    feed(700);
    EXPECT_EQ(link.peakRaw, 1200);
    link.peakTracking = false;
    feed(2000);
    EXPECT_EQ(link.peakRaw, 1200);
}

// A stop out of the user interface's turn inside a tick.
TEST_F(DeviceLinkTest, AStopInTheMiddleOfATickIsHarmless) {
    openRun();
    Timer user(seams.loop, 20ms, Timer::Kind::OneShot, [&] { link.stop(); });
    line.receive("xx1.234\r\nxx2.345\r\n");
    user.start();
    nextTick();
    EXPECT_EQ(link.currentReading, 1234);
    EXPECT_FALSE(link.parserRunning());
    ASSERT_TRUE(link.openForRun());
    line.receive("xx3.456\r\n");
    nextTick();
    EXPECT_EQ(link.currentReading, 3456);
}

TEST_F(DeviceLinkTest, AFailingHandlerEndsNothing) {
    openRun();
    link.readingCut = [](std::int16_t) { throw Failure("a full disk"); };
    int averages = 0;
    link.averaged = [&] {
        ++averages;
        throw Failure("no such control");
    };
    line.receive("xx1.234\r\nxx2.345\r\n");
    seams.loop.wait(40ms);
    EXPECT_EQ(averages, 2);
    EXPECT_EQ(link.currentReading, 2345);
}

// The clock starts at a whole second: ticks at .55, 1.1, 1.65 ... The last parser tick's second is
// rounded, so that the distance is that of the fraction to the nearest second.
TEST_F(DeviceLinkTest, TheKeepAliveFollowsTheRoundedSecond) {
    openRun();
    link.linkAlive = true;
    const std::pair<EventLoop::Milliseconds, const char*> ticks[] = {
        {550ms, "c"}, {1100ms, ""}, {1650ms, "c"}, {2200ms, ""}, {2750ms, ""}, {3300ms, "c"},
    };
    EventLoop::Milliseconds now{0};
    for (const auto& [time, sent] : ticks) {
        line.sent.clear();
        seams.loop.wait(time - now);
        now = time;
        EXPECT_EQ(line.sent, sent) << time.count() << " ms";
    }
}

TEST_F(DeviceLinkTest, TheKeepAliveSendsWithoutEndOnceTheParserStands) {
    openRun();
    link.linkAlive = true;
    seams.loop.wait(1s);
    link.stopParser();
    line.sent.clear();
    seams.loop.wait(5500ms);
    EXPECT_GE(line.sent.size(), 9U);
    link.linkAlive = false;
    line.sent.clear();
    seams.loop.wait(5500ms);
    EXPECT_EQ(line.sent, "");
}

TEST_F(DeviceLinkTest, BlinksWhileSomethingIsMeasuredAndNotHeld) {
    link.startActivityBlink();
    link.blinkHold = false;
    seams.loop.wait(5s);
    EXPECT_TRUE(activity.visible); // nothing is measured

    link.startActivityBlink();
    link.guidedRunStoppable = true;
    seams.loop.wait(799ms);
    EXPECT_TRUE(activity.visible);
    seams.loop.wait(1ms); // 600 ms, and 200 ms
    EXPECT_FALSE(activity.visible);
    seams.loop.wait(600ms);
    EXPECT_TRUE(activity.visible);

    link.blinkHold = true;
    seams.loop.wait(5s);
    EXPECT_TRUE(activity.visible);

    link.guidedRunStoppable = false;
    link.freeMeasurementRuns = true;
    link.blinkHold = false;
    seams.loop.wait(600ms);
    EXPECT_FALSE(activity.visible);
}

// A flood of 1 MB in a second, of lines and of noise without any: what is kept stays small.
TEST_F(DeviceLinkTest, SurvivesFloods) {
    openRun();
    std::string noise(20'000, '\0');
    for (std::size_t i = 0; i < noise.size(); ++i)
        noise[i] = static_cast<char>(i * 7919 % 251);
    for (int i = 0; i < 50; ++i) {
        line.receive(noise);
        nextTick();
    }
    EXPECT_EQ(link.currentReading, 0);
    line.receive("\r\nxx1.234\r\n");
    seams.loop.wait(2s);
    EXPECT_EQ(link.currentReading, 1234);
}

} // namespace
} // namespace vorna
