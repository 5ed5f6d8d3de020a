#include "desktop/desktop_windows.h"

#include "desktop/binder.h"
#include "desktop/theme.h"
#include "desktop/windows/views.h"

#include <QCloseEvent>
#include <QScreen>
#include <QShortcut>

#include <algorithm>
#include <utility>

namespace vorna {

WindowView::WindowView(Window& window)
    : QDialog(nullptr, Qt::Window), window_(window), binder_(std::make_unique<Binder>(window)) {
    binder_->windowChanged = [this] {
        setWindowTitle(qt(window_.caption()));
        if (window_.closed())
            hide();
    };
}

WindowView::~WindowView() = default;

void WindowView::setFirstSize(int width, int height) {
    const QSize room = screen()->availableSize();
    resize(std::min(px(width), room.width()), std::min(px(height), room.height() - px(34)));
}

void WindowView::closeEvent(QCloseEvent* event) {
    if (!window_.closed())
        window_.close();
    if (window_.closed())
        event->accept();
    else
        event->ignore();
}

void DesktopWindows::showModal(Window& window) {
    const std::unique_ptr<WindowView> view = makeView(session_, window);
    if (!view)
        return;
    window.open();
    window.load();
    view->setWindowTitle(qt(window.caption()));
    view->binder().showChanges();
    QWidget* const before = std::exchange(behind, view.get());
    bringBefore(before, *view);
    if (shown)
        shown(*view);
    loop_.runUntil([&] { return window.closed(); });
    behind = before;
}

// The help, which stands beside all windows, stays in use.
void DesktopWindows::bringBefore(QWidget* before, WindowView& view) {
    view.setParent(before, Qt::Window);
    view.setWindowModality(before == nullptr ? Qt::ApplicationModal : Qt::WindowModal);
    QObject::connect(new QShortcut(QKeySequence::HelpContents, &view), &QShortcut::activated, &view,
                     [this] { call(helpWanted); });
    view.show();
}

} // namespace vorna
