#include "platform/qt/pie_leaders.h"

#include <QLineF>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>

namespace vorna {
namespace {

bool contains(const PieSlice& slice, double radius, const QPointF& point) {
    const QPointF away = point - slice.apex;
    if (std::hypot(away.x(), away.y()) >= radius)
        return false;
    const double turned =
        std::fmod(std::atan2(-away.y(), away.x()) - slice.from, 2 * std::numbers::pi);
    return (turned < 0 ? turned + 2 * std::numbers::pi : turned) <= slice.span;
}

bool runsOverPie(const PieLayout& layout, const QLineF& line) {
    const int steps = 1 + static_cast<int>(line.length());
    for (int i = 0; i <= steps; ++i)
        for (const PieSlice& slice : layout.slices)
            if (contains(slice, layout.radius + 1.5, line.pointAt(static_cast<double>(i) / steps)))
                return true;
    return false;
}

bool runsOverPie(const PieLayout& layout, const QPolygonF& leader) {
    for (qsizetype i = 1; i < leader.size(); ++i)
        if (runsOverPie(layout, QLineF(leader[i - 1], leader[i])))
            return true;
    return false;
}

double distance(const QPointF& point, const QLineF& line) {
    const QPointF along = line.p2() - line.p1();
    const double length = QPointF::dotProduct(along, along);
    const double part =
        length > 0 ? std::clamp(QPointF::dotProduct(point - line.p1(), along) / length, 0.0, 1.0)
                   : 0;
    return QLineF(point, line.p1() + along * part).length();
}

bool areClose(const QLineF& a, const QLineF& b, double least) {
    if (a.intersects(b, nullptr) == QLineF::BoundedIntersection)
        return true;
    return std::min({distance(a.p1(), b), distance(a.p2(), b), distance(b.p1(), a),
                     distance(b.p2(), a)}) < least;
}

bool areClose(const QPolygonF& a, const QPolygonF& b, double least) {
    for (qsizetype i = 1; i < a.size(); ++i)
        for (qsizetype k = 1; k < b.size(); ++k)
            if (areClose(QLineF(a[i - 1], a[i]), QLineF(b[k - 1], b[k]), least))
                return true;
    return false;
}

} // namespace

std::vector<std::size_t> entangledSlices(const PieLayout& layout) {
    const double least = 2 * layout.scale;
    std::set<std::size_t> entangled;
    for (const PieLabel& label : layout.labels) {
        if (runsOverPie(layout, label.leader))
            entangled.insert(label.slice);
        for (const PieLabel& other : layout.labels) {
            if (other.slice == label.slice)
                continue;
            if (areClose(label.leader, QPolygonF(other.box.rect), 0))
                entangled.insert(label.slice);
            if (areClose(label.leader, other.leader, least))
                entangled.insert(layout.slices[label.slice].span < layout.slices[other.slice].span
                                     ? label.slice
                                     : other.slice);
        }
    }
    return {entangled.begin(), entangled.end()};
}

} // namespace vorna
