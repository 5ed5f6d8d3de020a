// Places of labels among dots, leaders, courses and the lines of a drawing.
#include "content/pictures/label_places.h"
#include "platform/failure.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vorna {
namespace {

constexpr double dotRadius = 9;
const QRectF extent(-16, -12, 32, 24);
const double led = dotRadius + leaderFrom * extent.height(); // the length of a leader to be seen

QPointF nearestOf(const QRectF& box, const QPointF& at) {
    return {std::clamp(at.x(), box.left(), box.right()),
            std::clamp(at.y(), box.top(), box.bottom())};
}

double distance(const QPointF& at, const QRectF& box) {
    return QLineF(at, nearestOf(box, at)).length();
}

// The least distance of a place to the places along a line.
double distance(const QPointF& at, const QLineF& line) {
    double least = QLineF(at, line.p1()).length();
    for (double share = 0; share <= 1; share += 0.01)
        least = std::min(least, QLineF(at, line.pointAt(share)).length());
    return least;
}

class LabelPlacesAmongDots : public testing::Test {
protected:
    // The boxes of the labels of all dots.
    std::vector<QRectF> boxesFor(const std::vector<QPointF>& dots) {
        std::vector<LabelPlaces::Wish> wishes;
        for (const QPointF& dot : dots) {
            places.keepFree(dot, dotRadius);
            wishes.push_back({.at = dot, .radius = dotRadius, .extent = extent, .preferred = 0});
        }
        std::vector<QRectF> boxes;
        for (const QPointF& middle : places.take(wishes))
            boxes.push_back(extent.translated(middle));
        return boxes;
    }

    LabelPlaces places{QRectF(0, 0, 600, 600)};
};

TEST_F(LabelPlacesAmongDots, StandNearestToTheirOwnOrHaveALeaderThatCrossesNoOther) {
    struct Case {
        const char* what;
        std::vector<QPointF> dots;
    };
    const Case cases[] = {
        {"side by side", {{300, 300}, {320, 300}}},
        {"one above the other", {{300, 300}, {300, 320}}},
        {"two columns", {{300, 300}, {300, 328}, {300, 356}, {322, 300}, {322, 328}, {322, 356}}},
        {"a slanting row", {{300, 300}, {316, 310}, {332, 320}}},
        {"a triangle", {{300, 300}, {320, 300}, {310, 318}}},
        {"a dense row", {{300, 300}, {314, 300}, {328, 300}, {342, 300}, {356, 300}, {370, 300}}},
        {"a dense column", {{300, 300}, {300, 312}, {300, 324}, {300, 336}, {300, 348}}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.what);
        places = LabelPlaces(QRectF(0, 0, 600, 600));
        const std::vector<QRectF> boxes = boxesFor(row.dots);
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            const QLineF leader(row.dots[i], nearestOf(boxes[i], row.dots[i]));
            for (std::size_t other = 0; other < boxes.size(); ++other) {
                if (other == i)
                    continue;
                EXPECT_TRUE(leader.length() > led ||
                            leader.length() < distance(row.dots[other], boxes[i]))
                    << i << other;
                EXPECT_GT(distance(row.dots[other], leader), dotRadius) << i << other;
                EXPECT_FALSE(boxes[i].intersects(boxes[other])) << i << other;
            }
        }
    }
}

TEST_F(LabelPlacesAmongDots, LeadersGoRoundOtherDots) {
    const QPointF other(322, 300);
    places.keepFree(other, dotRadius);
    places.keepFree({150, 150, 130, 300}); // on the left
    places.keepFree({280, 150, 30, 135});  // above
    places.keepFree({280, 315, 200, 135}); // below
    const QPointF dot(300, 300);
    const QPointF middle =
        places.take({.at = dot, .radius = dotRadius, .extent = extent, .preferred = 0});
    const QLineF leader(dot, nearestOf(extent.translated(middle), dot));
    EXPECT_GT(leader.length(), led);
    EXPECT_GT(distance(other, leader), dotRadius);
}

