#include "platform/qt/column_chart.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace vorna {
namespace {

constexpr QRgb gridInk = 0xffcfcbc2;
constexpr QRgb axisInk = 0xff555555;

// Lines along whole pixels are drawn as bars of colour, which is sharper and far quicker than
// dashed pens.
void fillDashes(QPainter& painter, const QRectF& line, double dash, double space,
                const QColor& colour) {
    QList<QRectF> dashes;
    for (double x = line.left(); x < line.right(); x += dash + space)
        dashes.append(QRectF(x, line.top(), std::min(dash, line.right() - x), line.height()));
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRects(dashes.constData(), static_cast<int>(dashes.size()));
}

void paintGrid(QPainter& painter, const ColumnLayout& layout) {
    const QRectF& canvas = layout.canvas;
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (std::size_t i = 1; i < layout.grid.size(); ++i) {
        const QRectF line(canvas.left(), layout.grid[i].y, canvas.width(), 1);
        if (i + 1 < layout.grid.size())
            fillDashes(painter, line, 2, 3, QColor(gridInk));
        else
            painter.fillRect(line, QColor(gridInk));
    }
    painter.setRenderHint(QPainter::Antialiasing);
}

void paintBands(QPainter& painter, const ColumnLayout& layout) {
    for (const ChartBand& band : layout.bands) {
        QColor ground = band.colour;
        ground.setAlphaF(0.15F);
        painter.fillRect(band.rect, ground);
        QColor edge = band.colour;
        edge.setAlphaF(0.75F);
        painter.fillRect(QRectF(band.rect.left(), band.rect.top(), band.rect.width(), 1), edge);
        if (band.rect.height() >= 1)
            painter.fillRect(QRectF(band.rect.left(), band.rect.bottom(), band.rect.width(), 1),
                             edge);
    }
}

void paintSeparators(QPainter& painter, const ColumnLayout& layout) {
    for (const SeparatorLine& line : layout.separators)
        painter.fillRect(
            QRectF(line.x - line.width / 2, line.top, line.width, line.bottom - line.top),
            line.colour);
}

QPainterPath barShape(const ColumnBar& bar, double scale) {
    const QRectF& r = bar.rect;
    const double radius = bar.cut ? 0 : std::min({3 * scale, r.width() / 3, r.height()});
    QPainterPath shape(r.bottomLeft());
    shape.lineTo(r.left(), r.top() + radius);
    shape.quadTo(r.left(), r.top(), r.left() + radius, r.top());
    shape.lineTo(r.right() - radius, r.top());
    shape.quadTo(r.right(), r.top(), r.right(), r.top() + radius);
    shape.lineTo(r.bottomRight());
    shape.closeSubpath();
    return shape;
}

// Points up, 8 above the y of `base`.
void paintArrow(QPainter& painter, const QPointF& base, double scale) {
    const QPointF tip = base - QPointF(0, 8 * scale);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(mutedInk));
    painter.drawPolygon(QPolygonF{
        {tip, tip + QPointF(5 * scale, 6 * scale), tip + QPointF(-5 * scale, 6 * scale)}});
}

// The white zigzag and the small arrow over a bar that goes on above the axis.
void paintCut(QPainter& painter, const ColumnBar& bar, double scale) {
    const double step = (bar.rect.width() + 4) / 4;
    const double x = bar.rect.left() - 2;
    QPolygonF zigzag;
    for (int i = 0; i <= 4; ++i)
        zigzag << QPointF(x + step * i, bar.zigzag - (i % 2 == 1 ? 5 * scale : 0));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 3 * scale, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawPolyline(zigzag);
    paintArrow(painter, QPointF(bar.rect.center().x(), bar.rect.top()), scale);
}

// The colour as it looks on the paper. Bars are painted opaque: the grid need not shine through
// them, and translucent shapes are slow to fill.
QColor onPaper(const QColor& colour, const QColor& paper) {
    const float part = colour.alphaF();
    return QColor::fromRgbF(colour.redF() * part + paper.redF() * (1 - part),
                            colour.greenF() * part + paper.greenF() * (1 - part),
                            colour.blueF() * part + paper.blueF() * (1 - part));
}

