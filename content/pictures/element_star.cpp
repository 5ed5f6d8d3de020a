#include "content/pictures/element_star.h"

#include "content/pictures/marks.h"
#include "content/pictures/palette.h"

#include <QLineF>

#include <array>
#include <cmath>

namespace vorna {
namespace {

constexpr int earth = 3;
constexpr double fullTurn = 360;
constexpr double top = 90;

double angleOf(int element) {
    return top - (element - 1) * fullTurn / elementCount;
}

} // namespace

QColor elementColour(int element) {
    static const std::array colours{QColor(0x53, 0x5D, 0x5C), QColor(0x17, 0xAB, 0x0C),
                                    QColor(0xF0, 0x2C, 0x2C), QColor(0xF2, 0xCE, 0x0B),
                                    QColor(0x22, 0x46, 0xE0), QColor(0x15, 0x18, 0x1A)};
    return colours.at(static_cast<std::size_t>(element));
}

QColor elementInk(int element) {
    return element == earth ? QColor(0x8F, 0x72, 0x00) : elementColour(element);
}

QColor onElementColour(int element) {
    return element == earth ? palette::ink : palette::paper;
}

QPointF ElementCircle::node(int element) const {
    return QLineF::fromPolar(radius, angleOf(element)).translated(middle).p2();
}

void drawNourishing(QPainter& painter, const ElementCircle& circle, double width) {
    constexpr double radian = 57.29577951308232;
    const double gap = (circle.nodeRadius + 4 * width) / circle.radius * radian;
    const QRectF frame(circle.middle - QPointF(circle.radius, circle.radius),
                       QSizeF(2 * circle.radius, 2 * circle.radius));
    for (int element = 1; element <= elementCount; ++element) {
        const double span = fullTurn / elementCount - 2 * gap;
        QPainterPath arc;
        arc.arcMoveTo(frame, angleOf(element) - gap);
        arc.arcTo(frame, angleOf(element) - gap, -span);
        drawArrow(painter, arc, {.width = width, .colour = palette::accent});
    }
}

void drawControl(QPainter& painter, const ElementCircle& circle, double width) {
    for (int element = 1; element <= elementCount; ++element) {
        const int controlled = (element + 1) % elementCount + 1;
        const QLineF whole(circle.node(element), circle.node(controlled));
        const double share = (circle.nodeRadius + 4 * width) / whole.length();
        QPainterPath line(whole.pointAt(share));
        line.lineTo(whole.pointAt(1 - share));
        drawArrow(painter, line, {.width = width, .colour = palette::mark});
    }
}

} // namespace vorna
