// A view of the atlas laid on a picture: which part of it, where, and whether as the mirror image.
#pragma once

#include "content/pictures/atlas.h"

#include <QPainter>
#include <QTransform>

namespace vorna {

struct Stage {
    const AtlasView& view;
    QRectF part;   // of the view, in its units
    QRectF target; // on the picture, in pixels; of the same proportions as the part
    bool mirrored = false;

    // From the view's units to pixels.
    [[nodiscard]] QTransform transform() const;
    [[nodiscard]] double scale() const { return target.width() / part.width(); }
    [[nodiscard]] QPointF map(const QPointF& at) const { return transform().map(at); }
    // Where the point stands on the picture. Failure when the view does not show it.
    [[nodiscard]] QPointF place(const std::string& pointLong) const;
};

// The whole view, as large as the room takes it, in its middle.
Stage wholeView(const AtlasView& view, const QRectF& room, bool mirrored);

// The surroundings of a place of the view, `width` units wide, filling the room. They are moved
// inwards where the canvas ends, as far as the canvas reaches.
struct Surroundings {
    QPointF at;
    double width;
};
Stage closeView(const AtlasView& view, const Surroundings& surroundings, const QRectF& room,
                bool mirrored);

// Draws the view, cut off at the target. The outline is `outline` pixels wide and all other lines
// in proportion, so that drawings of different scales are one family.
void drawView(QPainter& painter, const Stage& stage, double outline);

} // namespace vorna
