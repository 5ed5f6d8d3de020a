#include "platform/qt/pie_chart.h"

#include <QPainter>

#include <cmath>

namespace vorna {
namespace {

constexpr QRgb ringGround = 0xffefede8;

void paintRing(QPainter& painter, const PieLayout& layout) {
    QPainterPath ring;
    ring.addEllipse(layout.centre, layout.radius, layout.radius);
    ring.addEllipse(layout.centre, layout.radius * 0.6, layout.radius * 0.6);
    painter.setPen(QPen(QColor(outlineInk), 1));
    painter.setBrush(QColor(ringGround));
    painter.drawPath(ring);
}

QPointF rimPoint(const PieSlice& slice, double angle, double radius) {
    return slice.apex + QPointF(std::cos(angle), -std::sin(angle)) * radius;
}

// Lines in the paper's colour along the edges of the slices. Slices too thin to bear them, and the
// whole circle, have none.
void paintSeams(QPainter& painter, const PieLayout& layout, const QColor& paper) {
    painter.setPen(QPen(paper, 1.6 * layout.scale, Qt::SolidLine, Qt::FlatCap));
    for (const PieSlice& slice : layout.slices) {
        if (slice.span * layout.radius < 5 * layout.scale || slice.isWhole())
            continue;
        const double beyond = layout.radius + 1; // the rim's soft edge is cut through as well
        painter.drawLine(slice.apex, rimPoint(slice, slice.from, beyond));
        painter.drawLine(slice.apex, rimPoint(slice, slice.from + slice.span, beyond));
    }
}

// Fills and seams first, then the outlines of pale slices, so that no neighbour's seam covers them.
void paintSlices(QPainter& painter, const PieLayout& layout, const QColor& paper) {
    painter.setPen(Qt::NoPen);
    for (const PieSlice& slice : layout.slices) {
        painter.setBrush(slice.fill);
        painter.drawPath(slice.shape);
    }
    paintSeams(painter, layout, paper);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(outlineInk), 1, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    for (const PieSlice& slice : layout.slices)
        if (slice.outlined)
            painter.drawPath(slice.shape);
}

void paintLabel(QPainter& painter, const PieLabel& label, const PieLayout& layout) {
    if (!label.leader.isEmpty()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(
            QPen(QColor(fineInk), 1.1 * layout.scale, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
        painter.drawPolyline(label.leader);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(fineInk));
        painter.drawEllipse(label.leader.front(), 1.8 * layout.scale, 1.8 * layout.scale);
    }
    drawBox(painter, label.box);
    if (!label.sample.isEmpty()) {
        const PieSlice& slice = layout.slices[label.slice];
        painter.setPen(QPen(Qt::white, 1));
        painter.setBrush(slice.fill);
        painter.drawRoundedRect(label.sample, 2 * layout.scale, 2 * layout.scale);
    }
}

} // namespace

void paintPie(QPainter& painter, const PieLayout& layout, const QColor& paper) {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    if (layout.empty)
        paintRing(painter, layout);
    else
        paintSlices(painter, layout, paper);
    for (const PieLabel& label : layout.labels)
        paintLabel(painter, label, layout);
    drawHeader(painter, layout.header);
}

std::string pieToolTextAt(const PieLayout& layout, const QPointF& point) {
    for (const PieLabel& label : layout.labels)
        if (label.box.rect.contains(point))
            return layout.slices[label.slice].toolText;
    for (const PieSlice& slice : layout.slices)
        if (slice.shape.contains(point))
            return slice.toolText;
    return point.y() < layout.header.bottom ? layout.header.fullText.toStdString() : std::string();
}

} // namespace vorna
