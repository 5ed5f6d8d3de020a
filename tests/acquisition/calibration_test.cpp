#include "acquisition/calibration.h"
#include "acquisition/reading_line.h"
#include "core/file_names.h"
#include "core/settings_file.h"
#include "tests/support/scripted_serial_line.h"
#include "tests/support/test_platform.h"
#include "tests/support/workplace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vorna {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

// Calibrates over a real link on a scripted line; the free measurement is no more than its use of
// the link.
class CalibrationTest : public testing::Test {
protected:
    CalibrationTest() {
        std::string texts = "[other]\n";
        for (const char* key : {"t2", "t16", "t26", "t27", "t28", "t29", "t30", "t31", "t32"})
            texts += std::string(key) + "=" + key + "\n";
        place.session.texts.setFile(place.folder.write("lang2.ini", texts), false);
        place.session.sklon = 77;
    }

    void receive(int reading) {
        line.receive(formatReadingLine(reading));
        seams.loop.wait(20ms);
    }
    [[nodiscard]] std::string state() const {
        static constexpr const char* colours[] = {"plain", "white",  "red",
                                                  "green", "yellow", "magenta"};
        return box.text.get() + " " + colours[static_cast<std::size_t>(box.backColour.get())];
    }
    std::string setting(const char* key) {
        return ReadIniValue(place.session.dataRoot / names::setup, "Global", key);
    }
    // Both phases with one reading each.
    void run(int atRest, int inContact) {
        calibration.calibrate();
        receive(atRest);
        seams.loop.wait(3000ms - 20ms);
        receive(inContact);
        seams.loop.wait(8000ms - 20ms);
    }

    TestPlatform seams;
    Workplace place;
    Window window{"Form1"};
    Picture activity{window, "Image9"};
    TextBox box{window, "Text20"};
    ScriptedSerialLine line;
    DeviceLink link{place.session, seams.platform, line, activity};
    std::vector<std::string> actions;
    Calibration calibration{box,
                            {place.session, seams.platform, link,
                             FreeMeasurementActions{.start =
                                                        [this] {
                                                            actions.emplace_back("start");
                                                            link.openForFreeMeasurement();
                                                        },
                                                    .press =
                                                        [this] {
                                                            actions.emplace_back("press");
                                                            link.stop();
                                                        }}}};
};

TEST_F(CalibrationTest, TakesTheZeroPointAndTheSlopeInTwoPhases) {
    calibration.calibrate();
    EXPECT_EQ(state(), "t16 yellow");
    EXPECT_TRUE(line.isOpen);
    receive(990);
    receive(1000);
    receive(400);
    seams.loop.wait(3000ms - 61ms);
    EXPECT_EQ(calibration.phase(), Calibration::Phase::AtRest);
    EXPECT_EQ(place.session.posun, 0);

    seams.loop.wait(1ms);
    EXPECT_EQ(calibration.phase(), Calibration::Phase::InContact);
    EXPECT_EQ(state(), "t29 yellow"); // the text tells what to do now
    EXPECT_EQ(place.session.posun, 1030);
    EXPECT_EQ(setting("posun"), "1030");
    receive(3000);
    receive(1500);
    seams.loop.wait(8000ms - 41ms);
    EXPECT_EQ(place.session.sklon, 77);

    seams.loop.wait(1ms);
    EXPECT_EQ(state(), "t32 green");
    EXPECT_EQ(place.session.sklon, 152);
    EXPECT_EQ(setting("sklon"), "152");
    EXPECT_EQ(calibration.phase(), Calibration::Phase::Idle);
    EXPECT_FALSE(link.peakTracking);
    EXPECT_FALSE(line.isOpen);
    EXPECT_THAT(actions, ElementsAre("start", "press", "start", "press"));
    seams.loop.wait(20s);
    EXPECT_EQ(state(), "t32 green");
}

