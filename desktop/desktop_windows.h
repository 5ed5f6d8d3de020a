// Shows the windows that open from the main window: each view model gets the view that was made for
// it, in front of all others until it is closed.
#pragma once

#include "core/session.h"
#include "core/window.h"
#include "platform/event_loop.h"

#include <QDialog>

#include <functional>
#include <memory>

namespace vorna {

class Binder;

// A window in front of the main window. Closing it, by Esc too, asks its view model, which may stay
// open.
class WindowView : public QDialog {
public:
    explicit WindowView(Window& window);
    ~WindowView() override;

    [[nodiscard]] Window& model() const { return window_; }
    [[nodiscard]] Binder& binder() const { return *binder_; }

    // What stands at first in the room of the screen: a share of it, at most this many pixels of
    // the 15 px body text.
    void setFirstSize(int width, int height);

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override { close(); }

private:
    Window& window_;
    std::unique_ptr<Binder> binder_;
};

class DesktopWindows final : public WindowHost {
public:
    DesktopWindows(const Session& session, EventLoop& loop) : session_(session), loop_(loop) {}

    void showModal(Window& window) override;

    // The window that the next one stands before; at first the main window's.
    QWidget* behind = nullptr;
    // F1 in any of the windows.
    std::function<void()> helpWanted;
    // For tests and pictures of windows: called with each view once it is shown.
    std::function<void(WindowView&)> shown;

private:
    void bringBefore(QWidget* before, WindowView& view);

    const Session& session_;
    EventLoop& loop_;
};

} // namespace vorna
