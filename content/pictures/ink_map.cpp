#include "content/pictures/ink_map.h"

#include <QtMath>

#include <algorithm>

namespace vorna {
namespace {

constexpr double cell = 6; // pixels

} // namespace

InkMap::InkMap(const QRectF& room)
    : room_(room), width_(qCeil(room.width() / cell)), height_(qCeil(room.height() / cell)),
      ink_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {}

std::size_t InkMap::numberOf(int column, int row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(width_) +
           static_cast<std::size_t>(column);
}

InkMap::Stretch InkMap::columns(const QRectF& box) const {
    return {std::max(0, qCeil((box.left() - room_.left()) / cell - 0.5)),
            std::min(width_, qCeil((box.right() - room_.left()) / cell - 0.5))};
}

InkMap::Stretch InkMap::rows(const QRectF& box) const {
    return {std::max(0, qCeil((box.top() - room_.top()) / cell - 0.5)),
            std::min(height_, qCeil((box.bottom() - room_.top()) / cell - 0.5))};
}

template <class Visit>
void InkMap::follow(const QLineF& line, Visit&& visit) const {
    const double length = line.length();
    const int steps = std::max(1, qCeil(length / cell));
    for (int i = 0; i < steps; ++i) {
        const QPointF at = line.pointAt((i + 0.5) / steps) - room_.topLeft();
        const int column = qFloor(at.x() / cell);
        const int row = qFloor(at.y() / cell);
        if (column >= 0 && column < width_ && row >= 0 && row < height_)
            visit(numberOf(column, row), length / cell / steps);
    }
}

void InkMap::addLine(const QPainterPath& line, double weight) {
    if (!room_.intersects(line.boundingRect().adjusted(-1, -1, 1, 1)))
        return;
    for (const QPolygonF& stroke : line.toSubpathPolygons())
        for (qsizetype i = 1; i < stroke.size(); ++i)
            follow({stroke[i - 1], stroke[i]},
                   [&](std::size_t number, double steps) { ink_[number] += weight * steps; });
}

void InkMap::addInside(const QPainterPath& shape, double weight) {
    const QRectF bounds = shape.boundingRect();
    const Stretch across = columns(bounds);
    const Stretch down = rows(bounds);
    for (int row = down.first; row < down.end; ++row)
        for (int column = across.first; column < across.end; ++column)
            if (shape.contains(room_.topLeft() + QPointF(column + 0.5, row + 0.5) * cell))
                ink_[numberOf(column, row)] += weight;
}

double InkMap::under(const QRectF& box) const {
    const Stretch across = columns(box);
    const Stretch down = rows(box);
    double sum = 0;
    for (int row = down.first; row < down.end; ++row)
        for (int column = across.first; column < across.end; ++column)
            sum += ink_[numberOf(column, row)];
    return sum;
}

double InkMap::along(const QLineF& line) const {
    double sum = 0;
    follow(line, [&](std::size_t number, double steps) { sum += ink_[number] * steps; });
    return sum;
}

} // namespace vorna
