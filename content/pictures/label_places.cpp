#include "content/pictures/label_places.h"

#include "content/pictures/marks.h"
#include "platform/failure.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace vorna {

struct LabelPlace {
    QRectF box;
    QLineF leader;    // from what is named to the box
    QRectF extent;    // of both
    double price = 0; // without the other labels of the same wishes
};

namespace {

constexpr int directions = 16;
struct Distance {
    double heights; // of the label
    double price;
};
constexpr std::array distances{Distance{0.05, 0.4}, Distance{0.25, 0.1}, Distance{0.7, 0.8},
                               Distance{1.3, 1.2},  Distance{2.1, 1.7},  Distance{3.2, 2.4},
                               Distance{4.6, 3.2}};
constexpr int rounds = 6; // after which labels no longer make room for each other

// Prices. A box that lies outside the room or covers another counts by its share of these.
constexpr double outside = 30;
constexpr double covering = 12;
constexpr double misleading = 2.5; // as near to another dot as to its own
constexpr double crossing = 4;     // of a leader with a dot, an area or another leader
constexpr double striking = 6;     // of a leader across lines, as against covering them

double area(const QRectF& rect) {
    return rect.isValid() ? rect.width() * rect.height() : 0;
}

double overlap(const QRectF& a, const QRectF& b) {
    return covering * area(a.intersected(b)) / std::min(area(a), area(b));
}

// The distance between the centre and the rim of a box in a direction.
double reach(const QRectF& box, double degrees) {
    const QLineF ray = QLineF::fromPolar(1, degrees);
    const double across = std::abs(ray.dx());
    const double down = std::abs(ray.dy());
    const double never = std::numeric_limits<double>::max();
    return std::min(across > 1e-6 ? box.width() / 2 / across : never,
                    down > 1e-6 ? box.height() / 2 / down : never);
}

double turn(double a, double b) {
    const double between = std::abs(std::fmod(a - b + 540, 360) - 180);
    return between / 180;
}

// The shortest line from a place to a box.
QLineF lineTo(const QRectF& box, const QPointF& at) {
    return {
        at,
        {std::clamp(at.x(), box.left(), box.right()), std::clamp(at.y(), box.top(), box.bottom())}};
}

double distance(const QPointF& at, const QLineF& line) {
    const QPointF way = line.p2() - line.p1();
    const double square = QPointF::dotProduct(way, way);
    const double share =
        square > 0 ? std::clamp(QPointF::dotProduct(at - line.p1(), way) / square, 0.0, 1.0) : 0;
    return QLineF(at, line.pointAt(share)).length();
}

bool meet(const QLineF& a, const QLineF& b) {
    return a.intersects(b, nullptr) == QLineF::BoundedIntersection;
}

// A line that leaves the box on another side than it came in by meets a diagonal.
bool crosses(const QLineF& line, const QRectF& box) {
    return meet(line, {box.topLeft(), box.bottomRight()}) ||
           meet(line, {box.topRight(), box.bottomLeft()});
}

// How much a line of a drawing counts, by what it shows; a course counts as `courseWeight`.
constexpr double courseWeight = 0.25;
double lineWeight(Layer layer) {
    switch (layer) {
    case Layer::Skin:
        return 0.08;
    case Layer::Bones:
    case Layer::Hair:
        return 0.02;
    case Layer::Landmarks:
        return 0;
    default:
        return 0.1;
    }
}
constexpr double landmarkWeight = 0.05; // of what lies inside

bool isLandmark(const DrawnShape& shape) {
    return shape.layer == Layer::Nails || shape.layer == Layer::Landmarks;
}

// ---- Labels that are placed together

// For each label one of the places offered; null for a label that has none yet.
using Chosen = std::vector<const LabelPlace*>;

double conflict(const LabelPlace& a, const LabelPlace& b) {
    if (!a.extent.intersects(b.extent))
        return 0;
    constexpr double apart = 2; // pixels, lest the labels read as one
    const QRectF grown = a.box.adjusted(-apart, -apart, apart, apart);
    return overlap(grown, b.box) + crossing * (meet(a.leader, b.leader) + crosses(a.leader, b.box) +
                                               crosses(b.leader, a.box));
}

double priceAmong(const LabelPlace& place, const Chosen& others) {
    double price = place.price;
    for (const LabelPlace* const other : others)
        if (other != nullptr)
            price += conflict(place, *other);
    return price;
}

const LabelPlace* cheapest(const std::vector<LabelPlace>& offered, const Chosen& others) {
    const LabelPlace* best = nullptr;
    double least = std::numeric_limits<double>::max();
    for (const LabelPlace& place : offered) {
        if (place.price >= least)
            continue;
        const double price = priceAmong(place, others);
        if (price < least) {
            least = price;
            best = &place;
        }
    }
    return best;
}

// Each label takes its cheapest place in turn, again and again, until none moves any more.
Chosen settled(const std::vector<std::vector<LabelPlace>>& offered, bool fromLast) {
    Chosen chosen(offered.size(), nullptr);
    bool moved = true;
    for (int round = 0; round < rounds && moved; ++round) {
        moved = false;
        for (std::size_t turn = 0; turn < offered.size(); ++turn) {
            const std::size_t i = fromLast ? offered.size() - 1 - turn : turn;
            const LabelPlace* const before = std::exchange(chosen[i], nullptr);
            const LabelPlace* const best = cheapest(offered[i], chosen);
            chosen[i] = best;
            moved = moved || best != before;
        }
    }
    return chosen;
}

double total(Chosen chosen) {
    double sum = 0;
    for (const LabelPlace*& place : chosen)
        sum += priceAmong(*std::exchange(place, nullptr), chosen);
    return sum;
}

} // namespace