TEST_F(CalibrationTest, PhaseAtRestHasItsBounds) {
    struct Case {
        int peak;
        const char* after3s;
        std::string posun; // in the settings; empty: not written
        const char* after11s;
    };
    const Case cases[] = {
        {0, "t27 yellow", "", "t30 red"},      {199, "t27 yellow", "", "t30 red"},
        {200, "t29 yellow", "206", "t30 red"}, {2600, "t29 yellow", "2678", "t30 red"},
        {2601, "t28 yellow", "", "t26 red"},
    };
    for (const Case& c : cases) {
        place.session.posun = 5;
        WriteIniValue(place.session.dataRoot / names::setup, "Global", "posun", "");
        calibration.calibrate();
        receive(c.peak);
        seams.loop.wait(3000ms - 20ms);
        EXPECT_EQ(state(), c.after3s) << c.peak;
        EXPECT_EQ(setting("posun"), c.posun) << c.peak;
        EXPECT_EQ(place.session.posun, c.posun.empty() ? 5 : std::stoi(c.posun)) << c.peak;
        receive(5001);
        seams.loop.wait(8000ms - 20ms);
        EXPECT_EQ(state(), c.after11s) << c.peak;
        // A failed calibration leaves the free measurement on.
        EXPECT_EQ(line.isOpen, c.peak == 2601) << c.peak;
    }
}

TEST_F(CalibrationTest, PhaseInContactHasItsBounds) {
    struct Case {
        int peak;
        const char* end;
        std::int16_t sklon;
        const char* written;
    };
    constexpr Case cases[] = {
        {2030, "t31 magenta", 77, "100"}, // strictly more than posun + 1000; in use at next start
        {2031, "t32 green", 300, "300"},  {5000, "t32 green", 76, "76"},
        {5001, "t30 red", 77, ""},        {0, "t31 magenta", 77, "100"},
    };
    for (const Case& c : cases) {
        place.session.sklon = 77;
        WriteIniValue(place.session.dataRoot / names::setup, "Global", "sklon", "");
        run(1000, c.peak);
        EXPECT_EQ(state(), c.end) << c.peak;
        EXPECT_EQ(place.session.sklon, c.sklon) << c.peak;
        EXPECT_EQ(setting("sklon"), c.written) << c.peak;
    }
}

TEST_F(CalibrationTest, TheReserveIsANumberInTheUsersNotation) {
    place.session.posunrez = "2,5";
    run(1000, 0);
    EXPECT_EQ(place.session.posun, 1025);
    place.session.posunrez = "much";
    run(1200, 0);
    EXPECT_EQ(place.session.posun, 1025);
}

TEST_F(CalibrationTest, APortThatDoesNotOpenEndsItAtTheNextFiring) {
    line.opens = false;
    calibration.calibrate();
    EXPECT_THAT(seams.dialogs.shown, ElementsAre("message: t2"));
    EXPECT_EQ(state(), "t16 yellow");
    seams.loop.wait(3s);
    EXPECT_EQ(state(), "t26 red");
    EXPECT_FALSE(link.peakTracking);
    EXPECT_THAT(actions, ElementsAre("start"));
}

TEST_F(CalibrationTest, APortThatIsGoneInPhase2EndsItToo) {
    calibration.calibrate();
    receive(1000);
    line.opens = false;
    seams.loop.wait(3s);
    EXPECT_EQ(state(), "t29 yellow");
    seams.loop.wait(8s);
    EXPECT_EQ(state(), "t26 red");
    EXPECT_EQ(place.session.posun, 1030);
    // And the next one is a fresh one.
    line.opens = true;
    run(500, 3000);
    EXPECT_EQ(state(), "t32 green");
}

TEST_F(CalibrationTest, PressedAgainItBeginsAgain) {
    calibration.calibrate();
    receive(2000);
    seams.loop.wait(2s);
    run(500, 2000);
    EXPECT_EQ(place.session.posun, 515);
    EXPECT_EQ(state(), "t32 green");
}

} // namespace
} // namespace vorna
