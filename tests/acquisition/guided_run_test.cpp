#include "acquisition/reading_line.h"
#include "tests/acquisition/guided_run_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vorna {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(GuidedRunTest, StartOpensThePortAndWaitsAtTheStartIndex) {
    box(5).text = "77";
    run.startIndex.text = "5";
    wizard.run.start.click();
    EXPECT_EQ(current(), 5);
    EXPECT_EQ(box(5).text.get(), "");
    EXPECT_EQ(box(5).backColour, BackColour::White);
    EXPECT_FALSE(run.start.enabled);
    EXPECT_TRUE(run.stop.enabled);
    EXPECT_EQ(wizard.activeControl, &box(1));
    EXPECT_EQ(wizard.point.pointLabel.caption.get(), "P9") << "the point of box 5";
    EXPECT_THAT(desk.sounds.take(), ElementsAre("start"));
    EXPECT_THAT(desk.line.log, ::testing::IsSupersetOf({"open /dev/ttyUSB4", "number 8"}));
    EXPECT_TRUE(desk.link.linkAlive);
    EXPECT_TRUE(desk.link.parserRunning());

    std::vector<BackColour> colours;
    for (int i = 0; i < 4; ++i) {
        lift(1);
        colours.push_back(box(5).backColour);
    }
    EXPECT_THAT(colours, ElementsAre(BackColour::Red, BackColour::Green, BackColour::Red,
                                     BackColour::Green));
    EXPECT_EQ(run.progress.state, PointState::Waiting);
    EXPECT_TRUE(run.applyProbe.visible);
    EXPECT_FALSE(run.ready.visible);
}

TEST_F(GuidedRunTest, TheProbePictureBlinksWhileAPointRuns) {
    int changes = 0;
    desk.mainWindow.watcher = [&](Control*) { ++changes; };
    wizard.run.start.click();
    lift(20);
    EXPECT_GE(changes, 5);
    changes = 0;
    desk.link.blinkHold = true;
    lift(20);
    EXPECT_EQ(changes, 0);
}

TEST_F(GuidedRunTest, APortThatDoesNotOpenIsToldAndTheRunWaits) {
    desk.line.opens = false;
    desk.link.currentReading = 900; // of a run before
    wizard.run.start.click();
    EXPECT_THAT(desk.takeShown(), ElementsAre("message: t36"));
    desk.pass(3 * tickMs);
    EXPECT_EQ(box(1).backColour, BackColour::Red);
    EXPECT_EQ(box(1).text.get(), "");
    EXPECT_TRUE(run.stop.enabled);
}

TEST_F(GuidedRunTest, AStartIndexThatIsNoBoxFailsWithoutAWord) {
    run.startIndex.text = "abc";
    wizard.run.start.click();
    EXPECT_EQ(current(), 1) << "no number leaves the current box";
    run.stop.click();
    run.startIndex.text = "30";
    wizard.run.start.click();
    touch(900, 42);
    EXPECT_EQ(current(), 30);
    desk.pass(10000);
    run.stop.click();
    EXPECT_THAT(run.boxTexts(), ::testing::Each(""));
}

TEST_F(GuidedRunTest, ContactShowsTheReadingOnItsWay) {
    desk.session.posun = 30;
    desk.session.sklon = 110;
    wizard.run.start.click();
    lift(2);
    desk.sounds.take();
    touch(1234, 1); // (1234 - 30) x 1.1 = 1324.4; / 30 = 44.1
    EXPECT_EQ(box(1).text.get(), "44");
    EXPECT_EQ(box(1).backColour, BackColour::Yellow);
    EXPECT_EQ(run.bar.value, 44);
    EXPECT_EQ(run.liveValue.caption.get(), "1324.4");
    EXPECT_THAT(desk.sounds.take(), ElementsAre("pip"));
    EXPECT_EQ(run.progress.state, PointState::Contact);
    EXPECT_TRUE(run.holdProbe.visible);
    touch(31, 1);
    EXPECT_THAT(readings(), ElementsAre("1234", "31"));
    EXPECT_THAT(desk.sounds.take(), IsEmpty()) << "a contact is heard once";
    EXPECT_EQ(run.liveValue.caption.get(), "1.1");
    const int before = count();
    touch(30, 1);
    EXPECT_EQ(count(), before) << "at the zero point there is no contact";
    desk.session.koef = 1;
    touch(9999, 1);
    EXPECT_EQ(box(1).text.get(), "10966");
    EXPECT_EQ(run.bar.value, 0) << "beyond 400 the bar stays as it was";
    desk.session.koef = 0;
    touch(2000, 1);
    EXPECT_EQ(box(1).text.get(), "10966") << "what cannot be divided leaves the box";
    EXPECT_EQ(run.liveValue.caption.get(), "2167");
}

