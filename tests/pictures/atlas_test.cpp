// The atlas that is shipped, and what its readers refuse.
#include "content/pictures/meridian_pictures.h"
#include "content/pictures/stage.h"
#include "content/pictures/svg_path.h"
#include "content/pictures/view_choice.h"
#include "content/table_source.h"
#include "platform/failure.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace vorna {
namespace {

fs::path atlasFolder() {
    return fs::path(VORNA_TEST_SOURCE) / "installation" / "atlas";
}

const Atlas& shippedAtlas() {
    static const Atlas atlas(atlasFolder());
    return atlas;
}

TEST(SvgPath, ReadsTheCommandsOfTheAtlasAndRefusesOthers) {
    EXPECT_EQ(parseSvgPath("M1 2 L3,4C5-6 7 8 9 10Z").elementCount(), 6);
    EXPECT_EQ(parseSvgPath("M0 0 10 0 10 10").boundingRect(), QRectF(0, 0, 10, 10));
    EXPECT_EQ(parseSvgPath("M0 0L4 4M8 8L9 9").toSubpathPolygons().size(), 2);
    for (const char* faulty : {"L1 2", "M1", "M1 2C3 4 5 6", "M1 2l3 4", "M1 2A3 4 5 6", "1 2"})
        EXPECT_THROW(parseSvgPath(faulty), Failure) << faulty;
}

// The letters of a description do not reach the drawing, so the places are held against numbers
// that hold on every view of the trunk: the midline, and the distances from it.
TEST(Atlas, PointsLieAtTheirDistanceFromTheMidline) {
    struct Line {
        const char* view;
        std::vector<std::string> points;
        double cun;
        double unitsPerCun;
    };
    const Line lines[] = {
        {"trunk_front", {"1402", "1408", "1417"}, 0, 48},
        {"trunk_front", {"0811", "0816", "0821"}, 0.5, 48},
        {"trunk_front", {"0319", "0325", "0330", "0827"}, 2, 48},
        {"trunk_front", {"0313", "0317", "0415"}, 4, 48},
        {"trunk_front", {"0101", "0102"}, 6, 48},
        {"trunk_back", {"1302", "1304", "1312"}, 0, 45},
        {"trunk_back", {"0711", "0713", "0723", "0730"}, 1.5, 45},
        {"trunk_back", {"0741", "0752", "0754"}, 3, 45},
    };
    for (const Line& line : lines) {
        const AtlasView& view = shippedAtlas().view(line.view);
        for (const std::string& point : line.points)
            EXPECT_NEAR(std::abs(view.points.at(point).at.x() - view.canvas.width() / 2),
                        line.cun * line.unitsPerCun, 2)
                << point;
    }
    const auto& front = shippedAtlas().view("trunk_front").points;
    EXPECT_EQ(front.at("1408").at.y(), front.at("0325").at.y()) << "both level with the navel";
    EXPECT_EQ(front.at("1417").at.y(), front.at("0317").at.y()) << "both in the 4th space";
}

TEST(Atlas, ShowsEveryPointInEveryUseAndEveryMeridianWhole) {
    const ViewChoice choice(shippedAtlas(), atlasFolder());
    const TableSource points = readTable(atlasFolder() / ".." / "tables" / "Points.tsv");
    const auto meridians = readMeridianViews(shippedAtlas(), atlasFolder() / "meridian_views.tsv");
    ASSERT_EQ(points.rows.size(), 361U);
    for (const SourceRow& row : points.rows) {
        const std::string point = points.text(row, "pointLong");
        for (const ViewUse use : {ViewUse::Close, ViewUse::Region, ViewUse::Body})
            EXPECT_NO_THROW(static_cast<void>(choice.viewOf(point, use))) << point;
        const std::vector<std::string>& parts = meridians.at(point.substr(0, 2)).parts;
        EXPECT_TRUE(std::any_of(parts.begin(), parts.end(), [&](const std::string& view) {
            return shippedAtlas().view(view).points.contains(point);
        })) << point;
    }
}

TEST(Atlas, ShowsBothEndsOfEveryMeridianOnItsFigures) {
    const TableSource points = readTable(atlasFolder() / ".." / "tables" / "Points.tsv");
    std::map<std::string, std::set<std::string>> ofMeridian;
    for (const SourceRow& row : points.rows) {
        const std::string point = points.text(row, "pointLong");
        ofMeridian[point.substr(0, 2)].insert(point);
    }
    for (const auto& [meridian, views] :
         readMeridianViews(shippedAtlas(), atlasFolder() / "meridian_views.tsv")) {
        std::vector<std::string> shown = views.figures;
        if (!views.inset.empty())
            shown.push_back(views.inset);
        for (const std::string& end :
             {*ofMeridian.at(meridian).begin(), *ofMeridian.at(meridian).rbegin()})
            EXPECT_TRUE(std::any_of(shown.begin(), shown.end(), [&](const std::string& view) {
                return shippedAtlas().view(view).points.contains(end);
            })) << end;
    }
}

TEST(ViewChoice, KeepsTheFigureAlongALimb) {
    const ViewChoice choice(shippedAtlas(), atlasFolder());
    struct Limb {
        const char* meridian;
        int lastPoint;
        const char* figure;
    };
    const Limb limbs[] = {
        {"02", 14, "body_side"}, {"06", 15, "body_back"}, {"10", 15, "body_back"}};
    for (const Limb& limb : limbs)
        for (int number = 1; number <= limb.lastPoint; ++number) {
            const std::string point =
                limb.meridian + std::string(number < 10 ? "0" : "") + std::to_string(number);
            EXPECT_EQ(choice.viewOf(point, ViewUse::Body).name, limb.figure) << point;
        }
}

TEST(ViewChoice, PrefersWhatFacesTheReader) {
    const ViewChoice choice(shippedAtlas(), atlasFolder());
    struct Case {
        const char* point;
        ViewUse use;
        const char* view;
    };
    const Case cases[] = {{"0109", ViewUse::Close, "hand_palmar"},
                          {"0204", ViewUse::Close, "hand_dorsal"},
                          {"0109", ViewUse::Region, "arm_inner"},
                          {"0801", ViewUse::Region, "foot_sole"}, // no other region shows it
                          {"0713", ViewUse::Body, "body_back"},
                          {"1320", ViewUse::Close, "head_top"},
                          {"0615", ViewUse::Close, "trunk_back"}}; // by the table of exceptions
    for (const Case& row : cases)
        EXPECT_EQ(choice.viewOf(row.point, row.use).name, row.view) << row.point;
}

TEST(Stage, MirrorImageReflectsPlacesWithinTheSamePart) {
    const AtlasView& view = shippedAtlas().view("hand_dorsal");
    const QRectF room(0, 0, 900, 1200);
    const Surroundings surroundings{.at = view.points.at("0204").at, .width = 450};
    const Stage left = closeView(view, surroundings, room, false);
    const Stage right = closeView(view, surroundings, room, true);
    EXPECT_EQ(left.part, right.part);
    EXPECT_NEAR(left.place("0204").x() + right.place("0204").x(), 900, 1e-6);
    EXPECT_NEAR(left.place("0204").y(), right.place("0204").y(), 1e-6);
    EXPECT_NEAR(left.place("0204").x(), 450, 1e-6) << "in the middle, as the canvas is wide enough";
    EXPECT_THROW(static_cast<void>(left.place("0713")), Failure);

    const Stage whole = wholeView(view, room, false);
    EXPECT_EQ(whole.part, view.area());
    EXPECT_TRUE(room.contains(whole.target));
}

class FaultyAtlas : public testing::Test {
protected:
    void expectFault(const char* part) const {
        try {
            const Atlas atlas(folder.path());
            ADD_FAILURE() << "no Failure for " << part;
        } catch (const Failure& failure) {
            EXPECT_NE(std::string(failure.what()).find(part), std::string::npos) << failure.what();
        }
    }
    void write(const char* svg, const char* points) const {
        folder.write("a.svg", svg);
        folder.write("a.tsv", std::string("pointLong\tx\ty\tvis\n") + points);
        folder.write("a.paths.tsv", "meridian\tpath\n01\tM1 1L5 5\n");
    }
    static constexpr const char* drawing =
        R"(<svg viewBox="0 0 10 20"><g id="skin" fill="#FFFFFF"><path d="M0 0L9 9Z"/></g></svg>)";

    ScratchFolder folder;
};

TEST_F(FaultyAtlas, IsNamed) {
    expectFault("no drawings");
    write(drawing, "0101\t3\t4\t1\n");
    EXPECT_NO_THROW(Atlas(folder.path()));
    write(drawing, "0101\t3\t40\t1\n");
    expectFault("a.tsv:2: the point lies beside the canvas");
    write(drawing, "0101\t3\t4\t1\n0101\t3\t4\t1\n");
    expectFault("a.tsv:3: the point stands twice");
    write("<svg viewBox=\"0 0 10 20\"><g>", "");
    expectFault("a.svg: ");
}

} // namespace
} // namespace vorna
