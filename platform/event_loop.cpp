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
    if (entered_)
        return;
    if (kind_ == Kind::OneShot)
        stop();
    entered_ = true;
    handler_();
    entered_ = false;
}

} // namespace vorna
