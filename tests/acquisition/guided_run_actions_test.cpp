// What the practitioner's hand does to a guided run: Enter, START and stop.
#include "tests/acquisition/guided_run_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vorna {
namespace {

using ::testing::ElementsAre;

using GuidedRunActionsTest = GuidedRunTest;

TEST_F(GuidedRunActionsTest, EnterSkipsTheCurrentPointWhicheverBoxItIsPressedIn) {
    wizard.run.start.click();
    lift(2);
    touch(1200, 3);
    desk.sounds.take();
    const LocalTime pressed = desk.seams.clock.now();
    box(7).enterPressed();
    EXPECT_EQ(desk.millisecondsSince(pressed), 2000);
    EXPECT_EQ(box(1).text.get(), "0");
    EXPECT_EQ(box(1).backColour, BackColour::Green);
    EXPECT_EQ(box(7).text.get(), "");
    EXPECT_EQ(run.bar.value, 0);
    EXPECT_EQ(count(), 3) << "no tick under the notice";
    EXPECT_THAT(desk.sounds.take(), ElementsAre("twinkles"));
    EXPECT_THAT(desk.takeShown(), ElementsAre("notice: Data uložena"));
    EXPECT_EQ(current(), 1);
    box(7).enterPressed();
    EXPECT_EQ(current(), 1) << "of two presses one goes on";
    desk.pass(500);
    EXPECT_EQ(current(), 13);
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(run.liveValue.caption.get(), "0");
    EXPECT_EQ(run.boxesDone(), 1);
}

TEST_F(GuidedRunActionsTest, OnlyLosingContactEndsThePeakOfASkippedPoint) {
    wizard.run.start.click();
    lift(2);
    touch(3000, 3);
    box(1).enterPressed();
    desk.pass(500);
    touch(900, 41);
    goOn();
    EXPECT_EQ(box(13).text.get(), "100") << "held on: the skipped point's peak";
    box(1).enterPressed();
    desk.pass(500);
    lift(2);
    touch(900, 41);
    goOn();
    EXPECT_EQ(box(14).text.get(), "30");
}

TEST_F(GuidedRunActionsTest, EnterOnBox24GoesOnToBox13) {
    run.startIndex.text = "24";
    wizard.run.start.click();
    box(24).enterPressed();
    desk.pass(500);
    EXPECT_EQ(current(), 13);
    EXPECT_TRUE(desk.link.parserRunning());
    EXPECT_EQ(run.progress.state, PointState::Waiting);
}

TEST_F(GuidedRunActionsTest, WithoutAStartOnePointIsMeasuredAndItsLastValueCounts) {
    run.preparePoint.click();
    EXPECT_TRUE(desk.link.linkAlive);
    EXPECT_THAT(desk.line.log, ::testing::Not(::testing::Contains("open /dev/ttyUSB4")));
    lift(2);
    touch(1200, 1);
    touch(300, 40);
    desk.sounds.take();
    goOn();
    EXPECT_EQ(box(1).text.get(), "10");
    EXPECT_EQ(run.bar.value, 10);
    EXPECT_THAT(desk.sounds.take(), ElementsAre("twinkles, waited for"));
    EXPECT_THAT(desk.takeShown(), ElementsAre("notice: t40"));
    touch(900, 10);
    EXPECT_EQ(current(), 1) << "nothing follows";
    EXPECT_EQ(run.readings.size(), 41U);
    EXPECT_TRUE(desk.link.blinkHold);
}

TEST_F(GuidedRunActionsTest, PreparingARunningPointKeepsItsPeak) {
    wizard.run.start.click();
    lift(2);
    touch(2700, 2);
    run.preparePoint.click();
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(run.readings.size(), 0U);
    touch(900, 41);
    goOn();
    EXPECT_EQ(box(1).text.get(), "90");
}

TEST_F(GuidedRunActionsTest, StopClosesThePortAndEndsTheTicks) {
    wizard.run.start.click();
    lift(2);
    touch(900, 3);
    desk.sounds.take();
    run.stop.click();
    EXPECT_FALSE(desk.line.isOpen);
    EXPECT_FALSE(desk.link.linkAlive);
    EXPECT_FALSE(desk.link.parserRunning());
    EXPECT_TRUE(desk.link.blinkHold);
    EXPECT_EQ(box(1).backColour, BackColour::White);
    EXPECT_EQ(box(1).text.get(), "30") << "what was shown stays";
    EXPECT_TRUE(run.start.enabled);
    EXPECT_FALSE(run.stop.enabled);
    EXPECT_THAT(desk.sounds.take(), ElementsAre("twinkles"));
    EXPECT_THAT(desk.takeShown(), ElementsAre("notice: t37"));
    touch(900, 50);
    EXPECT_EQ(count(), 3);
    EXPECT_EQ(run.progress.state, PointState::Idle);
}

TEST_F(GuidedRunActionsTest, StopBetweenTwoPointsMeasuresNoFurtherOne) {
    wizard.run.start.click();
    lift(2);
    touch(900, 41);
    desk.pass(tickMs + 1000 + 2000 + 100);
    run.stop.click();
    touch(900, 50); // the last reading stands after the port is closed
    EXPECT_EQ(current(), 1);
    EXPECT_EQ(box(13).text.get(), "");
}

TEST_F(GuidedRunActionsTest, EnterAndSTARTActOnlyWhereThereIsAPoint) {
    const auto press = [&] {
        box(1).enterPressed();
        run.preparePoint.click();
    };
    box(1).enterPressed();
    EXPECT_EQ(box(1).text.get(), "") << "nothing is measured yet";
    run.startIndex.text = "12";
    wizard.run.start.click();
    lift(2);
    touch(900, 41);
    desk.sounds.whenHeard = [&](const std::string&) { press(); };
    desk.pass(tickMs + 1000 + 2000 + 100);
    desk.sounds.whenHeard = {};
    EXPECT_EQ(box(12).text.get(), "30") << "under the bell nothing is skipped";
    press(); // in the pause
    EXPECT_EQ(box(12).text.get(), "30");
    EXPECT_EQ(run.progress.state, PointState::Done);
    desk.pass(400);
    ASSERT_EQ(current(), 24);
    touch(900, 41);
    goOn();
    press(); // after the end
    touch(1200, 5);
    EXPECT_EQ(box(24).text.get(), "30");
    EXPECT_EQ(box(24).backColour, BackColour::Yellow);
    EXPECT_EQ(current(), 24);
    run.stop.click();
    box(1).enterPressed();
    EXPECT_EQ(box(24).text.get(), "30");
    EXPECT_THAT(desk.takeShown(), ElementsAre("notice: t40", "notice: t40", "notice: t37"));
    run.preparePoint.click();
    EXPECT_EQ(run.progress.state, PointState::Waiting) << "a single point is measured anew";
}

TEST_F(GuidedRunActionsTest, WhatASoundInterruptedIsNotGoneOnWith) {
    struct Case {
        const char* rule;
        Button& begin;
        const char* sound;
    };
    const Case cases[] = {
        {"a single point", run.preparePoint, "twinkles"}, // before any start
        {"a point of a run", run.start, "dingdong"},
    };
    for (const Case& c : cases) {
        c.begin.click();
        lift(2);
        touch(900, 41);
        desk.sounds.whenHeard = [&](const std::string& name) {
            if (name != c.sound)
                return;
            desk.sounds.whenHeard = {};
            run.stop.click();
            run.startIndex.text = "7";
            run.start.click();
        };
        desk.pass(tickMs);
        desk.pass(5000);
        EXPECT_THAT(desk.takeShown(), ElementsAre("notice: t37")) << c.rule;
        EXPECT_EQ(current(), 7) << c.rule;
        lift(2);
        touch(900, 1);
        EXPECT_EQ(box(7).text.get(), "30") << c.rule << ": the new run goes on";
        run.stop.click();
        desk.takeShown();
        run.startIndex.text = "1";
    }
}

TEST_F(GuidedRunActionsTest, AStopInTheMiddleOfASoundIsTheEnd) {
    wizard.run.start.click();
    lift(2);
    touch(900, 41);
    desk.sounds.whenHeard = [&](const std::string& name) {
        if (name == "dingdong")
            run.stop.click();
    };
    touch(900, 100);
    EXPECT_THAT(desk.takeShown(), ElementsAre("notice: t37"));
    EXPECT_EQ(current(), 1);
    EXPECT_EQ(run.progress.state, PointState::Idle);
}

TEST_F(GuidedRunActionsTest, AStopUnderANoticeIsTheEnd) {
    struct Case {
        const char* rule;
        const char* startIndex;
        Button& begin;
        bool skips;
        const char* notice;
        PointState during;
    };
    const Case cases[] = {
        {"a single point", "1", run.preparePoint, false, "t40", PointState::Done},
        {"a skipped point", "3", run.start, true, "Data uložena", PointState::Waiting},
        {"a point of a run", "3", run.start, false, "t40", PointState::Done},
        {"the last point", "24", run.start, false, "t40", PointState::Done},
    };
    for (const Case& c : cases) {
        run.startIndex.text = c.startIndex;
        c.begin.click();
        lift(2);
        touch(900, c.skips ? 3 : 41);
        desk.takeShown();
        Timer stop(desk.seams.loop, std::chrono::milliseconds{c.skips ? 500 : tickMs + 1500},
                   Timer::Kind::OneShot, [&] {
                       EXPECT_EQ(run.progress.state, c.during) << c.rule;
                       run.stop.click();
                   });
        stop.start();
        if (c.skips)
            box(1).enterPressed();
        desk.pass(10'000);
        EXPECT_THAT(desk.takeShown(),
                    ElementsAre(std::string("notice: ") + c.notice, "notice: t37"))
            << c.rule;
        EXPECT_EQ(std::to_string(current()), c.startIndex) << c.rule << ": no next point";
        EXPECT_EQ(run.progress.state, PointState::Idle) << c.rule;
        EXPECT_FALSE(desk.link.parserRunning()) << c.rule;
    }
}

TEST(PointProgressTest, HowMuchOfAPointIsHeld) {
    Window window("pruv1frm");
    PointProgress progress(window, "PointProgress1");
    struct Case {
        int held, needed;
        double share;
    };
    for (const Case& c : {Case{0, 40, 0}, Case{10, 40, 0.25}, Case{41, 40, 1}, Case{0, 0, 0},
                          Case{1, 0, 1}, Case{1, -1, 1}}) {
        progress.contactCount = static_cast<std::int16_t>(c.held);
        progress.contactNeeded = static_cast<std::int16_t>(c.needed);
        EXPECT_EQ(progress.heldShare(), c.share) << c.held << " of " << c.needed;
    }
}

} // namespace
} // namespace vorna
