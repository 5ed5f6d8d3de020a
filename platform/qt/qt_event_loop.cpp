#include "platform/qt/qt_event_loop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <memory>

namespace vorna {

QtEventLoop::QtEventLoop() = default;

QtEventLoop::~QtEventLoop() = default;

int QtEventLoop::startTimer(Milliseconds interval, Handler handler) {
    const int number = ++lastNumber_;
    auto timer = std::make_unique<QTimer>();
    timer->setTimerType(Qt::PreciseTimer);
    // The handler may stop its own timer: it is held until it has come back.
    const auto kept = std::make_shared<Handler>(std::move(handler));
    QObject::connect(timer.get(), &QTimer::timeout, [kept] {
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
        const std::shared_ptr<Handler> held = kept;
        (*held)();
    });
    timer->start(interval);
    timers_[number] = std::move(timer);
    return number;
}

void QtEventLoop::stopTimer(int number) {
    const auto at = timers_.find(number);
    if (at == timers_.end())
        return;
    at->second->stop();
    at->second.release()->deleteLater(); // it may be the one that fires now
    timers_.erase(at);
}

void QtEventLoop::processEvents() {
    QCoreApplication::processEvents();
}

void QtEventLoop::processEventsButInput() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtEventLoop::wait(Milliseconds duration) {
    QElapsedTimer elapsed;
    elapsed.start();
    QTimer wake; // so that the loop comes back in time
    wake.setSingleShot(true);
    wake.setTimerType(Qt::PreciseTimer);
    wake.start(duration);
    runUntil([&] { return elapsed.elapsed() >= duration.count(); });
}

void QtEventLoop::runUntil(const std::function<bool()>& done) {
    while (!ended_ && !done())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void QtEventLoop::end() {
    ended_ = true;
    if (QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance())
        dispatcher->wakeUp();
}

} // namespace vorna