// A drawing with one shape on the right of (300, 300).
class LabelPlacesOnDrawing : public testing::TestWithParam<Layer> {
protected:
    static double shareCovered(const QPainterPath& shape, const QPointF& middle) {
        const QRectF bounds = shape.boundingRect();
        const QRectF covered = bounds.intersected(extent.translated(middle));
        return covered.width() * covered.height() / (bounds.width() * bounds.height());
    }
};

TEST_P(LabelPlacesOnDrawing, LeaveLandmarksToBeSeen) {
    AtlasView view{.name = "drawn", .canvas = {600, 600}};
    QPainterPath shape;
    shape.addEllipse(QPointF(336, 300), 20, 20);
    view.drawing.push_back({.path = shape, .layer = GetParam()});
    const QRectF room(0, 0, 600, 600);
    const LabelPlaces::Wish wish{
        .at = {300, 300}, .radius = dotRadius, .extent = extent, .preferred = 0};
    LabelPlaces blank(room);
    EXPECT_GT(shareCovered(shape, blank.take(wish)), 0.4);

    LabelPlaces drawn(room);
    drawn.avoid(wholeView(view, room, false));
    EXPECT_LT(shareCovered(shape, drawn.take(wish)), 0.1);
}

INSTANTIATE_TEST_SUITE_P(Layers, LabelPlacesOnDrawing,
                         testing::Values(Layer::Nails, Layer::Landmarks, Layer::Form, Layer::Skin));

TEST(LabelPlaces, OneOfSeveralPlacesIsNamedByItsDrawbackAndTheRoom) {
    const QRectF room(0, 0, 600, 600);
    const auto wish = [](const QPointF& at, double drawback) {
        return LabelPlaces::Wish{
            .at = at, .radius = dotRadius, .extent = extent, .preferred = 0, .drawback = drawback};
    };
    const std::vector wishes{wish({150, 300}, 1), wish({450, 300}, 0.5)};
    LabelPlaces free(room);
    EXPECT_EQ(free.takeOneOf(wishes).wish, 1U);

    LabelPlaces crowded(room);
    crowded.keepFree({350, 200, 250, 200});
    const LabelPlaces::Choice choice = crowded.takeOneOf(wishes);
    EXPECT_EQ(choice.wish, 0U);
    EXPECT_LT(distance(wishes[0].at, extent.translated(choice.middle)), led);
    EXPECT_THROW(static_cast<void>(crowded.takeOneOf({})), Failure);
}

TEST(LabelPlaces, ACourseThatCountsSeveralTimesIsKeptFreeSooner) {
    QPainterPath course(QPointF(330, 0));
    course.lineTo(330, 600);
    const LabelPlaces::Wish wish{
        .at = {300, 300}, .radius = dotRadius, .extent = extent, .preferred = 0};
    constexpr double times = 4;
    LabelPlaces once(QRectF(0, 0, 600, 600));
    LabelPlaces often = once;
    once.avoid(course);
    often.avoid(course, times);
    const QRectF beside = extent.translated(330, 300);
    EXPECT_GT(once.cost(beside), 0);
    EXPECT_NEAR(often.cost(beside), times * once.cost(beside), 1e-6);
    EXPECT_FALSE(course.intersects(extent.translated(often.take(wish))));
}

TEST(InkMap, CountsStepsOfLinesAndInsidesUnderBoxesAndLines) {
    InkMap ink(QRectF(100, 0, 300, 300));
    QPainterPath line(QPointF(0, 45));
    line.lineTo(500, 45);
    ink.addLine(line, 0.5);
    EXPECT_NEAR(ink.under({160, 30, 60, 30}), 5, 0.1);
    EXPECT_NEAR(ink.under({0, 0, 1000, 1000}), 25, 0.6) << "what lies in the room";
    EXPECT_EQ(ink.under({160, 60, 60, 30}), 0);
    EXPECT_NEAR(ink.along({{160, 45}, {220, 45}}), 5, 0.1);
    EXPECT_LT(ink.along({{190, 0}, {190, 90}}), 0.7) << "crossed once";

    QPainterPath square;
    square.addRect(160, 160, 60, 60);
    ink.addInside(square, 0.5);
    EXPECT_NEAR(ink.under({100, 100, 300, 200}), 50, 5);
}

} // namespace
} // namespace vorna
