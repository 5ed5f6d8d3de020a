// What column charts and pies have in common: colours, the scale, the header, boxes with text,
// and the spreading of boxes that would overlap. Lengths are logical pixels of the drawing, y grows
// downwards.
#pragma once

#include "platform/chart_model.h"
#include "platform/qt/chart_text.h"

#include <QColor>
#include <QRectF>
#include <QSizeF>

#include <optional>
#include <vector>

namespace vorna {

inline constexpr QRgb mutedInk = 0xff333333;
inline constexpr QRgb fineInk = 0xff666666;
inline constexpr QRgb outlineInk = 0xff858282;

QColor toColor(const ChartColour& colour);

// True for a fill that white paper swallows (contrast under 1.75 to 1): it gets an outline.
bool isPale(const QColor& fill);

// Texts are drawn at 1 up to 745 x 320 and grow with the drawing to at most 1.5.
double chartScale(const QSizeF& size);

// Title and subtitle with the height that they take.
struct ChartHeader {
    ChartTextLine title;
    ChartTextLine subtitle;
    double bottom = 0;
    QString fullText; // for hovering; set only when something had to be cut
};

ChartHeader layOutHeader(const ChartModel& model, double width, ChartFonts& fonts);
void drawHeader(QPainter& painter, const ChartHeader& header);

// A box with lines of text in its middle. An invalid border leaves the box without one.
struct ChartBox {
    QRectF rect;
    std::vector<ChartTextLine> lines;
    QColor ground = Qt::white;
    QColor border;
    double borderWidth = 1;
    double radius = 2;
};

// Places the texts in the middle of box.rect, one below the other.
void setBoxLines(ChartBox& box, const QStringList& texts, const ChartFont& font, const QColor& ink);
void drawBox(QPainter& painter, const ChartBox& box);

// The colours of value boxes.
QColor valueGround(const ChartModel& model);
QColor valueInk(const ChartModel& model);

// One of several boxes above each other.
struct SpreadItem {
    double wanted = 0; // where its middle would like to be
    double height = 0;
};

// The middles, in the given order from top to bottom, nearest to what is wanted (least squares),
// with at least `gap` between the boxes and all boxes between top and bottom. Where they do not
// fit, the gap shrinks down to 1; where that is not enough they run on below `bottom`.
std::vector<double> spreadApart(const std::vector<SpreadItem>& items, double gap, double top,
                                double bottom);

} // namespace vorna