TEST_F(GuidedRunTest, ASingleLostTickIsForgivenOnce) {
    struct Case {
        const char *rule, *ticks; // c contact, - none
        int count;
        const char *text, *sounds;
    };
    const Case cases[] = {
        {"one lost tick", "--ccc-ccc", 6, "30", "pip"},
        {"two in a row begin afresh", "--ccc--", 0, "", "pip"},
        {"two with ten good ones between", "--c-cccccccccc-", 0, "", "pip"},
        {"after a restart one is forgiven again", "--c--cc-cc", 4, "30", "pip pip"},
        {"a lost tick before the first contact counts", "-cc-", 0, "", ""},
        {"as does contact from the first tick, silently", "ccc-c", 4, "30", ""},
    };
    for (const Case& c : cases) {
        wizard.run.start.click();
        desk.sounds.take();
        for (const char tick : std::string(c.ticks))
            touch(tick == 'c' ? 900 : 0, 1);
        EXPECT_EQ(count(), c.count) << c.rule;
        EXPECT_EQ(box(1).text.get(), c.text) << c.rule;
        std::string heard;
        for (const std::string& sound : desk.sounds.take())
            heard += heard.empty() ? sound : " " + sound;
        EXPECT_EQ(heard, c.sounds) << c.rule;
        if (c.count == 0) {
            EXPECT_EQ(run.bar.value, 0) << c.rule;
            EXPECT_EQ(run.liveValue.caption.get(), "0") << c.rule;
            EXPECT_EQ(run.readings.size(), 0U) << c.rule;
        }
        // A start takes back neither lost ticks nor that the probe was off.
        lift(3);
        touch(900, 1);
        run.stop.click();
    }
}

TEST_F(GuidedRunTest, APointTakes41TicksOfContactOrHalfOfThemAbove40) {
    struct Case {
        const char* rule;
        int reading, ticks, count;
    };
    const Case cases[] = {
        {"a box of 40 counts once", 1200, 41, 41},
        {"40.5 is 40 to the even neighbour", 1215, 41, 41},
        {"a box of 41 counts twice", 1230, 21, 42},
    };
    for (const Case& c : cases) {
        wizard.run.start.click();
        lift(2);
        touch(c.reading, c.ticks);
        EXPECT_EQ(count(), c.count) << c.rule;
        EXPECT_EQ(run.progress.state, PointState::Contact) << c.rule;
        EXPECT_EQ(run.progress.heldShare(), 1) << c.rule;
        touch(c.reading, 1);
        EXPECT_EQ(run.progress.state, PointState::Done) << c.rule << ": the next tick accepts";
        run.stop.click();
    }
}

TEST_F(GuidedRunTest, ThePeakStandsForThePoint) {
    wizard.run.start.click();
    lift(2);
    touch(2800, 2); // lost again: no peak of this point
    lift(2);
    touch(900, 10);
    touch(1111, 1); // 37.03
    touch(600, 30);
    ASSERT_EQ(count(), 41);
    desk.sounds.take();
    goOn();
    EXPECT_EQ(box(1).text.get(), "37");
    EXPECT_EQ(box(1).backColour, BackColour::Yellow);
    EXPECT_THAT(desk.sounds.take(), ElementsAre("dingdong, waited for"));
    EXPECT_THAT(desk.takeShown(), ElementsAre("notice: t40"));
    EXPECT_EQ(current(), 13);
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(run.bar.value, 0);
    EXPECT_EQ(run.liveValue.caption.get(), "0");
    EXPECT_EQ(run.readings.size(), 0U);
    EXPECT_EQ(run.progress.state, PointState::Waiting);
    EXPECT_FALSE(desk.link.blinkHold);
    EXPECT_EQ(run.boxesDone(), 1);
}

TEST_F(GuidedRunTest, APointOwesNothingToTheOneBefore) {
    wizard.run.start.click();
    lift(2);
    touch(3000, 1);
    lift(1);
    touch(900, 39);
    goOn();
    ASSERT_EQ(current(), 13);
    touch(900, 10); // held on all the time
    lift(1);
    touch(900, 31);
    EXPECT_EQ(count(), 41) << "a lost tick is forgiven anew";
    goOn();
    EXPECT_EQ(box(13).text.get(), "30") << "and the peak is its own";

    touch(3000, 3);
    lift(1);
    run.stop.click();
    wizard.run.start.click();
    touch(900, 20);
    lift(1);
    EXPECT_EQ(count(), 0) << "a start takes no lost tick back";
    touch(3000, 3);
    run.stop.click();
    wizard.run.start.click();
    touch(900, 41);
    goOn();
    EXPECT_EQ(box(1).text.get(), "30") << "but the peak";
}