void LabelPlaces::avoid(const QPainterPath& course, double times) {
    ink_.addLine(course, courseWeight * times);
}

void LabelPlaces::avoid(const Stage& drawing) {
    const QTransform transform = drawing.transform();
    for (const DrawnShape& shape : drawing.view.drawing) {
        const QPainterPath path = transform.map(shape.path);
        ink_.addLine(path, lineWeight(shape.layer));
        if (isLandmark(shape))
            ink_.addInside(path, landmarkWeight);
    }
}

void LabelPlaces::avoidLandmarks(const Stage& drawing) {
    const QTransform transform = drawing.transform();
    for (const DrawnShape& shape : drawing.view.drawing)
        if (isLandmark(shape))
            ink_.addInside(transform.map(shape.path), landmarkWeight);
}

double LabelPlaces::cost(const QRectF& box) const {
    double sum = outside * (area(box) - area(box.intersected(room_))) / area(box);
    for (const QRectF& other : taken_)
        sum += overlap(box, other);
    for (const Dot& dot : dots_)
        sum += overlap(box, around(dot.at, dot.radius));
    return sum + ink_.under(box);
}

// What makes a label look as if it named another dot: that it stands beside that, or that its
// leader runs over it. Far from its own dot the leader tells which that is.
double LabelPlaces::confusion(const Wish& wish, const LabelPlace& place) const {
    const double height = place.box.height();
    const double own = std::min(place.leader.length() - wish.radius, leaderFrom * height);
    const double clear = height / 3;
    double sum = 0;
    for (const Dot& dot : dots_) {
        if (dot.at == wish.at)
            continue;
        const double gap = lineTo(place.box, dot.at).length() - dot.radius;
        sum += misleading * std::clamp(1 - (gap - own) / clear, 0.0, 2.0);
        if (distance(dot.at, place.leader) < dot.radius)
            sum += crossing;
    }
    return sum;
}

double LabelPlaces::crossings(const Wish& wish, const QLineF& leader) const {
    const auto areas = std::count_if(taken_.begin(), taken_.end(),
                                     [&](const QRectF& area) { return crosses(leader, area); });
    const auto lines = std::count_if(leaders_.begin(), leaders_.end(),
                                     [&](const QLineF& other) { return meet(leader, other); });
    double sum = crossing * static_cast<double>(areas + lines);
    const double length = leader.length();
    if (length > wish.radius + leaderFrom * wish.extent.height())
        sum += striking * ink_.along({leader.pointAt(wish.radius / length), leader.p2()});
    return sum;
}

std::vector<LabelPlace> LabelPlaces::offers(const Wish& wish) const {
    std::vector<LabelPlace> found;
    found.reserve(distances.size() * directions);
    for (const Distance& distance : distances)
        for (int i = 0; i < directions; ++i) {
            const double degrees = wish.preferred + 360.0 * i / directions;
            const double length =
                wish.radius + distance.heights * wish.extent.height() + reach(wish.extent, degrees);
            const QRectF box =
                wish.extent.translated(QLineF::fromPolar(length, degrees).translated(wish.at).p2());
            LabelPlace place{.box = box,
                             .leader = lineTo(box, wish.at),
                             .extent = box.united(around(wish.at, wish.radius))};
            place.price = cost(box) + confusion(wish, place) + crossings(wish, place.leader) +
                          distance.price + 0.25 * turn(degrees, wish.preferred) +
                          0.6 * std::abs(QLineF::fromPolar(1, degrees).dy());
            found.push_back(place);
        }
    return found;
}

LabelPlaces::Choice LabelPlaces::takeOneOf(const std::vector<Wish>& wishes) {
    std::size_t best = 0;
    double least = std::numeric_limits<double>::max();
    for (std::size_t i = 0; i < wishes.size(); ++i)
        for (const LabelPlace& place : offers(wishes[i]))
            if (place.price + wishes[i].drawback < least) {
                least = place.price + wishes[i].drawback;
                best = i;
            }
    if (wishes.empty())
        throw Failure("a label has no place to name");
    return {.wish = best, .middle = take(wishes[best])};
}

std::vector<QPointF> LabelPlaces::take(const std::vector<Wish>& wishes) {
    std::vector<std::vector<LabelPlace>> offered;
    offered.reserve(wishes.size());
    for (const Wish& wish : wishes)
        offered.push_back(offers(wish));
    const Chosen forwards = settled(offered, false);
    const Chosen backwards = settled(offered, true);
    std::vector<QPointF> middles;
    middles.reserve(wishes.size());
    for (const LabelPlace* const place :
         total(forwards) <= total(backwards) ? forwards : backwards) {
        taken_.push_back(place->box);
        leaders_.push_back(place->leader);
        middles.push_back(place->box.center());
    }
    return middles;
}

} // namespace vorna
