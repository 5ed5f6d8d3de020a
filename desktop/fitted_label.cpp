#include "desktop/fitted_label.h"

#include "desktop/icons.h"
#include "desktop/theme.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace vorna {
namespace {

constexpr double typeStep = 0.5;
constexpr double signGap = 9; // at a type of 15 pixels

} // namespace

double fittingTypeSize(const QString& text, const FittedType& type, const QSize& room) {
    double size = type.largest;
    for (; size > type.smallest; size -= typeStep) {
        const QFontMetrics metrics(sizedFont(size, type.bold));
        if (metrics.horizontalAdvance(text) <= room.width() && metrics.height() <= room.height())
            break;
    }
    return size;
}

FittedLabel::FittedLabel(const FittedType& type, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setType(type);
}

void FittedLabel::setSign(const QString& iconName, double factor) {
    sign_ = iconName;
    signFactor_ = factor;
    updateGeometry();
    update();
}

void FittedLabel::setPlaceholder(const QString& text) {
    placeholder_ = text;
    update();
}

void FittedLabel::setType(const FittedType& type) {
    type_ = type;
    setFont(sizedFont(type.largest, type.bold));
    updateGeometry();
    update();
}

QString FittedLabel::shownText() const {
    const QString shown = text().trimmed();
    return shown.isEmpty() ? placeholder_ : shown;
}

int FittedLabel::signWidth(double typeSize) const {
    return sign_.isEmpty() ? 0 : px(typeSize * signFactor_) + px(signGap);
}

QSize FittedLabel::sizeFor(double typeSize) const {
    const QFontMetrics metrics(sizedFont(typeSize, type_.bold));
    const QMargins margins = contentsMargins();
    return {metrics.horizontalAdvance(shownText()) + signWidth(typeSize) + margins.left() +
                margins.right() + 1,
            QFontMetrics(font()).height() + margins.top() + margins.bottom()};
}

QSize FittedLabel::sizeHint() const {
    return sizeFor(type_.largest);
}

QSize FittedLabel::minimumSizeHint() const {
    const QFontMetrics metrics(sizedFont(type_.smallest, type_.bold));
    return {sizeFor(type_.smallest).width(), metrics.height()};
}

double FittedLabel::fittingSize(const QSize& room) const {
    return fittingTypeSize(shownText(), type_,
                           {room.width() - signWidth(type_.largest), room.height()});
}

void FittedLabel::paintEvent(QPaintEvent*) {
    const QRect room = contentsRect();
    const double size = fittingSize(room.size());
    QPainter painter(this);
    painter.setFont(sizedFont(size, type_.bold));
    const int taken = std::min(
        painter.fontMetrics().horizontalAdvance(shownText()) + signWidth(size), room.width());
    int left = room.left();
    if ((alignment() & Qt::AlignRight) != 0)
        left = room.left() + room.width() - taken;
    else if ((alignment() & Qt::AlignHCenter) != 0)
        left = room.left() + (room.width() - taken) / 2;
    const QColor ink = type_.ink.isValid() ? type_.ink : palette().color(QPalette::WindowText);
    if (!sign_.isEmpty()) {
        const int side = px(size * signFactor_);
        painter.drawPixmap(QPoint(left, room.center().y() - side / 2),
                           iconPixmap(sign_, ink, side, devicePixelRatioF()));
        left += signWidth(size);
    }
    painter.setPen(ink);
    const QRect line(left, room.top(), room.left() + room.width() - left, room.height());
    const QString shown =
        painter.fontMetrics().elidedText(shownText(), Qt::ElideRight, line.width());
    painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shown);
}

bool FittedLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && width() < minimumSizeHint().width()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), shownText(), this);
        return true;
    }
    return QLabel::event(event);
}

} // namespace vorna
