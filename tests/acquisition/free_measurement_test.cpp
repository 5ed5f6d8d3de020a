#include "acquisition/free_measurement.h"
#include "acquisition/reading_line.h"
#include "platform/files.h"
#include "tests/support/probe_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vorna {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FreeMeasurementTest : public ::testing::Test {
protected:
    void SetUp() override {
        desk.session.posun = 30;
        tab.action.caption = "T4"; // as the language file has it, in another case
        desk.place.folder.write("VORNA/log/old.txt", "");
    }

    // One line, and the tick that reads it.
    void read(int reading) {
        desk.line.receive(formatReadingLine(reading));
        desk.pass(20);
    }
    void arm(const std::string& name) {
        desk.seams.dialogs.inputs = {name};
        tab.armLog.clicked();
        desk.takeShown();
    }
    std::string logFile(const std::string& name) {
        return readWholeFile(desk.session.dataRoot / "log" / name);
    }
    std::vector<std::string> logs() { return listFiles(desk.session.dataRoot / "log", "*5*"); }

    ProbeDesk desk;
    FreeMeasurementTab tab{desk.mainWindow};
    FreeMeasurement free{tab, desk.session, desk.platform, desk.link};
};

TEST_F(FreeMeasurementTest, TheCaptionDecidesWhetherItStartsOrStops) {
    tab.action.click();
    EXPECT_EQ(tab.action.caption.get(), "t3");
    EXPECT_TRUE(desk.line.isOpen);
    EXPECT_TRUE(desk.link.linkAlive);
    EXPECT_TRUE(desk.link.screenUpdateOn);
    EXPECT_FALSE(desk.link.blinkHold);
    int changes = 0;
    desk.mainWindow.watcher = [&](Control* c) { changes += c == &desk.mainWindow.activity; };
    desk.pass(3000);
    EXPECT_GE(changes, 3) << "the probe picture blinks";

    tab.action.click();
    EXPECT_EQ(tab.action.caption.get(), "t4");
    EXPECT_FALSE(desk.line.isOpen);
    EXPECT_FALSE(desk.link.linkAlive);
    EXPECT_FALSE(desk.link.parserRunning());
    EXPECT_TRUE(desk.link.blinkHold);
    EXPECT_TRUE(desk.link.screenUpdateOn) << "it is never taken back";
    changes = 0;
    desk.pass(3000);
    EXPECT_EQ(changes, 0);
    tab.action.caption = "anything";
    tab.action.click();
    EXPECT_FALSE(desk.line.isOpen) << "any other caption stops";
}

TEST_F(FreeMeasurementTest, APortThatDoesNotOpenIsTold) {
    desk.line.opens = false;
    tab.action.click();
    EXPECT_THAT(desk.takeShown(), ElementsAre("message: t2"));
    EXPECT_EQ(tab.action.caption.get(), "T4");
    EXPECT_FALSE(desk.link.linkAlive);
}

TEST_F(FreeMeasurementTest, TheDisplayFollowsTheReading) {
    desk.session.sklon = 110;
    tab.action.click();
    struct Case {
        const char* rule;
        int reading;
        const char *value, *percent;
        int bar;
        const char* highest;
    };
    const Case cases[] = {
        // L = whole((R - 30) x 1.1); the percents were computed apart.
        {"below the bar's range", 800, "847\r\n", "16 %", 900, "800"},
        {"in it", 1842, "1993\r\n", "41 %", 1993, "1842"},
        {"above it", 3000, "3267\r\n", "76 %", 1993, "3000"},
        {"without contact the percent stays", 30, "---\r\n", "76 %", 900, "3000"},
        {"past full scale", 4000, "4367\r\n", "0 %", 900, "4000"},
        {"no contact", 0, "---\r\n", "0 %", 900, "4000"},
        {"900 itself", 848, "900\r\n", "17 %", 900, "4000"},
    };
    for (const Case& c : cases) {
        read(c.reading);
        EXPECT_EQ(tab.value.caption.get(), c.value) << c.rule;
        EXPECT_EQ(tab.percent.caption.get(), c.percent) << c.rule;
        EXPECT_EQ(tab.bar.value, c.bar) << c.rule;
        EXPECT_EQ(free.highestValue(), c.highest) << c.rule;
        EXPECT_EQ(desk.link.currentReading, c.reading > 30 ? c.reading : 0) << c.rule;
    }
    free.start();
    EXPECT_EQ(free.highestValue(), "0");
}

