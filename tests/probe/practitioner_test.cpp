// The practitioner against a guided run: on the virtual clock, over a scripted line.
#include "acquisition/guided_run.h"
#include "acquisition/reading_line.h"
#include "acquisition/value_conversion.h"
#include "probe/practitioner.h"
#include "tests/support/scripted_serial_line.h"
#include "tests/support/test_platform.h"
#include "tests/support/workplace.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vorna {
namespace {

using namespace std::chrono_literals;

// Waits as long as the bells of a finished point sound.
class SoundingSound final : public Sound {
public:
    SoundingSound(EventLoop& loop, EventLoop::Milliseconds length) : loop_(loop), length_(length) {}
    void play(const std::filesystem::path&, bool wait) override {
        if (wait)
            loop_.wait(length_);
    }

private:
    EventLoop& loop_;
    EventLoop::Milliseconds length_;
};

struct PlayedRun {
    std::vector<std::string> boxes; // by run place
    std::vector<std::string> expected;
    double seconds = 0; // from the opening to the last point's end
    double length = 0;  // of the play
};

// `start`: when in the play the run's start is pressed, for ticks at other times.
PlayedRun playRun(Profile profile, std::uint32_t seed, EventLoop::Milliseconds sound,
                  EventLoop::Milliseconds start) {
    const PractitionerSession session = makePractitionerSession(profile, seed);
    TestPlatform seams;
    SoundingSound sounds(seams.loop, sound);
    Platform platform{seams.loop,    seams.clock,     seams.platform.locale,
                      seams.dialogs, seams.clipboard, seams.opener,
                      sounds,        seams.drawing};
    Workplace place;
    Window window("pruv1frm");
    Picture activity(window, "Image9");
    ScriptedSerialLine line;
    DeviceLink link(place.session, platform, line, activity);
    link.averaged = [&] {
        if (!hasContact(place.session, link.currentReading))
            link.currentReading = 0;
    };
    RunControls controls(window);
    GuidedRun run(controls, {place.session, platform, link, [](int) {}});
    run.open();

    const LocalTime begin = seams.clock.now();
    const auto played = [&] {
        return std::chrono::duration<double>(seams.clock.now() - begin).count();
    };
    Timer device(seams.loop, 40ms, Timer::Kind::Repeating,
                 [&] { line.receive(formatReadingLine(readingAt(session.play, played()))); });
    device.start();
    seams.loop.wait(start);
    run.start();
    PlayedRun result{.length = lengthOf(session.play)};
    while (link.parserRunning() && played() < 2 * result.length)
        seams.loop.wait(20ms);
    result.seconds = played();
    const auto texts = controls.boxTexts();
    std::int16_t box = 1;
    for (const int peak : session.peaks) {
        result.boxes.push_back(texts[static_cast<std::size_t>(box)]);
        result.expected.push_back(std::to_string(displayValue(place.session, peak)));
        box = nextRunPlace(box);
    }
    return result;
}

TEST(Practitioner, GetsAll24PointsDone) {
    for (const std::string_view name : profileNames())
        for (std::uint32_t seed = 1; seed <= 3; ++seed) {
            const auto sound = seed % 2 == 0 ? 1000ms : 0ms;
            const PlayedRun run = playRun(*profileOfName(name), seed, sound, seed * 37ms);
            EXPECT_EQ(run.boxes, run.expected) << name << ", seed " << seed;
            // Without a point that was taken twice.
            EXPECT_LT(run.seconds, run.length) << name << ", seed " << seed;
        }
}

TEST(Practitioner, ARunThatMissesPointsStillComesToItsEnd) {
    const PlayedRun run = playRun(Profile::Balanced, 1, 1000ms, 21'000ms);
    EXPECT_EQ(std::count(run.boxes.begin(), run.boxes.end(), ""), 0);
    EXPECT_EQ(run.boxes.back(), run.expected.back());
    EXPECT_GT(run.seconds, run.length);
}

TEST(Practitioner, AProfileIsAClientOfItsKind) {
    const auto peaksOf = [](const char* name, std::uint32_t seed) {
        return makePractitionerSession(*profileOfName(name), seed).peaks;
    };
    for (std::uint32_t seed = 1; seed <= 20; ++seed) {
        const auto balanced = peaksOf("balanced", seed);
        const auto oneSided = peaksOf("one-sided", seed);
        const auto exhausted = peaksOf("exhausted", seed);
        int apart = 0;
        for (std::size_t i = 0; i < pointCount; i += 2) {
            EXPECT_NEAR(balanced[i], balanced[i + 1], 7 * 30);
            EXPECT_GT(oneSided[i], oneSided[i + 1]);
            apart += oneSided[i] - oneSided[i + 1] > 50 * 30 ? 1 : 0;
        }
        EXPECT_GE(apart, 3);
        EXPECT_LT(*std::max_element(exhausted.begin(), exhausted.end()),
                  *std::min_element(balanced.begin(), balanced.end()));
    }
    EXPECT_EQ(peaksOf("balanced", 5), peaksOf("balanced", 5));
    EXPECT_NE(peaksOf("balanced", 5), peaksOf("balanced", 6));
    EXPECT_EQ(profileOfName("tired"), std::nullopt);
}

} // namespace
} // namespace vorna
