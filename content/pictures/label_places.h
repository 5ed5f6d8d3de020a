// Places for labels, so that they cover neither each other nor what they name, and that each is
// read as the name of its own dot.
#pragma once

#include "content/pictures/ink_map.h"
#include "content/pictures/stage.h"

#include <QLineF>

#include <vector>

namespace vorna {

// A label farther from what it names than this, in its heights, takes a leader.
inline constexpr double leaderFrom = 0.5;

struct LabelPlace; // a place that a label may take

class LabelPlaces {
public:
    // Labels are to stay inside the room.
    explicit LabelPlaces(const QRectF& room) : room_(room), ink_(room) {}

    // What no label may cover and no leader may cross.
    void keepFree(const QRectF& area) { taken_.push_back(area); }
    // The same for a dot, beside which, too, no other dot's label should stand.
    void keepFree(const QPointF& dot, double radius) { dots_.push_back({dot, radius}); }
    // What a label should rather not cover: a course, counted so many times; the lines of a
    // drawing, its landmarks least.
    void avoid(const QPainterPath& course, double times = 1);
    void avoid(const Stage& drawing);
    // Of a drawing its landmarks alone.
    void avoidLandmarks(const Stage& drawing);

    struct Wish {
        QPointF at;
        double radius = 0;
        QRectF extent; // round the origin
        double preferred = 30;
        double drawback = 0; // what another wish may cost more before it loses to this one
    };
    // The middles for labels, each near `at` but outside `radius` round it, where together they
    // cover and confuse least; `preferred` is the direction in degrees, counter-clockwise from the
    // right, that wins among equals, with a liking for what stands beside the place. The places
    // count as taken from then on.
    std::vector<QPointF> take(const std::vector<Wish>& wishes);
    QPointF take(const Wish& wish) { return take(std::vector{wish}).front(); }
    struct Choice {
        std::size_t wish; // its number
        QPointF middle;
    };
    // One label for what may be named at several places: the wish that is fulfilled best, the
    // earlier among equals. Failure when there is none.
    Choice takeOneOf(const std::vector<Wish>& wishes);

    // How much a box would cover of what is taken, of what is to be avoided, and of the
    // surroundings of the room; 0 when nothing.
    [[nodiscard]] double cost(const QRectF& box) const;

private:
    struct Dot {
        QPointF at;
        double radius;
    };
    [[nodiscard]] std::vector<LabelPlace> offers(const Wish& wish) const;
    [[nodiscard]] double confusion(const Wish& wish, const LabelPlace& place) const;
    [[nodiscard]] double crossings(const Wish& wish, const QLineF& leader) const;

    QRectF room_;
    InkMap ink_;
    std::vector<QRectF> taken_;
    std::vector<QLineF> leaders_;
    std::vector<Dot> dots_;
};

} // namespace vorna
