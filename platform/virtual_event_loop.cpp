#include "platform/virtual_event_loop.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace vorna {

void VirtualEventLoop::setPace(double speed, std::function<void(RealTime until)> pause) {
    speed_ = speed;
    pause_ =
        pause ? std::move(pause) : [](RealTime until) { std::this_thread::sleep_until(until); };
    realStart_ = std::chrono::steady_clock::now();
    start_ = clock_.now();
}

int VirtualEventLoop::startTimer(Milliseconds interval, Handler handler) {
    // A timer of zero would never let the time go on.
    interval = std::max(interval, Milliseconds{1});
    timers_[++lastNumber_] = {clock_.now() + interval, interval, std::move(handler)};
    return lastNumber_;
}

void VirtualEventLoop::stopTimer(int number) {
    timers_.erase(number);
}

void VirtualEventLoop::processEvents() {
    while (runNext(clock_.now())) {
    }
}

void VirtualEventLoop::wait(Milliseconds duration) {
    const LocalTime end = clock_.now() + duration;
    while (runNext(end)) {
    }
    moveClock(end);
}

void VirtualEventLoop::runUntil(const std::function<bool()>& done) {
    while (!done() && runNext(LocalTime::max())) {
    }
}

bool VirtualEventLoop::runNext(LocalTime limit) {
    const auto earliest =
        std::min_element(timers_.begin(), timers_.end(),
                         [](const auto& a, const auto& b) { return a.second.due < b.second.due; });
    if (earliest == timers_.end() || earliest->second.due > limit)
        return false;
    moveClock(earliest->second.due);
    earliest->second.due = clock_.now() + earliest->second.interval;
    const Handler handler = earliest->second.handler; // the timer may stop itself while it runs
    handler();
    return true;
}

void VirtualEventLoop::moveClock(LocalTime time) {
    if (time <= clock_.now())
        return;
    if (speed_ > 0)
        pause_(realStart_ +
               std::chrono::duration_cast<RealTime::duration>((time - start_) / speed_));
    clock_.moveTo(time);
}

} // namespace vorna
