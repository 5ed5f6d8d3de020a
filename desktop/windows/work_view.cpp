#include "desktop/windows/work_view.h"

#include "desktop/binder.h"
#include "desktop/card.h"
#include "desktop/theme.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace vorna {
namespace {

constexpr int workWidth = 460;

} // namespace

std::unique_ptr<WindowView> makeWorkView(WorkWindow& window) {
    auto view = std::make_unique<WindowView>(window);
    Binder& binder = view->binder();
    auto* const lines = column(12);
    lines->setContentsMargins(px(22), px(20), px(22), px(18));
    view->setLayout(lines);
    auto* const what = new QLabel;
    what->setFont(sizedFont(17, true));
    binder.bind(window.text, *what);
    lines->addWidget(what);
    auto* const bar = new QProgressBar;
    bar->setTextVisible(false);
    bar->setFixedHeight(px(18));
    binder.bind(window.bar, *bar);
    lines->addWidget(bar);
    auto* const state = row(12);
    auto* const name = new QLabel;
    name->setTextFormat(Qt::PlainText);
    name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    binder.bind(window.name, *name);
    auto* const count = new QLabel;
    binder.bind(window.count, *count);
    state->addWidget(name, 1);
    state->addWidget(count);
    lines->addLayout(state);
    QPushButton* const cancel = button("x");
    binder.bind(window.cancelButton, *cancel);
    lines->addWidget(cancel, 0, Qt::AlignRight);
    view->setMinimumWidth(px(workWidth));
    return view;
}

WorkView::WorkView(WorkWindow& window) : window_(window) {
    window.appears = [this] {
        view_ = makeWorkView(window_);
        view_->setParent(QApplication::activeWindow(), Qt::Window);
        view_->setWindowModality(Qt::ApplicationModal);
        view_->setWindowTitle(qt(window_.text.caption));
        view_->show();
    };
    window.disappears = [this] { view_.reset(); };
    qApp->installEventFilter(this);
}

bool WorkView::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::Wheel:
    case QEvent::Close:
        // A chooser or question of the work is a modal window, too.
        return window_.running() && QApplication::activeModalWidget() == nullptr;
    default:
        return QObject::eventFilter(watched, event);
    }
}

WorkView::~WorkView() {
    window_.appears = {};
    window_.disappears = {};
}

} // namespace vorna
