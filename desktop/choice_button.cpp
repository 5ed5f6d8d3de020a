#include "desktop/choice_button.h"

#include "desktop/icons.h"
#include "desktop/theme.h"

#include <QPainter>

namespace vorna {
namespace {

constexpr double choiceRadius = 6;

} // namespace

ChoiceButton::ChoiceButton(const QString& sign, Form form, bool plain, QWidget* parent)
    : QAbstractButton(parent), sign_(sign), form_(form), plain_(plain) {
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ChoiceButton::setWord(const QString& word) {
    word_ = word;
    setAccessibleName(word);
    updateGeometry();
    update();
}

QString ChoiceButton::word() const {
    QString shown = word_.isEmpty() ? text() : word_;
    return word_.isEmpty() ? shown.remove('&') : shown;
}

QSize ChoiceButton::sizeHint() const {
    const bool above = form_ == Form::Above;
    const QFontMetrics metrics(sizedFont(above ? 13.5 : 17, true));
    const int words = metrics.horizontalAdvance(word());
    return above ? QSize(words + px(24), px(58)) : QSize(words + px(90), px(62));
}

void ChoiceButton::paintEvent(QPaintEvent*) {
    const Theme& t = theme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool on = isChecked();
    painter.setPen(on || hasFocus() ? QPen(t.accent, 2) : QPen(t.edge, 1));
    painter.setBrush(on ? t.soft : underMouse() ? t.raised : t.surface);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), choiceRadius, choiceRadius);
    if (on && hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(4, 4, -4, -4), choiceRadius - 2,
                                choiceRadius - 2);
    }
    const QColor ink = on ? t.softInk : t.ink;
    const bool above = form_ == Form::Above;
    painter.setFont(sizedFont(above ? 13.5 : 17, on));
    painter.setPen(ink);
    const int words = painter.fontMetrics().horizontalAdvance(word());
    const QSize sign = plain_ ? QSize(px(24), px(16)) : QSize(px(24), px(24));
    const QPixmap drawing = plain_ ? drawnIcon(sign_).pixmap(sign, devicePixelRatioF())
                                   : iconPixmap(sign_, ink, sign.width(), devicePixelRatioF());
    if (above) {
        painter.drawPixmap(QPoint((width() - sign.width()) / 2, px(9)), drawing);
        painter.drawText(QRect(0, px(28), width(), height() - px(30)), Qt::AlignCenter, word());
    } else {
        const int left = (width() - words - sign.width() - px(10)) / 2;
        painter.drawPixmap(QPoint(left, (height() - sign.height()) / 2), drawing);
        painter.drawText(QRect(left + sign.width() + px(10), 0, words + px(4), height()),
                         Qt::AlignVCenter, word());
    }
    if (on) {
        const int side = px(14);
        painter.drawPixmap(QPoint(width() - side - px(8), px(8)),
                           iconPixmap("check", t.softInk, side, devicePixelRatioF()));
    }
}

} // namespace vorna
