#include "core/file_names.h"
#include "recommendation/proposal.h"
#include "recommendation/recommendation_window.h"
#include "tests/support/evaluation_fixture.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

// Presses a chart button, double-clicks a problem row and looks at the recommended solution.
template <class Look>
void recommend(EvaluationDesk& desk, int button, int row, Look&& look) {
    bool seen = false;
    desk.windows.visit = [&](Window& window) {
        if (auto* const chart = dynamic_cast<ChartWindow*>(&window)) {
            chart->problems.selected = row;
            call(chart->problems.doubleClicked);
        } else if (auto* const solution = dynamic_cast<RecommendationWindow*>(&window)) {
            seen = true;
            look(*solution);
        }
    };
    desk.press(button);
    desk.windows.visit = {};
    EXPECT_TRUE(seen) << button;
}

// Sets the only proposal of meridian therapy for sides that differ.
void setProposal(EvaluationDesk& desk, const char* values) {
    desk.session.referenceDb->executeScript(std::string("delete from Therapy_m;"
                                                        "insert into Therapy_m values ") +
                                            values);
}

TEST(RecommendationWindow, ShowsTheRowThatIsPicked) {
    EvaluationDesk desk;
    desk.measure("P", levelValues(100, {{10, 20}})); // the liver's left side
    setProposal(desk, "(1, 1, 1, 16, 'luo', 'careful'), (2, 1, 2, 16, 'paired', null)");
    recommend(desk, 0, 0, [&](RecommendationWindow& window) {
        EXPECT_EQ(window.caption(), "t34problem 1");
        ASSERT_EQ(window.points.size(), 2U);
        EXPECT_EQ(window.labelFirstHalf.caption.get(), "LR ");
        EXPECT_EQ(window.labelSecondHalf.caption.get(), "05 t42");
        EXPECT_EQ(window.additionalText.caption.get(), "careful");
        EXPECT_EQ(window.china.caption.get(), "蠡沟");
        EXPECT_NE(window.description.caption.get(), "");
        const std::string meridian = window.meridianName.caption;
        EXPECT_NE(meridian, "");
        window.points.selected = 1;
        call(window.points.clicked);
        EXPECT_EQ(window.labelFirstHalf.caption.get(), "GB ");
        EXPECT_EQ(window.labelSecondHalf.caption.get(), "37");
        EXPECT_EQ(window.additionalText.caption.get(), "");
        EXPECT_EQ(window.meridianName.caption.get(), meridian) << "of the treated pathway";
        window.points.change(1, [](ListRow& row) {
            row.tag = "";
            row.setSubItem(pointLabelColumn, "GB37");
        });
        call(window.points.clicked);
        EXPECT_EQ(window.labelFirstHalf.caption.get() + "|" + window.labelSecondHalf.caption.get() +
                      "|" + window.china.caption.get() + "|" + window.description.caption.get(),
                  "GB37|||")
            << "nothing of the row before stays";
    });
    recommend(desk, 2, 0, [&](RecommendationWindow& window) {
        EXPECT_EQ(window.caption().substr(0, 4), "t34 ") << "a blank in the element chart alone";
    });
}

TEST(RecommendationWindow, PicturesAreThoseOfTheTag) {
    EvaluationDesk desk;
    ScratchFolder folder;
    desk.measure("P", levelValues(100, {{10, 20}}));
    setProposal(desk, "(1, 1, 1, 16, 'luo', null)");
    desk.session.modeFolder = folder.path();
    recommend(desk, 0, 0, [&](RecommendationWindow& window) {
        EXPECT_EQ(window.frontPicture.path.get(), "");
        call(window.meridianPicture.clicked);
        EXPECT_EQ(desk.windows.shown.size(), 2U) << "no picture, no window";
    });
    for (const char* const name :
         {"12050K.jpg", "12050f2.JPG", "12051F.jpg", "M12tcm-1 x.jpg", "M12apm-0.jpg"})
        folder.write("obr2/" + std::string(name), "");
    for (const std::int16_t mode : {modeTcm, modeApm}) {
        desk.session.mode = mode;
        recommend(desk, 0, 0, [&](RecommendationWindow& window) {
            EXPECT_EQ(fs::path(window.frontPicture.path.get()).filename(), "12050f2.JPG");
            EXPECT_EQ(fs::path(window.sidePicture.path.get()).filename(), "12050K.jpg");
            call(window.meridianPicture.clicked);
        });
        ASSERT_EQ(desk.windows.shown.back().section, "Form6");
        EXPECT_EQ(fs::path(desk.windows.shown.back().texts["Image1"]).filename(),
                  mode == modeTcm ? "M12tcm-1 x.jpg" : "M12apm-0.jpg");
        desk.session.mode = modeTcm;
    }
}

TEST(RecommendationWindow, TheBalanceChartGivesItsTextAlone) {
    EvaluationDesk desk;
    ChartWindow chart(desk.context);
    desk.state.chartType = 6;
    desk.state.apmTherapyText = "more yin";
    const RecommendationWindow window(desk.context, chart);
    EXPECT_EQ(window.caption().find("t34"), std::string::npos) << "the title stays as it is";
    ASSERT_EQ(window.points.size(), 1U);
    EXPECT_EQ(window.points.row(0).text, "more yin");
    EXPECT_EQ(window.labelFirstHalf.caption.get(), "");
    EXPECT_EQ(window.china.caption.get(), "");
}

TEST(RecommendationWindow, CopiesTheCheckedRowsAndSoundsInAnyCase) {
    EvaluationDesk desk;
    desk.measure("P", levelValues(100, {{10, 20}}));
    setProposal(desk, "(1, 1, 1, 16, 'luo', null), (2, 1, 1, 8, 'yuan', null),"
                      " (3, 1, 2, 16, 'paired', null)");
    recommend(desk, 0, 0, [&](RecommendationWindow& window) {
        window.copy.click();
        for (const std::size_t row : {0U, 2U})
            window.points.change(row, [](ListRow& one) { one.checked = true; });
        window.copy.click();
    });
    EXPECT_EQ(desk.seams.clipboard.texts,
              (std::vector<std::string>{"", "luo - LR 05 t42\r\npaired - GB 37\r\n"}));
    EXPECT_EQ(desk.seams.sound.played.size(), 2U);
}

} // namespace
} // namespace vorna