TEST_F(FreeMeasurementTest, AGuidedRunReads0WithoutContactAndDrivesTheDisplayOnceItWasOn) {
    ASSERT_TRUE(desk.link.openForRun());
    read(1000);
    EXPECT_EQ(tab.value.caption.get(), "") << "the screen update was never on";
    read(20);
    EXPECT_EQ(desk.link.currentReading, 0);
    EXPECT_EQ(tab.value.caption.get(), "---\r\n");
    desk.link.stop();
    tab.action.click();
    tab.action.click();
    ASSERT_TRUE(desk.link.openForRun());
    read(1000);
    EXPECT_EQ(tab.value.caption.get(), "970\r\n");
}

// ---- The capture log

TEST_F(FreeMeasurementTest, ALogHoldsTheZeroPointAnd100Readings) {
    tab.action.click();
    desk.seams.dialogs.inputs = {"sonda č. 1 "};
    tab.armLog.clicked();
    EXPECT_THAT(desk.takeShown(), ElementsAre("input: Zadejte název měření | Logování START"));
    read(0);
    read(30);
    EXPECT_THAT(logs(), IsEmpty()) << "it waits for contact";
    read(777); // starts the log and is not in it
    const std::string name = "sonda č. 1 250131_143005.txt";
    EXPECT_EQ(logFile(name), " 30 \r\n");
    std::string expected = " 30 \r\n";
    for (int i = 1; i <= 100; ++i) {
        EXPECT_THAT(desk.takeShown(), IsEmpty()) << i;
        const int reading = i % 10 == 0 ? i % 20 : 1000 + i; // off the skin now and then
        read(reading);
        expected += " " + std::to_string(reading) + " \r\n";
        EXPECT_EQ(logFile(name), expected) << "each line reaches the file at once";
    }
    EXPECT_THAT(desk.takeShown(), ElementsAre("message: Zachyceno " + name));
    read(1500);
    EXPECT_EQ(logFile(name), expected);
    EXPECT_THAT(logs(), ElementsAre(name)) << "it is armed no more";
}

TEST_F(FreeMeasurementTest, ALogOutlivesAStop) {
    tab.action.click();
    arm("");
    read(700);
    read(701);
    tab.action.click();
    tab.action.click();
    read(0);
    EXPECT_EQ(logFile("250131_143005.txt"), " 30 \r\n 701 \r\n 0 \r\n");
    arm("neu");
    read(702);
    EXPECT_EQ(logFile("250131_143005.txt"), " 30 \r\n 701 \r\n 0 \r\n 702 \r\n")
        << "a name that is given meanwhile changes nothing";
    EXPECT_EQ(logs().size(), 1U);
}

TEST_F(FreeMeasurementTest, NegativeNumbersHaveNoBlankInFront) {
    desk.session.posun = -5;
    tab.action.click();
    arm("a");
    read(1);
    EXPECT_EQ(logFile("a250131_143005.txt"), "-5 \r\n");
}

TEST_F(FreeMeasurementTest, ALogReplacesOneOfItsName) {
    // The tick that starts the log ends 20 ms later, in the same second.
    desk.place.folder.write("VORNA/log/A250131_143005.TXT", "older and longer");
    tab.action.click();
    arm("a");
    read(900);
    EXPECT_EQ(logFile("A250131_143005.TXT"), " 30 \r\n");
    EXPECT_EQ(logs().size(), 1U);
}

TEST_F(FreeMeasurementTest, ANameThatNoFileCanHaveMakesNoFile) {
    tab.action.click();
    for (const char* const name : {"a/b", "..\\x", "a:b", "?", "a\nb"}) {
        arm(name);
        for (int i = 0; i <= 100; ++i)
            read(900);
        EXPECT_THAT(desk.takeShown(), ElementsAre(::testing::StartsWith("message: Zachyceno ")))
            << name << ": the count goes on";
    }
    EXPECT_THAT(logs(), IsEmpty());
    EXPECT_THAT(listFiles(desk.session.dataRoot, "*.txt"), IsEmpty());
    arm("good");
    read(900);
    EXPECT_EQ(logs().size(), 1U) << "the next log is as good as new";
}

} // namespace
} // namespace vorna
