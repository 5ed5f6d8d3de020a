// The window of long work: what is done, how far it is, and the way to cancel it.
#pragma once

#include "application/work_window.h"
#include "desktop/desktop_windows.h"

#include <QObject>

#include <memory>

namespace vorna {

// Shows the window as soon as work lasts, in front of all others, until it ends. From the work's
// first moment on nothing that the user does reaches another window.
class WorkView final : public QObject {
public:
    // The window must outlive it.
    explicit WorkView(WorkWindow& window);
    WorkView(const WorkView&) = delete;
    WorkView& operator=(const WorkView&) = delete;
    ~WorkView() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    WorkWindow& window_;
    std::unique_ptr<WindowView> view_; // while it is seen
};

std::unique_ptr<WindowView> makeWorkView(WorkWindow& window);

} // namespace vorna
