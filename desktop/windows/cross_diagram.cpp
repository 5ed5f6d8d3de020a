#include "desktop/windows/cross_diagram.h"

#include "desktop/theme.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <utility>

namespace vorna {
namespace {

constexpr double nameSize = 16;
constexpr double nameGap = 10;
constexpr double markerSide = 22;
// The figure and the circles are drawn on a square of this side.
constexpr double drawingSide = 430;

// On the paper, which hardly differs between the themes.
constexpr QColor axisColour(0x55, 0x55, 0x55);
constexpr QColor circleColour(0xB9, 0xB4, 0xA8);
constexpr QColor markerColour(0xA3, 0x26, 0x1B);

QFont nameFont() {
    return sizedFont(nameSize, true);
}

void paintFigure(QPainter& painter) {
    QPainterPath arms;
    arms.moveTo(191, 158);
    arms.lineTo(118, 84);
    arms.moveTo(239, 158);
    arms.lineTo(312, 84);
    QPainterPath legs;
    legs.moveTo(196, 248);
    legs.lineTo(184, 372);
    legs.moveTo(234, 248);
    legs.lineTo(246, 372);
    QPainterPath trunk;
    trunk.addPolygon(QPolygonF({{190, 158}, {240, 158}, {234, 246}, {196, 246}}));
    trunk.closeSubpath();
    QColor skin = theme().paperLine;
    skin = QColor::fromRgb((skin.red() + theme().paper.red()) / 2,
                           (skin.green() + theme().paper.green()) / 2,
                           (skin.blue() + theme().paper.blue()) / 2);
    const auto limb = [&](const QPainterPath& path, double width) {
        painter.strokePath(path, QPen(skin, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    };
    limb(arms, 21);
    limb(legs, 28);
    limb(trunk, 24);
    painter.fillPath(trunk, skin);
    painter.setPen(Qt::NoPen);
    painter.setBrush(skin);
    painter.drawEllipse(QPointF(drawingSide / 2, 105), 27, 27);
}

void paintCircles(QPainter& painter) {
    QPen pen(circleColour, 1, Qt::DashLine, Qt::FlatCap);
    pen.setDashPattern({2, 4});
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    for (const double share : {0.25, 0.5, 0.75})
        painter.drawEllipse(QPointF(drawingSide / 2, drawingSide / 2), drawingSide / 2 * share,
                            drawingSide / 2 * share);
}

} // namespace

CrossDiagram::CrossDiagram(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CrossDiagram::setEnds(Ends ends) {
    ends_ = std::move(ends);
    updateGeometry();
    update();
}

void CrossDiagram::setMarker(const std::optional<CrossMarker>& marker) {
    marker_ = marker;
    update();
}

QSizeF CrossDiagram::namesRoom() const {
    const QFontMetricsF metrics(nameFont());
    const double across =
        std::max(metrics.horizontalAdvance(ends_.left), metrics.horizontalAdvance(ends_.right));
    return {2 * (across + px(nameGap)), 2 * (metrics.height() + px(nameGap) / 2.0)};
}

QSize CrossDiagram::sizeHint() const {
    return (QSizeF(px(drawingSide), px(drawingSide)) + namesRoom()).toSize();
}

QSize CrossDiagram::minimumSizeHint() const {
    return (QSizeF(px(120), px(120)) + namesRoom()).toSize();
}

void CrossDiagram::paintNames(QPainter& painter, const QRectF& square) const {
    painter.setFont(nameFont());
    painter.setPen(theme().ink);
    const QSizeF room = namesRoom() / 2;
    const double gap = px(nameGap);
    const double height = room.height();
    const QPointF middle = square.center();
    painter.drawText(
        QRectF(square.left() - room.width(), middle.y() - height, room.width() - gap, 2 * height),
        Qt::AlignRight | Qt::AlignVCenter, ends_.left);
    painter.drawText(QRectF(square.right() + gap, middle.y() - height, room.width(), 2 * height),
                     Qt::AlignLeft | Qt::AlignVCenter, ends_.right);
    painter.drawText(QRectF(0, square.top() - height, width(), height - gap / 2),
                     Qt::AlignHCenter | Qt::AlignBottom, ends_.top);
    painter.drawText(QRectF(0, square.bottom() + gap / 2, width(), height),
                     Qt::AlignHCenter | Qt::AlignTop, ends_.bottom);
}

void CrossDiagram::paintMarker(QPainter& painter, const QRectF& square) const {
    if (!marker_)
        return;
    const auto share = [](std::int32_t units) {
        return std::clamp(double(units) / crossSize, 0.0, 1.0);
    };
    const QPointF place(square.left() + share(marker_->centreX) * square.width(),
                        square.bottom() - share(marker_->referenceY) * square.height());
    QPen dashes(markerColour, 1.3, Qt::DashLine, Qt::FlatCap);
    dashes.setDashPattern({4, 3});
    painter.setPen(dashes);
    painter.drawLine(place, QPointF(place.x(), square.center().y()));
    painter.drawLine(place, QPointF(square.center().x(), place.y()));
    const double side = px(markerSide);
    painter.setPen(QPen(theme().paper, 2.5));
    painter.setBrush(markerColour);
    painter.drawRoundedRect(QRectF(place.x() - side / 2, place.y() - side / 2, side, side), 4, 4);
}

void CrossDiagram::paintEvent(QPaintEvent*) {
    const QSizeF room = QSizeF(size()) - namesRoom();
    const double side = std::min(room.width(), room.height());
    if (side <= 0)
        return;
    const QRectF square((width() - side) / 2, (height() - side) / 2, side, side);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(theme().edge);
    painter.setBrush(theme().paper);
    painter.drawRoundedRect(square, 6, 6);
    painter.save();
    painter.translate(square.topLeft());
    painter.scale(side / drawingSide, side / drawingSide);
    paintFigure(painter);
    paintCircles(painter);
    painter.restore();
    painter.setPen(QPen(axisColour, 1.5));
    painter.drawLine(QPointF(square.center().x(), square.top()),
                     QPointF(square.center().x(), square.bottom()));
    painter.drawLine(QPointF(square.left(), square.center().y()),
                     QPointF(square.right(), square.center().y()));
    paintMarker(painter, square);
    paintNames(painter, square);
}

} // namespace vorna
