// The pictures of one point: close up, in its region, on the whole body. Each shows the drawing,
// the pathway, the mark and its label; the right side is the mirror image with the text unmirrored.
#pragma once

#include "content/pictures/stage.h"
#include "content/pictures/view_choice.h"

#include <QImage>
#include <QString>

#include <map>
#include <memory>
#include <tuple>

namespace vorna {

// The size of a point's pictures, in pixels.
inline constexpr QSize pointPictureSize{900, 1200};

struct PointSubject {
    std::string pointLong;
    bool right = false; // the right side; nothing of it on the midline
};

// Short names of the pathways ("LU"), by meridian.
using PathwayCodes = std::map<std::string, std::string>;

struct PointPicture {
    QImage image;
    QPointF mark; // its middle, on the image
    QRectF label; // the box of the point's label
};

class PointPainter {
public:
    // All must outlive the painter. A painter serves one thread.
    PointPainter(const ViewChoice& views, const PathwayCodes& codes)
        : views_(views), codes_(codes) {}

    // The surroundings, with the neighbours on the pathway and a small figure.
    [[nodiscard]] PointPicture close(const PointSubject& subject);
    // The whole limb, trunk or head, with a small figure.
    [[nodiscard]] PointPicture region(const PointSubject& subject);
    // The whole figure.
    [[nodiscard]] PointPicture body(const PointSubject& subject);

private:
    struct Canvas;
    [[nodiscard]] QString labelOf(const std::string& pointLong) const;
    // The view alone on paper; drawn once for each size.
    const QImage& backdrop(const Stage& stage, const QSize& size, double outline);
    void drawCourse(Canvas& canvas) const;
    void drawFigure(Canvas& canvas);
    void findNeighbours(Canvas& canvas) const;
    void drawNeighbours(Canvas& canvas) const;
    void placeLabel(Canvas& canvas) const;
    void drawSubject(Canvas& canvas) const;

    const ViewChoice& views_;
    const PathwayCodes& codes_;
    std::map<std::tuple<std::string, bool, int>, QImage> backdrops_; // view, mirrored, height
};

} // namespace vorna
