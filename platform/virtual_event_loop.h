// The event loop of tests and of the headless tool: time stands still but for waits, and a wait
// jumps from timer to timer. Nothing blocks for real unless a pace is set.
#pragma once

#include "platform/clock.h"
#include "platform/event_loop.h"

#include <map>

namespace vorna {

class VirtualEventLoop final : public EventLoop {
public:
    // The clock moves with the loop and must outlive it.
    explicit VirtualEventLoop(VirtualClock& clock) : clock_(clock) {}

    using RealTime = std::chrono::steady_clock::time_point;

    // Lets time pass for real from now on, `speed` times as fast; 0 (as made) jumps. Late steps are
    // caught up. `pause` passes the time until a moment, at once when it is over, and may let
    // something come in meanwhile; without one the thread sleeps.
    void setPace(double speed, std::function<void(RealTime until)> pause = {});

    int startTimer(Milliseconds interval, Handler handler) override;
    void stopTimer(int number) override;
    // Runs the timers that are due now.
    void processEvents() override;
    void processEventsButInput() override { processEvents(); } // there is no input
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
    std::function<void(RealTime)> pause_;
    RealTime realStart_;
    LocalTime start_;
    std::map<int, Entry> timers_;
    int lastNumber_ = 0;
};

} // namespace vorna
