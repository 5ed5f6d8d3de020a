// The one thread's event loop as the system sees it: timers, a turn for waiting events, and waits
// that block their caller while every other timer goes on.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace vorna {

class EventLoop {
public:
    using Handler = std::function<void()>;
    using Milliseconds = std::chrono::milliseconds;

    virtual ~EventLoop() = default;

    // Calls the handler every `interval` until it is stopped. The number names it, and is never 0.
    virtual int startTimer(Milliseconds interval, Handler handler) = 0;
    // Harmless for a number that runs no more.
    virtual void stopTimer(int number) = 0;
    // Handles what waits now and comes back.
    virtual void processEvents() = 0;
    // The same without the user's input, which waits: for a timer's handler, on which a window that
    // opens would stand.
    virtual void processEventsButInput() = 0;
    // A nested turn of the loop for this long.
    virtual void wait(Milliseconds duration) = 0;
    // A nested turn of the loop until `done` says so; a modal window stands on it.
    virtual void runUntil(const std::function<bool()>& done) = 0;
};

// A timer of a window or procedure. Its handler is never entered while it is still on the stack
// (a notice inside a tick keeps the tick from coming again), while all other timers run. It stops
// when it goes. The loop must outlive it.
class Timer {
public:
    enum class Kind { Repeating, OneShot };

    Timer(EventLoop& loop, EventLoop::Milliseconds interval, Kind kind, EventLoop::Handler handler);
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    ~Timer();

    // Begins anew when it runs already.
    void start();
    void stop();
    [[nodiscard]] bool running() const { return number_ != 0; }
    // Holds from the next start on.
    void setInterval(EventLoop::Milliseconds interval) { interval_ = interval; }

private:
    void fire();

    EventLoop& loop_;
    EventLoop::Milliseconds interval_;
    Kind kind_;
    EventLoop::Handler handler_;
    int number_ = 0;
    // Whether the handler is on the stack; shared, so that a handler may destroy its timer.
    std::shared_ptr<bool> entered_ = std::make_shared<bool>(false);
};

} // namespace vorna
