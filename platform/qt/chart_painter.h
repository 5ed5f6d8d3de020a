// The chart control: a chart model laid out for one size, painted and asked for tool texts. One
// way of painting for the screen, pictures and line drawings.
#pragma once

#include "platform/chart_model.h"
#include "platform/qt/column_chart.h"
#include "platform/qt/pie_chart.h"

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <string>
#include <variant>

class QPainter;

namespace vorna {

// Needs a QGuiApplication for its fonts. Copies what it needs of the model.
class LaidOutChart {
public:
    // `size` in logical pixels; texts are legible from 400 x 300 on, smaller drawings only keep
    // what fits.
    LaidOutChart(const ChartModel& model, const QSizeF& size);

    // Paints at the painter's origin, on a ground of `paper`: white, or a dimmed white on a dark
    // screen. Leaves the painter's pen, brush, font and hints changed.
    void paint(QPainter& painter, const QColor& paper = Qt::white) const;

    // The tool text (UTF-8) of the bar or slice at a point, or the whole of a text that had to be
    // cut there; empty when there is none.
    [[nodiscard]] std::string toolTextAt(const QPointF& point) const;

    [[nodiscard]] QSizeF size() const { return size_; }
    // Null when the chart is of the other kind.
    [[nodiscard]] const ColumnLayout* columns() const {
        return std::get_if<ColumnLayout>(&layout_);
    }
    [[nodiscard]] const PieLayout* pie() const { return std::get_if<PieLayout>(&layout_); }

private:
    QSizeF size_;
    std::variant<ColumnLayout, PieLayout> layout_;
};

// Lays out and paints in one step, inside `area`. The painter's state is restored.
void paintChart(QPainter& painter, const QRectF& area, const ChartModel& model,
                const QColor& paper = Qt::white);

} // namespace vorna
