// What is put over a drawing, the same everywhere: the mark of a point, smaller dots, the course of
// a pathway, labels. All sizes are pixels of the picture.
#pragma once

#include <QPainter>
#include <QPainterPath>
#include <QString>

#include <vector>

namespace vorna {

// The square that touches a circle from outside.
QRectF around(const QPointF& middle, double radius);

// The font of all pictures, of the given height.
QFont pictureFont(double pixels, bool bold);

// Text from the base line on. Its outlines are filled, which comes out the same in every run.
struct Letters {
    QString text;
    QFont font;
    QPointF base; // the left end of the base line
    QColor colour;
};
void drawLetters(QPainter& painter, const Letters& letters);

// A red ring with a dot in it on a white halo; the ring's radius.
void drawMark(QPainter& painter, const QPointF& at, double radius);

// A small filled dot on a white halo.
void drawDot(QPainter& painter, const QPointF& at, double radius, const QColor& colour);

struct PathwayStyle {
    double width = 5;
    double arrowEvery = 0; // length of way between two arrows; 0: no arrows
    QColor colour;
    std::vector<QRectF> clear = {}; // no arrow here, where marks stand
};
// A calm line, with arrows in the direction from its first point to its last.
void drawPathway(QPainter& painter, const QPainterPath& path, const PathwayStyle& style);

// A line with a head at its end.
void drawArrow(QPainter& painter, const QPainterPath& path, const PathwayStyle& style);

// The extent of a label round the origin: with room for a box, or close round its letters.
QRectF boxedExtent(const QString& text, const QFont& font);
QRectF bareExtent(const QString& text, const QFont& font);

struct Label {
    QString text;
    QFont font;
    QPointF middle;
    QColor colour;
    bool boxed = false; // white box with the colour as its edge; else a white halo alone
};
void drawLabel(QPainter& painter, const Label& label);

// A line from the rim of the mark to the label's box, on a white halo.
struct Leader {
    QPointF from;
    double radius; // of the mark
    QRectF to;
    double width;
    QColor colour;
};
void drawLeader(QPainter& painter, const Leader& leader);

} // namespace vorna
