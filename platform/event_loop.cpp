#include "platform/event_loop.h"

#include <utility>

namespace vorna {

Timer::Timer(EventLoop& loop, EventLoop::Milliseconds interval, Kind kind,
             EventLoop::Handler handler)
    : loop_(loop), interval_(interval), kind_(kind), handler_(std::move(handler)) {}

Timer::~Timer() {
    stop();
}

void Timer::start() {
    stop();
    number_ = loop_.startTimer(interval_, [this] { fire(); });
}

void Timer::stop() {
    if (number_ != 0)
        loop_.stopTimer(std::exchange(number_, 0));
}

void Timer::fire() {
    const std::shared_ptr<bool> entered = entered_;
    if (*entered)
        return;
    if (kind_ == Kind::OneShot)
        stop();
    // Left again also when the handler throws.
    struct Entry {
        explicit Entry(bool& flag) : flag_(flag) { flag_ = true; }
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;
        ~Entry() { flag_ = false; }
        bool& flag_;
    };
    const Entry entry(*entered);
    const EventLoop::Handler handler = handler_;
    handler();
}

} // namespace vorna
