// The event loop of the desktop program: Qt's.
#pragma once

#include "platform/event_loop.h"

#include <map>
#include <memory>

class QTimer;

namespace vorna {

// Needs a QCoreApplication. A timer that is stopped while its handler runs ends with it.
class QtEventLoop final : public EventLoop {
public:
    QtEventLoop();
    QtEventLoop(const QtEventLoop&) = delete;
    QtEventLoop& operator=(const QtEventLoop&) = delete;
    ~QtEventLoop() override;

    int startTimer(Milliseconds interval, Handler handler) override;
    void stopTimer(int number) override;
    void processEvents() override;
    void processEventsButInput() override;
    void wait(Milliseconds duration) override;
    void runUntil(const std::function<bool()>& done) override;

    // Ends every wait at once, as the program ends.
    void end();

private:
    std::map<int, std::unique_ptr<QTimer>> timers_;
    int lastNumber_ = 0;
    bool ended_ = false;
};

} // namespace vorna
