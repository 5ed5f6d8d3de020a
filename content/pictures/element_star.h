// The five elements as a picture shows them: their colours and their places in a circle.
#pragma once

#include <QColor>
#include <QPainter>

namespace vorna {

inline constexpr int elementCount = 5;

// Elements 1 to 5: wood, fire, earth, metal, water, in the colours of the charts; 0 is none.
QColor elementColour(int element);
// The same for letters on a light ground.
QColor elementInk(int element);
// Letters on the element's colour.
QColor onElementColour(int element);

// A circle of the five elements, wood at the top and on clockwise.
struct ElementCircle {
    QPointF middle;
    double radius;
    double nodeRadius;

    [[nodiscard]] QPointF node(int element) const;
};

// Arrows along the circle, each from an element to the one that it nourishes.
void drawNourishing(QPainter& painter, const ElementCircle& circle, double width);
// The star: arrows from an element to the one that it controls.
void drawControl(QPainter& painter, const ElementCircle& circle, double width);

} // namespace vorna
