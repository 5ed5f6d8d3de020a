#include "content/pictures/emblems.h"

#include "content/pictures/marks.h"
#include "content/pictures/palette.h"

#include <QPainter>

#include <array>

namespace vorna {
namespace {

constexpr QSizeF flagSize{120, 80};
constexpr double signSize = 120;

const QColor flagBlue{0x1B, 0x3F, 0x8B};
const QColor flagRed{0xCE, 0x1F, 0x2B};
const QColor flagGold{0xF5, 0xC4, 0x00};

// A transparent picture, drawn by a step.
template <class Draw>
QImage drawn(const QSizeF& size, Draw&& draw) {
    QImage image(size.toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter);
    return image;
}

void drawStripes(QPainter& painter, const std::array<QColor, 3>& colours) {
    const double height = flagSize.height() / 3;
    for (std::size_t i = 0; i < colours.size(); ++i)
        painter.fillRect(QRectF(0, height * static_cast<double>(i), flagSize.width(), height),
                         colours.at(i));
}

void drawCzech(QPainter& painter) {
    const double middle = flagSize.height() / 2;
    painter.fillRect(QRectF(QPointF(0, 0), flagSize), Qt::white);
    painter.fillRect(QRectF(0, middle, flagSize.width(), middle), flagRed);
    painter.setPen(Qt::NoPen);
    painter.setBrush(flagBlue);
    painter.drawPolygon(QPolygonF({{0, 0}, {flagSize.width() / 2, middle}, {0, 2 * middle}}));
}

void drawBritish(QPainter& painter) {
    const QPointF end(flagSize.width(), flagSize.height());
    const QPointF middle = end / 2;
    painter.fillRect(QRectF(QPointF(0, 0), flagSize), flagBlue);
    const auto cross = [&](const QColor& colour, double width) {
        painter.setPen(QPen(colour, width));
        painter.drawLine(QPointF(middle.x(), 0), QPointF(middle.x(), end.y()));
        painter.drawLine(QPointF(0, middle.y()), QPointF(end.x(), middle.y()));
    };
    const auto diagonals = [&](const QColor& colour, double width) {
        painter.setPen(QPen(colour, width));
        painter.drawLine(QPointF(0, 0), end);
        painter.drawLine(QPointF(0, end.y()), QPointF(end.x(), 0));
    };
    diagonals(Qt::white, 16);
    diagonals(flagRed, 6);
    cross(Qt::white, 27);
    cross(flagRed, 16);
}

} // namespace

QImage flagEmblem(int language) {
    return drawn(flagSize, [&](QPainter& painter) {
        QPainterPath outline;
        outline.addRoundedRect(QRectF(QPointF(0, 0), flagSize).adjusted(1, 1, -1, -1), 9, 9);
        painter.setClipPath(outline);
        switch (language) {
        case 1:
            drawCzech(painter);
            break;
        case 2:
            drawBritish(painter);
            break;
        case 3:
            drawStripes(painter, {QColor(0x1A, 0x1A, 0x1A), flagRed, flagGold});
            break;
        default:
            drawStripes(painter, {Qt::white, flagBlue, flagRed});
        }
        painter.setClipping(false);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette::line, 2));
        painter.drawPath(outline);
    });
}

QImage tcmEmblem() {
    return drawn({signSize, signSize}, [](QPainter& painter) {
        const QPointF middle(signSize / 2, signSize / 2);
        const double radius = signSize / 2 - 6;
        const QPointF upper = middle - QPointF(0, radius / 2);
        const QPointF lower = middle + QPointF(0, radius / 2);
        QPainterPath dark; // down the left rim, up through the middle
        dark.moveTo(middle.x(), middle.y() - radius);
        dark.arcTo(around(middle, radius), 90, 180);
        dark.arcTo(around(lower, radius / 2), 270, 180);
        dark.arcTo(around(upper, radius / 2), 270, -180);
        painter.setPen(QPen(palette::accent, 6));
        painter.setBrush(palette::paper);
        painter.drawEllipse(middle, radius, radius);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette::accent);
        painter.drawPath(dark);
        painter.drawEllipse(upper, radius / 8, radius / 8);
        painter.setBrush(palette::paper);
        painter.drawEllipse(lower, radius / 8, radius / 8);
    });
}

QImage apmEmblem() {
    return drawn({signSize, signSize}, [](QPainter& painter) {
        QPainterPath course({22, 104});
        course.cubicTo({30, 58}, {88, 74}, {92, 26});
        drawArrow(painter, course, {.width = 9, .colour = palette::accent});
        for (const double share : {0.02, 0.36, 0.7})
            drawDot(painter, course.pointAtPercent(share), 9, palette::mark);
    });
}

} // namespace vorna