TEST_F(GuidedRunTest, LinesThatCameBeforeAnAcceptedPointEndedAreNotReadForTheNext) {
    wizard.run.start.click();
    lift(2);
    touch(900, 41);
    for (int reading = 1000; reading < 1100; ++reading)
        desk.line.receive(formatReadingLine(reading));
    goOn();
    EXPECT_EQ(desk.link.currentReading, 1009) << "the parser took ten up to then";
}

TEST_F(GuidedRunTest, TheBarShowsTheUndividedLiveValueWhereItFits) {
    for (const auto& [reading, bar] : {std::pair{360, 360}, {400, 400}, {401, 13}}) {
        wizard.run.start.click();
        lift(2);
        touch(reading, 41);
        int shown = -1;
        desk.sounds.whenHeard = [&](const std::string&) { shown = run.bar.value; };
        touch(reading, 1);
        desk.sounds.whenHeard = {};
        EXPECT_EQ(shown, bar) << reading;
        run.stop.click();
    }
}

TEST_F(GuidedRunTest, UnderANoticeTheParserGoesOnAndTheTickStands) {
    wizard.run.start.click();
    lift(2);
    touch(900, 41);
    const LocalTime accepted = desk.seams.clock.now() + std::chrono::milliseconds{tickMs};
    Timer device(desk.seams.loop, std::chrono::milliseconds{50}, Timer::Kind::Repeating,
                 [&] { desk.line.receive("xx1.234\r\n"); });
    device.start();
    int readingInNotice = 0;
    int countInNotice = 0;
    Timer look(desk.seams.loop, std::chrono::milliseconds{tickMs + 1000 + 1900},
               Timer::Kind::OneShot, [&] {
                   readingInNotice = desk.link.currentReading;
                   countInNotice = count();
               });
    look.start();
    LocalTime began;
    wizard.watcher = [&](Control* control) {
        if (control == &run.progress && current() == 13 && began == LocalTime{})
            began = desk.seams.clock.now();
    };
    goOn();
    EXPECT_EQ(readingInNotice, 1234);
    EXPECT_EQ(countInNotice, 41);
    EXPECT_EQ((began - accepted).count(), 1000 + 2000 + 500) << "sound, notice, pause";
}

TEST_F(GuidedRunTest, TheRunGoesInPairsToBox24) {
    desk.session.dobamer = 0; // one tick of contact
    const std::vector<std::pair<int, std::vector<int>>> cases{
        {1,
         {1, 13, 2, 14, 3, 15, 4, 16, 5, 17, 6, 18, 7, 19, 8, 20, 9, 21, 10, 22, 11, 23, 12, 24}},
        {5, {5, 17, 6, 18, 7, 19, 8, 20, 9, 21, 10, 22, 11, 23, 12, 24}},
        {13, {13, 2, 14, 3, 15, 4, 16, 5, 17, 6, 18, 7, 19, 8, 20, 9, 21, 10, 22, 11, 23, 12, 24}},
        {24, {24}},
    };
    for (const auto& [start, order] : cases) {
        for (const auto& pointBox : run.boxes.members)
            pointBox->text = "";
        run.startIndex.text = std::to_string(start);
        wizard.run.start.click();
        std::vector<int> taken;
        while (desk.link.parserRunning() && taken.size() < 30) {
            lift(2);
            taken.push_back(current());
            touch(900, 1);
            goOn();
        }
        EXPECT_EQ(taken, order);
        for (const auto& pointBox : run.boxes.members)
            EXPECT_EQ(!pointBox->text.get().empty(),
                      std::find(order.begin(), order.end(), pointBox->index()) != order.end())
                << pointBox->index();
        run.stop.click();
    }
}

TEST_F(GuidedRunTest, Box24EndsTheRunWithThePortOpen) {
    run.startIndex.text = "24";
    wizard.run.start.click();
    lift(2);
    touch(1200, 1);
    touch(300, 40);
    desk.sounds.take();
    goOn();
    EXPECT_EQ(box(24).text.get(), "40");
    EXPECT_EQ(run.bar.value, 10) << "the last value in chart units";
    EXPECT_THAT(desk.sounds.take(), ElementsAre("dingdong, waited for", "twinkles"));
    EXPECT_THAT(desk.takeShown(), ElementsAre("notice: t40"));
    EXPECT_FALSE(desk.link.parserRunning());
    EXPECT_TRUE(desk.line.isOpen);
    EXPECT_TRUE(desk.link.blinkHold);
    EXPECT_TRUE(run.stop.enabled);
    EXPECT_EQ(run.progress.state, PointState::Done);
    touch(900, 20);
    EXPECT_EQ(current(), 24);
    EXPECT_EQ(run.readings.size(), 41U) << "no tick any more";
    EXPECT_EQ(run.boxesDone(), 1);
}

} // namespace
} // namespace vorna
