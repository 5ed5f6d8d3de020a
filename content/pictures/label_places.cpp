#include "content/pictures/label_places.h"

#include <QLineF>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace vorna {
namespace {

constexpr int directions = 16;
constexpr std::array distances{0.25, 0.7, 1.3, 2.1, 3.2, 4.6}; // in heights of the label

double area(const QRectF& rect) {
    return rect.isValid() ? rect.width() * rect.height() : 0;
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

} // namespace

void LabelPlaces::avoid(const QPainterPath& course) {
    constexpr double step = 6;
    for (const QPolygonF& line : course.toSubpathPolygons())
        for (qsizetype i = 1; i < line.size(); ++i) {
            const QLineF piece(line[i - 1], line[i]);
            for (double way = 0; way < piece.length(); way += step)
                avoided_.push_back(piece.pointAt(way / piece.length()));
        }
}

double LabelPlaces::cost(const QRectF& box) const {
    double sum = 30 * (area(box) - area(box.intersected(room_))) / area(box);
    for (const QRectF& other : taken_)
        sum += 12 * area(box.intersected(other)) / std::min(area(box), area(other));
    for (const QPointF& point : avoided_)
        if (box.contains(point))
            sum += 0.12;
    return sum;
}

QPointF LabelPlaces::take(const Wish& wish) {
    double least = std::numeric_limits<double>::max();
    QRectF best;
    for (const double distance : distances) {
        for (int i = 0; i < directions; ++i) {
            const double degrees = wish.preferred + 360.0 * i / directions;
            const double length =
                wish.radius + distance * wish.extent.height() + reach(wish.extent, degrees);
            const QRectF box =
                wish.extent.translated(QLineF::fromPolar(length, degrees).translated(wish.at).p2());
            const double price = cost(box) + 0.25 * turn(degrees, wish.preferred) + 0.5 * distance +
                                 0.3 * std::abs(QLineF::fromPolar(1, degrees).dy());
            if (price < least) {
                least = price;
                best = box;
            }
        }
    }
    taken_.push_back(best);
    return best.center();
}

} // namespace vorna
