// The event loop of tests and of the headless tool: time stands still but for waits, and a wait
// jumps from timer to timer. Nothing blocks for real unless a speed is set.
#pragma once

#include "platform/clock.h"
#include "platform/event_loop.h"

#include <map>

namespace vorna {

class VirtualEventLoop final : public EventLoop {
public:
    // The clock moves with the loop and must outlive it.
    explicit VirtualEventLoop(VirtualClock& clock) : clock_(clock) {}

    // Lets time pass for real, `speed` times as fast; 0 (as made) jumps.
    void setSpeed(double speed) { speed_ = speed; }

    int startTimer(Milliseconds interval, Handler handler) override;
    void stopTimer(int number) override;
    // Runs the timers that are due now.
    void processEvents() override;
    void wait(Milliseconds duration) override;
    // Comes back as well when no timer is left that could bring the end about.
    void runUntil(const std::function<bool()>& done) override;

private:
    struct Entry {
        LocalTime due;
        Milliseconds interval;
        Handler handler;
    };

    // Runs the earliest timer that is due at `limit` or before; false when there is none.
    bool runNext(LocalTime limit);

    void moveClock(LocalTime time);

    VirtualClock& clock_;
    double speed_ = 0;
    std::map<int, Entry> timers_;
    int lastNumber_ = 0;
};

} // namespace vorna