void paintBars(QPainter& painter, const ColumnLayout& layout, const QColor& paper) {
    for (const ColumnBar& bar : layout.bars) {
        if (bar.rect.height() <= 0)
            continue;
        painter.setBrush(onPaper(bar.fill, paper));
        ColumnBar inner = bar;
        if (bar.outline.isValid())
            inner.rect.adjust(0.5, 0.5, -0.5, 0); // the outline falls on whole pixels
        painter.setPen(bar.outline.isValid() ? QPen(bar.outline, 1) : QPen(Qt::NoPen));
        painter.drawPath(barShape(inner, layout.scale));
        if (bar.cut)
            paintCut(painter, bar, layout.scale);
    }
}

void paintAxis(QPainter& painter, const ColumnLayout& layout) {
    painter.fillRect(QRectF(layout.canvas.left(), layout.canvas.bottom(), layout.canvas.width(), 1),
                     QColor(axisInk));
}

void paintMeans(QPainter& painter, const ColumnLayout& layout) {
    const double s = layout.scale;
    for (const MeanLine& mean : layout.means) {
        const QRectF line(layout.canvas.left(), mean.y - s, layout.canvas.width(), 2 * s);
        fillDashes(painter, line, mean.dashed ? 7 * s : line.width(), 4 * s, mean.colour);
    }
}

void paintMeanTags(QPainter& painter, const ColumnLayout& layout) {
    for (const MeanLine& mean : layout.means) {
        if (mean.tag.lines.empty())
            continue;
        drawBox(painter, mean.tag);
        if (mean.above)
            paintArrow(painter, QPointF(mean.tag.rect.center().x(), mean.tag.rect.top()),
                       layout.scale);
    }
}

void paintLegend(QPainter& painter, const ColumnLayout& layout, const QColor& paper) {
    for (const LegendEntry& entry : layout.legend) {
        painter.setPen(entry.outline.isValid() ? QPen(entry.outline, 1) : QPen(Qt::NoPen));
        painter.setBrush(onPaper(entry.fill, paper));
        painter.drawRoundedRect(entry.swatch, 2 * layout.scale, 2 * layout.scale);
        drawLine(painter, entry.name);
    }
}

} // namespace

void paintColumns(QPainter& painter, const ColumnLayout& layout, const QColor& paper) {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    paintGrid(painter, layout);
    paintBands(painter, layout);
    paintSeparators(painter, layout);
    paintBars(painter, layout, paper);
    paintAxis(painter, layout);
    paintMeans(painter, layout);
    for (const ChartBox& tag : layout.separatorTags)
        drawBox(painter, tag);
    paintMeanTags(painter, layout);
    for (const BarBox& box : layout.valueBoxes)
        drawBox(painter, box.box);
    for (const GridLine& line : layout.grid)
        drawLine(painter, line.number);
    for (const CategoryLabel& label : layout.labels)
        for (const ChartTextLine& line : label.lines)
            drawLine(painter, line);
    paintLegend(painter, layout, paper);
    drawHeader(painter, layout.header);
}

std::string columnToolTextAt(const ColumnLayout& layout, const QPointF& point) {
    for (const BarBox& box : layout.valueBoxes)
        if (box.box.rect.contains(point))
            return layout.bars[box.bar].toolText;
    const double lowest = 8 * layout.scale; // a bar of value 0 can be hovered as well
    for (const ColumnBar& bar : layout.bars) {
        QRectF area = bar.rect;
        area.setTop(std::min(area.top(), area.bottom() - lowest));
        if (area.contains(point))
            return bar.toolText;
    }
    for (const CategoryLabel& label : layout.labels)
        if (label.rect.contains(point))
            return label.fullText;
    return point.y() < layout.header.bottom ? layout.header.fullText.toStdString() : std::string();
}

} // namespace vorna
