// A column chart laid out for one size, and its painting. Lengths are logical pixels of the
// drawing, whose top left corner is (0, 0); y grows downwards.
#pragma once

#include "platform/chart_model.h"
#include "platform/qt/chart_parts.h"

#include <QRectF>
#include <QSizeF>

#include <string>
#include <vector>

namespace vorna {

struct GridLine {
    double y = 0;
    ChartTextLine number;
};

struct ChartBand {
    QRectF rect; // may have no height
    QColor colour;
};

struct SeparatorLine {
    double x = 0;
    double top = 0;
    double bottom = 0;
    double width = 1;
    QColor colour;
};

struct ColumnBar {
    std::size_t category = 0;
    std::size_t series = 0;
    QRectF rect;       // from the value, or the canvas' top, down to the axis
    QColor fill;       // with the series' opacity
    QColor outline;    // invalid: none
    bool cut = false;  // the value lies above the axis
    double zigzag = 0; // y of the cut's mark
    std::string toolText;
};

// A box in the drawing that belongs to a bar.
struct BarBox {
    std::size_t bar = 0; // index in ColumnLayout::bars
    ChartBox box;
};

struct MeanLine {
    double y = 0;
    QColor colour;
    bool dashed = false;
    bool above = false; // the level lies above the axis; the line stands at its top
    ChartBox tag;
};

struct CategoryLabel {
    std::vector<ChartTextLine> lines;
    QRectF rect;
    std::string fullText; // for hovering; set only when something had to be cut
};

struct LegendEntry {
    QRectF swatch;
    QColor fill;
    QColor outline;
    ChartTextLine name;
};

struct ColumnLayout {
    double scale = 1;
    QRectF canvas;
    ChartHeader header;
    std::vector<GridLine> grid;
    std::vector<ChartBand> bands;
    std::vector<SeparatorLine> separators;
    std::vector<ChartBox> separatorTags;
    std::vector<QRectF> slotRects; // one for each category
    std::vector<ColumnBar> bars;
    std::vector<MeanLine> means;
    std::vector<BarBox> valueBoxes;
    std::vector<CategoryLabel> labels;
    std::vector<LegendEntry> legend;
};

// The model's series, categories, separators and trend lines in their places. In a drawing too
// small for them, texts are shortened or left out; nothing leaves the drawing.
ColumnLayout layOutColumns(const ChartModel& model, const QSizeF& size);

// Paints from back to front: grid, band, separators, bars, mean, value boxes, texts. Translucent
// colours are mixed with the paper's.
void paintColumns(QPainter& painter, const ColumnLayout& layout, const QColor& paper);

// The text to show at a point; empty when there is none.
std::string columnToolTextAt(const ColumnLayout& layout, const QPointF& point);

} // namespace vorna
