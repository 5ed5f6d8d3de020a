// Where the boxes with the values stand in one slot of a column chart. A slot is the room of one
// category with its bars side by side. Lengths are logical pixels, y grows downwards.
#pragma once

#include "platform/qt/chart_parts.h"

#include <QRectF>
#include <QString>

#include <vector>

namespace vorna {

struct ValueBoxWish {
    std::size_t bar = 0; // index in SlotRoom::bars
    QString text;
    bool inside = false; // the bar is cut at the top: the box stands in it
};

// The slot less what its separators take, from the top of the canvas down to the axis.
struct SlotRoom {
    QRectF rect;
    std::vector<QRectF> bars; // from left to right, also those without a box
};

struct ValueBox {
    std::size_t bar = 0;
    ChartBox box;
};

// One box for each wish, 2 above its bar or inside it near the top. A box wider than its bar grows
// outwards where it would cover the neighbour; two that meet stand side by side, if need be
// smaller, else one above the other. No box leaves the slot or overlaps another; one that finds no
// place at all is left out. The boxes' colours are the caller's.
std::vector<ValueBox> placeValueBoxes(const std::vector<ValueBoxWish>& wishes, const SlotRoom& room,
                                      ChartFonts& fonts);

} // namespace vorna
