#include "desktop/wizard/contact_ring.h"

#include "desktop/fitted_label.h"
#include "desktop/theme.h"

#include <QPainter>

#include <algorithm>

namespace vorna {
namespace {

constexpr double ringSide = 272;
constexpr double leastRingSide = 120;
constexpr double bandShare = 20.0 / 280; // of the side
constexpr double ringType = 106;
constexpr double emptyType = 64;
constexpr double leastRingType = 20;
constexpr double valueRoomShare = 0.72; // of the side, inside the band
constexpr int growthMs = 190;           // a little less than from one tick to the next

} // namespace

ContactRing::ContactRing(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    setMaximumHeight(px(ringSide));
    growth_.setDuration(growthMs);
    connect(&growth_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        shown_ = value.toDouble();
        update();
    });
}

void ContactRing::setShare(double share) {
    if (share == share_)
        return;
    growth_.stop();
    if (share > share_) {
        growth_.setStartValue(shown_);
        growth_.setEndValue(share);
        growth_.start();
    } else {
        shown_ = share;
    }
    share_ = share;
    update();
}

void ContactRing::setValue(const QString& value) {
    if (value == value_)
        return;
    value_ = value;
    setAccessibleDescription(value);
    update();
}

QSize ContactRing::sizeHint() const {
    return {px(ringSide), px(ringSide)};
}

QSize ContactRing::minimumSizeHint() const {
    return {px(leastRingSide), px(leastRingSide)};
}

void ContactRing::paintEvent(QPaintEvent*) {
    const Theme& t = theme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double side = std::min(width(), height());
    const double band = side * bandShare;
    QRectF circle(0, 0, side - band - 2, side - band - 2);
    circle.moveCenter(QRectF(rect()).center());
    painter.setPen(QPen(t.line, band));
    painter.drawEllipse(circle);
    if (shown_ > 0) {
        constexpr int top = 90 * 16;
        constexpr int wholeTurn = 360 * 16;
        painter.setPen(QPen(t.accent, band, Qt::SolidLine, Qt::RoundCap));
        painter.drawArc(circle, top, -static_cast<int>(wholeTurn * shown_));
    }
    const bool empty = value_.isEmpty();
    const QString shown = empty ? QString(QChar(0x2013)) : value_;
    const double largest = (empty ? emptyType : ringType) * side / px(ringSide);
    const QSize inside(static_cast<int>(side * valueRoomShare), height());
    const double size = fittingTypeSize(shown, {largest, leastRingType, !empty}, inside);
    painter.setFont(sizedFont(size, !empty));
    painter.setPen(empty ? t.edge : t.ink);
    painter.drawText(rect(), Qt::AlignCenter, shown);
}

} // namespace vorna
