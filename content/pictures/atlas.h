// The body atlas: drawn views of the body, the places of the points on them and the courses of the
// pathways. It knows the left side and the midline; the right side is the mirror image.
//
// A view is three files of one folder: <view>.svg (the drawing), <view>.tsv (pointLong, x, y, vis)
// and <view>.paths.tsv (meridian, path), all in the units of the drawing's viewBox.
#pragma once

#include "platform/files.h"

#include <QColor>
#include <QPainterPath>
#include <QPen>

#include <map>
#include <string>
#include <vector>

namespace vorna {

// What a shape is of: the body's outline, its creases and features, or what lies below the skin. A
// landmark is not drawn: it tells the extent of what the reader finds the place by.
enum class Layer { Skin, Form, Bones, Nails, Hair, Landmarks };

// One shape of a drawing.
struct DrawnShape {
    QPainterPath path;
    QPen pen;
    QColor fill; // not valid: not filled
    Layer layer = Layer::Form;
};

struct PlacedPoint {
    QPointF at;
    bool edge = false; // seen at the rim of the view only
};

struct AtlasView {
    std::string name;
    QSizeF canvas;
    std::vector<DrawnShape> drawing;              // from back to front
    std::map<std::string, PlacedPoint> points;    // by pointLong
    std::map<std::string, QPainterPath> pathways; // by meridian, from the first point to the last
    [[nodiscard]] QRectF area() const { return {QPointF(0, 0), canvas}; }
};

class Atlas {
public:
    // Reads every view of the folder. Failure, naming the file, when one is faulty or missing, and
    // when a point or pathway lies on no canvas.
    explicit Atlas(const fs::path& folder);

    // Failure when there is no such view.
    [[nodiscard]] const AtlasView& view(const std::string& name) const;
    [[nodiscard]] const std::map<std::string, AtlasView>& views() const { return views_; }

private:
    std::map<std::string, AtlasView> views_;
};

} // namespace vorna
