// The names of dots, each beside its own.
#pragma once

#include "content/pictures/label_places.h"

#include <QFont>
#include <QPainter>

#include <vector>

namespace vorna {

struct NamedDot {
    QPointF at;
    double radius; // pixels round it that stay free
    QString name;
};

struct DotLabelStyle {
    QFont font;
    QColor colour;
};

// Takes places for the names and writes them there, rather on the right of their dots; a name that
// finds no place close by gets a line to its dot.
void drawDotLabels(QPainter& painter, LabelPlaces& places, const std::vector<NamedDot>& dots,
                   const DotLabelStyle& style);

} // namespace vorna
