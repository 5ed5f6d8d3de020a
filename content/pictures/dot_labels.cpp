#include "content/pictures/dot_labels.h"

#include "content/pictures/marks.h"

namespace vorna {
namespace {

// Whether a label stands so far off that it takes a line to see what it names.
bool isFarOff(const QRectF& box, const QRectF& freeAround) {
    const double near = box.height() * leaderFrom;
    return !box.adjusted(-near, -near, near, near).intersects(freeAround);
}

} // namespace

void drawDotLabels(QPainter& painter, LabelPlaces& places, const std::vector<NamedDot>& dots,
                   const DotLabelStyle& style) {
    std::vector<LabelPlaces::Wish> wishes;
    wishes.reserve(dots.size());
    for (const NamedDot& dot : dots)
        wishes.push_back({.at = dot.at,
                          .radius = dot.radius,
                          .extent = bareExtent(dot.name, style.font),
                          .preferred = 0});
    const std::vector<QPointF> middles = places.take(wishes);
    for (std::size_t i = 0; i < dots.size(); ++i) {
        const QRectF box = wishes[i].extent.translated(middles[i]);
        const QPointF corner(dots[i].radius, dots[i].radius);
        if (isFarOff(box, {dots[i].at - corner, dots[i].at + corner}))
            drawLeader(painter, {.from = dots[i].at,
                                 .radius = dots[i].radius,
                                 .to = box,
                                 .width = 1.4,
                                 .colour = style.colour});
        drawLabel(painter, {.text = dots[i].name,
                            .font = style.font,
                            .middle = middles[i],
                            .colour = style.colour});
    }
}

} // namespace vorna
