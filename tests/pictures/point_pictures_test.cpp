// The pictures of the points, drawn from the atlas that is shipped.
#include "content/pictures/palette.h"
#include "content/pictures/point_pictures.h"
#include "content/pictures/reference_texts.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace vorna {
namespace {

class PointPictures : public testing::Test {
protected:
    static fs::path sources() { return fs::path(VORNA_TEST_SOURCE) / "installation"; }

    const ReferenceTexts texts = readReferenceTexts(sources());
    const Atlas atlas{sources() / "atlas"};
    const ViewChoice choice{atlas, sources() / "atlas"};
    const PathwayCodes codes = [this] {
        PathwayCodes found;
        for (const auto& [meridian, own] : texts.meridians)
            found.emplace(meridian, own.code);
        return found;
    }();
    PointPainter painter{choice, codes};
};

bool isMarkColour(const QImage& image, const QPointF& at) {
    const QColor colour = image.pixelColor(at.toPoint());
    return std::abs(colour.red() - palette::mark.red()) < 30 &&
           std::abs(colour.green() - palette::mark.green()) < 30;
}

// How far two pictures of the same size are apart, 0 for the same.
double difference(const QImage& a, const QImage& b) {
    double sum = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            sum += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y)));
    return sum / (a.width() * a.height());
}

TEST_F(PointPictures, RightSideIsTheMirrorImageWithItsTextUnmirrored) {
    for (const char* point : {"0204", "0336", "1120"}) {
        SCOPED_TRACE(point);
        const PointPicture left = painter.close({.pointLong = point});
        const PointPicture right = painter.close({.pointLong = point, .right = true});
        EXPECT_NEAR(left.mark.x() + right.mark.x(), pointPictureSize.width(), 0.01);
        EXPECT_NEAR(left.mark.y(), right.mark.y(), 0.01);
        EXPECT_TRUE(isMarkColour(left.image, left.mark));
        EXPECT_TRUE(isMarkColour(right.image, right.mark));

        const QImage leftLabel = left.image.copy(left.label.toRect());
        const QImage rightLabel = right.image.copy(right.label.toRect()).scaled(leftLabel.size());
        EXPECT_LT(difference(leftLabel, rightLabel),
                  difference(leftLabel, rightLabel.mirrored(true, false)) / 2);
    }
}

TEST_F(PointPictures, MarksStandInTheirPicturesAndNoLabelCoversThem) {
    const QRectF picture(QPointF(0, 0), QSizeF(pointPictureSize));
    constexpr double ring = 19;
    constexpr std::size_t sample = 4; // every fourth point, of all regions and both sides
    for (std::size_t i = 0; i < texts.points.size(); i += sample) {
        const std::string& point = texts.points[i];
        SCOPED_TRACE(point);
        const bool right = i / sample % 2 == 1 && !isMidline(point);
        for (const PointPicture& drawn : {painter.close({.pointLong = point, .right = right}),
                                          painter.region({.pointLong = point, .right = right})}) {
            EXPECT_TRUE(isMarkColour(drawn.image, drawn.mark));
            EXPECT_TRUE(picture.adjusted(ring, ring, -ring, -ring).contains(drawn.mark));
            EXPECT_TRUE(picture.contains(drawn.label));
            EXPECT_FALSE(drawn.label.adjusted(-ring, -ring, ring, ring).contains(drawn.mark));
        }
    }
}

} // namespace
} // namespace vorna
