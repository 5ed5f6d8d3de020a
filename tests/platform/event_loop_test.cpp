#include "platform/virtual_event_loop.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vorna {
namespace {

using Kind = Timer::Kind;
using Milliseconds = EventLoop::Milliseconds;

class EventLoopTest : public ::testing::Test {
protected:
    // Notes the milliseconds since the beginning with a word.
    void note(const std::string& word) {
        notes.push_back(std::to_string((clock.now() - start).count()) + " " + word);
    }
    using Notes = std::vector<std::string>;

    const LocalTime start = *parseTime("2025-01-31T14:30:05");
    VirtualClock clock{start};
    VirtualEventLoop loop{clock};
    Notes notes;
};

TEST_F(EventLoopTest, AWaitJumpsFromTimerToTimer) {
    Timer slow(loop, Milliseconds{50}, Kind::Repeating, [&] { note("slow"); });
    Timer fast(loop, Milliseconds{20}, Kind::Repeating, [&] { note("fast"); });
    Timer once(loop, Milliseconds{20}, Kind::OneShot, [&] { note("once"); });
    slow.start();
    fast.start();
    once.start();
    loop.wait(Milliseconds{45});
    EXPECT_EQ(notes, (Notes{"20 fast", "20 once", "40 fast"}));
    EXPECT_EQ(clock.now(), start + Milliseconds{45}) << "a wait lasts as long as it says";
    EXPECT_FALSE(once.running());
    loop.wait(Milliseconds{15});
    EXPECT_EQ(notes, (Notes{"20 fast", "20 once", "40 fast", "50 slow", "60 fast"}));
}

TEST_F(EventLoopTest, ANoticeInsideATickKeepsTheTickOutAndLetsTheOthersGoOn) {
    Timer tick(loop, Milliseconds{200}, Kind::Repeating, [&] {
        note("tick");
        loop.wait(Milliseconds{450});
        note("noticed");
    });
    Timer other(loop, Milliseconds{150}, Kind::Repeating, [&] { note("other"); });
    tick.start();
    other.start();
    loop.wait(Milliseconds{700});
    EXPECT_EQ(notes, (Notes{"150 other", "200 tick", "300 other", "450 other", "600 other",
                            "650 noticed"}));
}

TEST_F(EventLoopTest, TimersObeyTheirHandlers) {
    int rounds = 0;
    Timer again(loop, Milliseconds{10}, Kind::OneShot, [&] {
        note("again");
        if (++rounds < 3)
            again.start();
    });
    Timer victim(loop, Milliseconds{25}, Kind::Repeating, [&] { note("victim"); });
    Timer killer(loop, Milliseconds{25}, Kind::OneShot, [&] { victim.stop(); });
    killer.start();
    victim.start();
    again.start();
    loop.wait(Milliseconds{100});
    EXPECT_EQ(notes, (Notes{"10 again", "20 again", "30 again"}));
}

TEST_F(EventLoopTest, AStartBeginsAnewAndTakesTheNewInterval) {
    Timer timer(loop, Milliseconds{100}, Kind::Repeating, [&] { note("timer"); });
    timer.start();
    loop.wait(Milliseconds{90});
    timer.setInterval(Milliseconds{30});
    loop.wait(Milliseconds{15});
    timer.start();
    loop.wait(Milliseconds{40});
    timer.stop();
    loop.wait(Milliseconds{500});
    EXPECT_EQ(notes, (Notes{"100 timer", "135 timer"}));
    {
        Timer gone(loop, Milliseconds{10}, Kind::Repeating, [&] { note("gone"); });
        gone.start();
    }
    loop.wait(Milliseconds{50});
    EXPECT_EQ(notes.size(), 2U) << "a timer stops when it goes";
}

TEST_F(EventLoopTest, ATurnHandlesWhatWaitsNowAndComesBack) {
    Timer tick(loop, Milliseconds{10}, Kind::Repeating, [&] {
        note("tick");
        if (notes.size() < 5)
            loop.wait(Milliseconds{10});
    });
    tick.start();
    loop.processEvents();
    EXPECT_EQ(notes, Notes{}) << "nothing is due yet";
    clock.moveTo(start + Milliseconds{10});
    loop.processEvents();
    EXPECT_EQ(notes, Notes{"10 tick"}) << "what becomes due while it runs is the next turn's";
}

TEST_F(EventLoopTest, AModalWindowEndsWhenItIsDoneOrNothingCanEndIt) {
    bool done = false;
    Timer closes(loop, Milliseconds{300}, Kind::OneShot, [&] { done = true; });
    closes.start();
    loop.runUntil([&] { return done; });
    EXPECT_EQ(clock.now(), start + Milliseconds{300});
    loop.runUntil([] { return false; });
    EXPECT_EQ(clock.now(), start + Milliseconds{300});
}

} // namespace
} // namespace vorna
