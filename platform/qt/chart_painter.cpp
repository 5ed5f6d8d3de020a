#include "platform/qt/chart_painter.h"

#include <QPainter>

#include <algorithm>

namespace vorna {
namespace {

std::variant<ColumnLayout, PieLayout> layOut(const ChartModel& model, const QSizeF& size) {
    if (model.kind == ChartKind::pie)
        return layOutPie(model, size);
    return layOutColumns(model, size);
}

} // namespace

LaidOutChart::LaidOutChart(const ChartModel& model, const QSizeF& size)
    : size_(std::max(size.width(), 1.0), std::max(size.height(), 1.0)),
      layout_(layOut(model, size_)) {}

void LaidOutChart::paint(QPainter& painter, const QColor& paper) const {
    painter.fillRect(QRectF(QPointF(0, 0), size_), paper);
    if (const ColumnLayout* layout = columns())
        paintColumns(painter, *layout, paper);
    else
        paintPie(painter, std::get<PieLayout>(layout_), paper);
}

std::string LaidOutChart::toolTextAt(const QPointF& point) const {
    if (const ColumnLayout* layout = columns())
        return columnToolTextAt(*layout, point);
    return pieToolTextAt(std::get<PieLayout>(layout_), point);
}

void paintChart(QPainter& painter, const QRectF& area, const ChartModel& model,
                const QColor& paper) {
    painter.save();
    painter.translate(area.topLeft());
    LaidOutChart(model, area.size()).paint(painter, paper);
    painter.restore();
}

} // namespace vorna
