#include "content/pictures/marks.h"

#include "content/pictures/palette.h"

#include <QFontMetricsF>
#include <QLineF>

#include <algorithm>

namespace vorna {
namespace {

QColor transparent(QColor colour, double opacity) {
    colour.setAlphaF(static_cast<float>(opacity));
    return colour;
}

QPen roundPen(const QColor& colour, double width) {
    return {QBrush(colour), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

// An arrow head that points along `degrees`, counter-clockwise from the right.
QPainterPath arrowHead(const QPointF& tip, double degrees, double length) {
    QPainterPath head(tip);
    head.lineTo(QLineF::fromPolar(length, degrees + 152).translated(tip).p2());
    head.lineTo(QLineF::fromPolar(length * 0.68, degrees + 180).translated(tip).p2());
    head.lineTo(QLineF::fromPolar(length, degrees - 152).translated(tip).p2());
    head.closeSubpath();
    return head;
}

// The pieces of a path that are drawn without lifting the pen.
std::vector<QPainterPath> pieces(const QPainterPath& path) {
    std::vector<QPainterPath> found;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo()) {
            found.emplace_back(element);
        } else if (element.isLineTo()) {
            found.back().lineTo(element);
        } else if (element.type == QPainterPath::CurveToElement) {
            found.back().cubicTo(element, path.elementAt(i + 1), path.elementAt(i + 2));
            i += 2;
        }
    }
    return found;
}

} // namespace

QRectF around(const QPointF& middle, double radius) {
    return {middle.x() - radius, middle.y() - radius, 2 * radius, 2 * radius};
}

QFont pictureFont(double pixels, bool bold) {
    QFont font(QStringLiteral("Noto Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(1, qRound(pixels)));
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

void drawLetters(QPainter& painter, const Letters& letters) {
    QPainterPath outlines;
    outlines.addText(letters.base, letters.font, letters.text);
    painter.setPen(Qt::NoPen);
    painter.setBrush(letters.colour);
    painter.drawPath(outlines);
}

void drawMark(QPainter& painter, const QPointF& at, double radius) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette::paper, radius * 0.62));
    painter.drawEllipse(at, radius, radius);
    painter.setPen(QPen(palette::mark, radius * 0.28));
    painter.drawEllipse(at, radius, radius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::paper);
    painter.drawEllipse(at, radius * 0.5, radius * 0.5);
    painter.setBrush(palette::mark);
    painter.drawEllipse(at, radius * 0.36, radius * 0.36);
}

void drawDot(QPainter& painter, const QPointF& at, double radius, const QColor& colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::paper);
    painter.drawEllipse(at, radius * 1.5, radius * 1.5);
    painter.setBrush(colour);
    painter.drawEllipse(at, radius, radius);
}

void drawPathway(QPainter& painter, const QPainterPath& path, const PathwayStyle& style) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(roundPen(transparent(palette::paper, 0.7), style.width * 2));
    painter.drawPath(path);
    painter.setPen(roundPen(transparent(style.colour, 0.75), style.width));
    painter.drawPath(path);
    if (style.arrowEvery <= 0)
        return;
    painter.setPen(roundPen(palette::paper, style.width * 0.5));
    painter.setBrush(style.colour);
    for (const QPainterPath& piece : pieces(path)) {
        const double length = piece.length();
        const int arrows = static_cast<int>(length / style.arrowEvery);
        for (int i = 0; i < arrows; ++i) {
            const double share = piece.percentAtLength(length * (i + 0.5) / arrows);
            const QPointF at = piece.pointAtPercent(share);
            if (std::none_of(style.clear.begin(), style.clear.end(),
                             [&](const QRectF& area) { return area.contains(at); }))
                painter.drawPath(arrowHead(at, piece.angleAtPercent(share), style.width * 4.2));
        }
    }
}

void drawArrow(QPainter& painter, const QPainterPath& path, const PathwayStyle& style) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(roundPen(style.colour, style.width));
    painter.drawPath(path);
    painter.setPen(roundPen(style.colour, style.width * 0.5));
    painter.setBrush(style.colour);
    const double degrees = path.angleAtPercent(1);
    const double length = style.width * 4;
    const QPointF tip =
        QLineF::fromPolar(length * 0.6, degrees).translated(path.currentPosition()).p2();
    painter.drawPath(arrowHead(tip, degrees, length));
}

QRectF boxedExtent(const QString& text, const QFont& font) {
    const QFontMetricsF metrics(font);
    const double margin = metrics.height() * 0.18;
    QRectF extent(0, 0, metrics.horizontalAdvance(text) + 2.4 * margin,
                  metrics.height() + margin * 0.4);
    extent.moveCenter({0, 0});
    return extent;
}

QRectF bareExtent(const QString& text, const QFont& font) {
    const QFontMetricsF metrics(font);
    QRectF extent(0, 0, metrics.horizontalAdvance(text) + 4, metrics.capHeight() + 6);
    extent.moveCenter({0, 0});
    return extent;
}

void drawLabel(QPainter& painter, const Label& label) {
    if (label.boxed) {
        const QRectF box = boxedExtent(label.text, label.font).translated(label.middle);
        painter.setPen(QPen(label.colour, box.height() * 0.05));
        painter.setBrush(palette::paper);
        painter.drawRoundedRect(box, box.height() * 0.2, box.height() * 0.2);
    }
    const QFontMetricsF metrics(label.font);
    const QPointF base(label.middle.x() - metrics.horizontalAdvance(label.text) / 2,
                       label.middle.y() + metrics.capHeight() / 2);
    QPainterPath letters;
    letters.addText(base, label.font, label.text);
    if (!label.boxed) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(roundPen(palette::paper, label.font.pixelSize() * 0.26));
        painter.drawPath(letters);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(label.colour);
    painter.drawPath(letters);
}

void drawLeader(QPainter& painter, const Leader& leader) {
    const QPointF end(std::clamp(leader.from.x(), leader.to.left(), leader.to.right()),
                      std::clamp(leader.from.y(), leader.to.top(), leader.to.bottom()));
    QLineF line(leader.from, end);
    if (line.length() <= leader.radius)
        return;
    line.setP1(line.pointAt(leader.radius / line.length()));
    painter.setPen(roundPen(palette::paper, leader.width * 2.6));
    painter.drawLine(line);
    painter.setPen(roundPen(leader.colour, leader.width));
    painter.drawLine(line);
}

} // namespace vorna
