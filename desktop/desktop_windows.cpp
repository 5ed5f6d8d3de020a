#include "desktop/desktop_windows.h"

#include "desktop/binder.h"
#include "desktop/theme.h"
#include "desktop/windows/views.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>

#include <algorithm>

namespace vorna {

WindowView::WindowView(Window& window)
    : QDialog(QApplication::activeWindow(), Qt::Window), window_(window),
      binder_(std::make_unique<Binder>(window)) {
    setWindowModality(Qt::ApplicationModal);
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
    view->show();
    if (shown)
        shown(*view);
    loop_.runUntil([&] { return window.closed(); });
}

} // namespace vorna
