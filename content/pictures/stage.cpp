#include "content/pictures/stage.h"

#include "platform/failure.h"

#include <algorithm>

namespace vorna {
namespace {

constexpr double outlineUnits = 4; // of the skin, in every drawing

// The start of a stretch of `length` round `middle`, moved to lie within 0 to `end`.
double startWithin(double middle, double length, double end) {
    return length >= end ? (end - length) / 2 : std::clamp(middle - length / 2, 0.0, end - length);
}

} // namespace

QTransform Stage::transform() const {
    QTransform all;
    all.translate(target.left(), target.top());
    all.scale(scale(), scale());
    if (mirrored) {
        all.translate(part.width(), 0);
        all.scale(-1, 1);
    }
    all.translate(-part.left(), -part.top());
    return all;
}

QPointF Stage::place(const std::string& pointLong) const {
    const auto found = view.points.find(pointLong);
    if (found == view.points.end())
        throw Failure("the view " + view.name + " does not show the point " + pointLong);
    return map(found->second.at);
}

Stage wholeView(const AtlasView& view, const QRectF& room, bool mirrored) {
    QRectF target(QPointF(0, 0), view.canvas.scaled(room.size(), Qt::KeepAspectRatio));
    target.moveCenter(room.center());
    return {.view = view, .part = view.area(), .target = target, .mirrored = mirrored};
}

Stage closeView(const AtlasView& view, const Surroundings& surroundings, const QRectF& room,
                bool mirrored) {
    const double width = surroundings.width;
    const double height = width * room.height() / room.width();
    const QPointF corner{startWithin(surroundings.at.x(), width, view.canvas.width()),
                         startWithin(surroundings.at.y(), height, view.canvas.height())};
    return {.view = view,
            .part = {corner, QSizeF(width, height)},
            .target = room,
            .mirrored = mirrored};
}

void drawView(QPainter& painter, const Stage& stage, double outline) {
    const double widening = outline / (outlineUnits * stage.scale());
    painter.save();
    painter.setClipRect(stage.target);
    painter.setTransform(stage.transform(), true);
    painter.setClipRect(stage.view.area(), Qt::IntersectClip);
    for (const DrawnShape& shape : stage.view.drawing) {
        QPen pen = shape.pen;
        pen.setWidthF(pen.widthF() * widening);
        painter.setPen(pen);
        painter.setBrush(shape.fill.isValid() ? QBrush(shape.fill) : QBrush(Qt::NoBrush));
        painter.drawPath(shape.path);
    }
    painter.restore();
}

} // namespace vorna
