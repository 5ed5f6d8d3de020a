#include "desktop/windows/window_parts.h"

#include "desktop/binder.h"
#include "desktop/card.h"
#include "desktop/flow_layout.h"
#include "desktop/icons.h"
#include "desktop/picture_view.h"
#include "desktop/theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>

namespace vorna {
namespace {

constexpr int footGap = 10;

// As wide at least as its content and the scroll bar beside it.
class ScrollingColumn final : public QScrollArea {
public:
    ScrollingColumn() {
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == widget() && event->type() == QEvent::LayoutRequest)
            setMinimumWidth(widget()->minimumSizeHint().width() +
                            verticalScrollBar()->sizeHint().width());
        return QScrollArea::eventFilter(watched, event);
    }
};

} // namespace

QVBoxLayout* windowColumn(QWidget& view) {
    QVBoxLayout* const lines = column();
    lines->setContentsMargins(px(20), px(16), px(20), px(16));
    view.setLayout(lines);
    return lines;
}

QLabel* textLabel(double size, bool bold, const QColor& ink) {
    QLabel* const label = wrappingLabel();
    label->setFont(sizedFont(size, bold));
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, ink);
    label->setPalette(palette);
    return label;
}

QLabel* signLabel(const QString& iconName, const QColor& colour, double size) {
    auto* const label = new QLabel;
    label->setPixmap(iconPixmap(iconName, colour, px(size), label->devicePixelRatioF()));
    label->setFixedWidth(px(size));
    return label;
}

QWidget* titleBlock(Binder& binder, Label& title, Label& subtitle) {
    auto* const whole = new QWidget;
    QVBoxLayout* const lines = column(2);
    whole->setLayout(lines);
    QLabel* const name = textLabel(22, true, theme().ink);
    binder.bind(title, *name);
    lines->addWidget(name);
    QLabel* const of = textLabel(14.5, false, theme().ink2);
    binder.bind(subtitle, *of);
    lines->addWidget(of);
    return whole;
}

void bindUnlessEmpty(Binder& binder, Label& control, QLabel& label) {
    binder.bind(control, label);
    binder.onChange(control, [&control, &label] {
        setShown(label, control.visible && !control.caption.get().empty());
    });
}

void bindUnlessEmpty(Binder& binder, Picture& control, PictureView& picture) {
    binder.bind(control, picture);
    binder.onChange(control, [&control, &picture] {
        setShown(picture, control.visible && picture.hasPicture());
    });
}

QPushButton* boundButton(Binder& binder, Button& control, const QString& iconName,
                         ButtonRole role) {
    QPushButton* const made = button(iconName, role);
    binder.bind(control, *made);
    return made;
}

QPushButton* boundButton(Binder& binder, Picture& control, const QString& iconName) {
    QPushButton* const made = button(iconName);
    binder.bind(static_cast<Control&>(control), *made);
    binder.onChange(control, [&control, made] {
        const QString caption = qt(control.caption);
        made->setText(QString(caption).replace('&', "&&"));
        made->setAccessibleName(caption);
    });
    QObject::connect(made, &QPushButton::clicked, made, [&control] { call(control.clicked); });
    return made;
}

QScrollArea* scrollingColumn(QWidget* content) {
    auto* const area = new ScrollingColumn;
    area->setWidget(content);
    const auto scrollBy = [area](Qt::Key key, QAbstractSlider::SliderAction action) {
        auto* const shortcut = new QShortcut(key, area);
        QObject::connect(shortcut, &QShortcut::activated, area,
                         [area, action] { area->verticalScrollBar()->triggerAction(action); });
    };
    scrollBy(Qt::Key_PageDown, QAbstractSlider::SliderPageStepAdd);
    scrollBy(Qt::Key_PageUp, QAbstractSlider::SliderPageStepSub);
    return area;
}

WindowFoot::WindowFoot() : left_(new FlowLayout(px(footGap))), right_(row(footGap)) {
    auto* const line = row(footGap);
    setLayout(line);
    line->addLayout(left_, 1);
    line->addLayout(right_);
    line->setAlignment(right_, Qt::AlignBottom);
}

void WindowFoot::addLeft(QPushButton* button) {
    left_->addWidget(button);
}

void WindowFoot::addRight(QPushButton* button) {
    right_->addWidget(button);
}

void WindowFoot::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (giving_ == nullptr)
        return;
    if (const QString text = giving_->text(); !text.isEmpty()) {
        givingText_ = text;
        givingWidth_ = giving_->sizeHint().width();
    }
    const int others =
        left_->sizeHint().width() + right_->sizeHint().width() - giving_->sizeHint().width();
    const bool fits = others + givingWidth_ + px(footGap) <= width();
    giving_->setText(fits ? givingText_ : QString());
    giving_->setToolTip(fits ? QString() : giving_->accessibleName());
}

} // namespace vorna
