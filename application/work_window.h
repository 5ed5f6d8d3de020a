// The window of long work (export, import): what is done, how far it is, what is next, and the
// button that cancels it. The work itself runs on the window thread; whoever shows the window must
// keep the user from every other one while it is up, since the loop gets its turns meanwhile.
#pragma once

#include "core/window.h"
#include "exchange/work_progress.h"
#include "platform/event_loop.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace vorna {

class WorkWindow final : public Window, public WorkProgress {
public:
    // How long work lasts before the window comes up, and how often it tells its state then.
    struct Pace {
        std::chrono::milliseconds delay{300};
        std::chrono::milliseconds step{40};
    };

    WorkWindow() : WorkWindow(Pace{}) {}
    explicit WorkWindow(const Pace& pace) : Window("workfrm"), pace_(pace) {
        cancelButton.clicked = [this] { cancel(); };
    }

    Label text{*this, "Label1"};            // the work, in the words of the button that began it
    ProgressBar bar{*this, "ProgressBar1"}; // `done` of `total`; 0 of 0 while the total is unknown
    Label count{*this, "Label2"};           // "12 / 1000"; empty while the total is unknown
    Label name{*this, "Label3"};            // of the file or client that is next
    Button cancelButton{*this, "Command1"};

    // Runs the work, which asks `goesOn`, and comes back when it has ended. Nothing while another
    // work is running.
    void follow(EventLoop& loop, const std::string& what, const Handler& work);
    [[nodiscard]] bool running() const { return loop_ != nullptr; }

    // The work ends at its next safe point. The window stays up until then.
    void cancel();
    void close() override { cancel(); }

    bool goesOn(const Step& step) override;

    Handler appears;    // the work lasts: the window is to be seen
    Handler disappears; // it has ended; only after `appears`

private:
    void show(const Step& step);
    void end();

    Pace pace_;
    EventLoop* loop_ = nullptr; // while work is running
    bool cancelled_ = false;
    bool seen_ = false;
    std::optional<std::chrono::steady_clock::time_point> next_; // when the state is told again
};

} // namespace vorna
