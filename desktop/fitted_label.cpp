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
constexpr double signGap = 9;   // at a type of 15 pixels
constexpr int roundingRoom = 2; // an advance is rounded, a text's end is not

} // namespace

double fittingTypeSize(const QString& text, const FittedType& type, const QSize& room) {
    double size = type.largest;
    for (; size > type.smallest; size -= typeStep) {
        const QFontMetrics metrics(sizedFont(size, type.bold));
        const int sign = type.sign > 0 ? px(size * type.sign) + px(signGap) : 0;
        const int width = metrics.size(0, text).width() + sign;
        const int height =
            metrics.height() + static_cast<int>(text.count('\n')) * metrics.lineSpacing();
        if (width <= room.width() && height <= room.height())
            break;
    }
    return size;
}

FittedLabel::FittedLabel(const FittedType& type, const QString& sign) : sign_(sign) {
    setTextFormat(Qt::PlainText);
    setType(type);
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
    return sign_.isEmpty() ? 0 : px(typeSize * type_.sign) + px(signGap);
}

QSize FittedLabel::sizeFor(double typeSize) const {
    const QFontMetrics metrics(sizedFont(typeSize, type_.bold));
    const QMargins margins = contentsMargins();
    const QSize text = metrics.size(0, shownText());
    return {text.width() + signWidth(typeSize) + margins.left() + margins.right() + 1,
            QFontMetrics(font()).height() + margins.top() + margins.bottom()};
}

QSize FittedLabel::sizeHint() const {
    return sizeFor(type_.largest);
}

QSize FittedLabel::minimumSizeHint() const {
    const QFontMetrics metrics(sizedFont(type_.smallest, type_.bold));
    return {sizeFor(type_.smallest).width(), metrics.height()};
}

double FittedLabel::fittingSize() const {
    return fittingTypeSize(shownText(), type_, contentsRect().size());
}

int FittedLabel::baseline() const {
    if (lineOf_ != nullptr)
        return lineOf_->baseline();
    const QFontMetrics metrics(sizedFont(fittingSize(), type_.bold));
    const QRect room = contentsRect();
    return room.top() + (room.height() + metrics.ascent() - metrics.descent()) / 2;
}

void FittedLabel::paintEvent(QPaintEvent*) {
    const QRect room = contentsRect();
    const double size = fittingSize();
    QPainter painter(this);
    painter.setFont(sizedFont(size, type_.bold));
    const QFontMetrics metrics = painter.fontMetrics();
    const int taken =
        std::min(metrics.horizontalAdvance(shownText()) + signWidth(size), room.width());
    int left = room.left();
    if ((alignment() & Qt::AlignRight) != 0)
        left += room.width() - taken;
    else if ((alignment() & Qt::AlignHCenter) != 0)
        left += (room.width() - taken) / 2;
    const QColor ink = type_.ink.isValid() ? type_.ink : palette().color(QPalette::WindowText);
    if (!sign_.isEmpty()) {
        const int side = px(size * type_.sign);
        painter.drawPixmap(QPoint(left, room.center().y() - side / 2),
                           iconPixmap(sign_, ink, side, devicePixelRatioF()));
        left += signWidth(size);
    }
    painter.setPen(ink);
    if (shownText().contains('\n')) {
        painter.drawText(room, static_cast<int>(alignment()), shownText());
        return;
    }
    const int wide = room.left() + room.width() - left;
    painter.drawText(left, baseline(),
                     metrics.elidedText(shownText(), Qt::ElideRight, wide + roundingRoom));
}

bool FittedLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && width() < minimumSizeHint().width()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), shownText(), this);
        return true;
    }
    return QLabel::event(event);
}

} // namespace vorna
