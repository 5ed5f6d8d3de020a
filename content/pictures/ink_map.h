// How much of a drawing lies where, told from a raster laid over the picture.
#pragma once

#include <QLineF>
#include <QPainterPath>
#include <QRectF>

#include <vector>

namespace vorna {

class InkMap {
public:
    // What lies outside the room is not counted.
    explicit InkMap(const QRectF& room);

    // `weight` is what each 6 pixels of the line count, or each 6 by 6 pixels of the inside.
    void addLine(const QPainterPath& line, double weight);
    void addInside(const QPainterPath& shape, double weight);

    // The sum of what lies under the box or the line; 0 when nothing.
    [[nodiscard]] double under(const QRectF& box) const;
    [[nodiscard]] double along(const QLineF& line) const;

private:
    // The raster's columns or rows that have their middle between two places.
    struct Stretch {
        int first;
        int end;
    };
    [[nodiscard]] Stretch columns(const QRectF& box) const;
    [[nodiscard]] Stretch rows(const QRectF& box) const;
    [[nodiscard]] std::size_t numberOf(int column, int row) const;
    // The numbers of the cells that the line runs through, and how many steps of it fall to each.
    template <class Visit>
    void follow(const QLineF& line, Visit&& visit) const;

    QRectF room_;
    int width_;
    int height_;
    std::vector<double> ink_; // row by row
};

} // namespace vorna
