// A pie laid out for one size, and its painting. Lengths are logical pixels of the drawing, whose
// top left corner is (0, 0); y grows downwards. Angles are radians counter-clockwise from three
// o'clock.
#pragma once

#include "platform/chart_model.h"
#include "platform/qt/chart_parts.h"

#include <QPainterPath>
#include <QPolygonF>
#include <QRectF>
#include <QSizeF>

#include <numbers>
#include <string>
#include <vector>

namespace vorna {

struct PieSlice {
    double from = 0;
    double span = 0; // 0: the slice has no value and no shape
    QPointF apex;    // off the pie's centre when the slice is pulled out
    QPainterPath shape;
    QColor fill;
    bool outlined = false; // paler than the paper allows
    std::string toolText;

    [[nodiscard]] double middle() const { return from + span / 2; }
    // One slice is all of the pie.
    [[nodiscard]] bool isWhole() const { return span > 2 * std::numbers::pi - 1e-9; }
};

// The label of one slice: its box, and the leader from the dot at the rim over one bend to the
// box. The label of a slice too thin to point at, or to which no clear way leads, has a sample of
// its colour in the box instead.
struct PieLabel {
    std::size_t slice = 0;
    ChartBox box;
    QPolygonF leader;
    QRectF sample;
};

struct PieLayout {
    double scale = 1;
    ChartHeader header;
    QPointF centre;
    double radius = 0;
    bool empty = false; // no slice has a value: a ring
    std::vector<PieSlice> slices;
    std::vector<PieLabel> labels;
};

// The model's slices counter-clockwise from its starting angle, with the labels in two columns.
// Labels that do not fit are shortened and at last left out, those of the smallest slices first;
// nothing leaves the drawing.
PieLayout layOutPie(const ChartModel& model, const QSizeF& size);

// Paints slices with seams in the paper's colour, leaders, labels and header.
void paintPie(QPainter& painter, const PieLayout& layout, const QColor& paper);

// The text to show at a point; empty when there is none.
std::string pieToolTextAt(const PieLayout& layout, const QPointF& point);

} // namespace vorna
