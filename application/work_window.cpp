#include "application/work_window.h"

#include "core/number.h"

#include <memory>

namespace vorna {

void WorkWindow::follow(EventLoop& loop, const std::string& what, const Handler& work) {
    if (running())
        return;
    loop_ = &loop;
    cancelled_ = false;
    cancelButton.enabled = true;
    text.caption = what;
    next_.reset();
    show({});
    const auto atTheEnd = [](WorkWindow* window) { window->end(); };
    const std::unique_ptr<WorkWindow, decltype(atTheEnd)> guard(this, atTheEnd);
    call(work);
}

void WorkWindow::cancel() {
    cancelled_ = true;
    cancelButton.enabled = false;
}

bool WorkWindow::goesOn(const Step& step) {
    const auto now = std::chrono::steady_clock::now();
    if (!next_)
        next_ = now + pace_.delay; // a question before the work's first step takes no time of it
    if (!running() || now < *next_)
        return !cancelled_;
    show(step);
    if (!seen_) {
        seen_ = true;
        open();
        call(appears);
    }
    loop_->processEvents();
    next_ = std::chrono::steady_clock::now() + pace_.step;
    return !cancelled_;
}

void WorkWindow::show(const Step& step) {
    const auto done = static_cast<std::int64_t>(step.done);
    const auto total = static_cast<std::int64_t>(step.total);
    bar.maximum = static_cast<std::int32_t>(total);
    bar.value = static_cast<std::int32_t>(done);
    count.caption = total == 0 ? "" : decimalText(done) + " / " + decimalText(total);
    name.caption = std::string(step.name);
}

void WorkWindow::end() {
    loop_ = nullptr;
    if (!seen_)
        return;
    seen_ = false;
    Window::close();
    call(disappears);
}

} // namespace vorna
