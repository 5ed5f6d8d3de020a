// Places for labels, so that they cover neither each other nor what they name.
#pragma once

#include <QPainterPath>
#include <QRectF>

#include <vector>

namespace vorna {

class LabelPlaces {
public:
    // Labels are to stay inside the room.
    explicit LabelPlaces(const QRectF& room) : room_(room) {}

    // What no label may cover.
    void keepFree(const QRectF& area) { taken_.push_back(area); }
    // What a label should rather not cover: a course is taken as the dots along it.
    void avoid(const QPainterPath& course);

    // The middle for a label of the given extent round the origin, near `at` but outside `radius`
    // round it, where it covers least; `preferred` is the direction in degrees, counter-clockwise
    // from the right, that wins among equals, with a liking for what stands beside the place. The
    // place counts as taken from then on.
    struct Wish {
        QPointF at;
        double radius = 0;
        QRectF extent;
        double preferred = 30;
    };
    QPointF take(const Wish& wish);

    // How much a box would cover of what is taken, of what is to be avoided, and of the
    // surroundings of the room; 0 when nothing.
    [[nodiscard]] double cost(const QRectF& box) const;

private:
    QRectF room_;
    std::vector<QRectF> taken_;
    std::vector<QPointF> avoided_;
};

} // namespace vorna
