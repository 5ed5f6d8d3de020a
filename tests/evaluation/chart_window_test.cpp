#include "core/file_names.h"
#include "evaluation/chart_window.h"
#include "tests/support/evaluation_fixture.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

using namespace std::chrono_literals;

// Looks at the chart window while it is open.
using Look = std::function<void(ChartWindow&)>;

void whileOpen(EvaluationDesk& desk, int button, const Look& look) {
    bool seen = false;
    desk.windows.visit = [&](Window& window) {
        if (auto* const chart = dynamic_cast<ChartWindow*>(&window)) {
            seen = true;
            look(*chart);
        }
    };
    desk.press(button);
    desk.windows.visit = {};
    EXPECT_TRUE(seen) << button;
}

// What is seen of the list, the text, and the two buttons that show and hide them.
std::string seen(const ChartWindow& window) {
    return std::string(window.problems.visible ? "list " : "") +
           (window.evaluation.visible ? "text " : "") +
           (window.showEvaluation.visible ? "show " : "") +
           (window.hideEvaluation.visible ? "hide" : "");
}

TEST(ChartWindow, ShowsTheEvaluationWhenAsked) {
    struct Case {
        int button;
        const char* shown; // after a click on "show"
        const char* text;
        bool elements;
        bool star;
    };
    const Case cases[] = {
        {0, "list ", "", true, false},
        {1, "list ", "", true, false},
        {2, "list ", "", true, false},
        {5, "text ", "text 5/4", false, false},
        {6, "text ", "text 6/1\r\ntext 6/2", false, true},
    };
    EvaluationDesk desk;
    desk.measure("P", sampleValues());
    for (const Case& chart : cases) {
        whileOpen(desk, chart.button, [&](ChartWindow& window) {
            EXPECT_EQ(seen(window), "show ");
            EXPECT_EQ(window.elements.visible, chart.elements) << chart.button;
            EXPECT_EQ(window.star.visible, chart.star) << chart.button;
            window.showEvaluation.click();
            EXPECT_EQ(window.evaluation.text.get(), chart.text);
            desk.seams.loop.wait(99ms);
            EXPECT_EQ(seen(window), std::string(chart.shown) + "show ") << "before the tick";
            desk.seams.loop.wait(1ms);
            EXPECT_EQ(seen(window), std::string(chart.shown) + "hide") << chart.button;
            window.hideEvaluation.click();
            desk.seams.loop.wait(100ms);
            EXPECT_EQ(seen(window), "show ") << chart.button;
        });
    }
}

TEST(ChartWindow, TheBalanceWindowTurnsItIntoAChartWithAText) {
    EvaluationDesk desk;
    desk.measure("P", sampleValues());
    whileOpen(desk, 0, [&](ChartWindow& window) {
        window.showEvaluation.click();
        window.balance.click();
        EXPECT_EQ(desk.state.chartType, 7);
        desk.seams.loop.wait(100ms);
        EXPECT_EQ(seen(window), "list show ") << "the list stays, the button asks for the text";
        window.showEvaluation.click();
        EXPECT_EQ(window.evaluation.text.get(), "key 100");
        desk.seams.loop.wait(100ms);
        EXPECT_EQ(seen(window), "list text hide");
    });
    ASSERT_EQ(desk.windows.shown.size(), 2U);
    EXPECT_EQ(desk.windows.shown[1].section, "Form3");
    EXPECT_EQ(desk.windows.shown[1].texts.at("Label1"), "t79 8 %");
}

TEST(ChartWindow, OfAReportSavesItsPictureAndClosesItself) {
    EvaluationDesk desk;
    desk.measure("P", sampleValues());
    const fs::path picture = desk.session.dataRoot / names::html / "grafk17.bmp";
    for (const int button : {0, 6}) {
        desk.state.ReportChartIndex = 1;
        desk.state.reportChartKey = "k17";
        desk.seams.drawing.documents.clear();
        whileOpen(desk, button, [&](ChartWindow& window) {
            desk.seams.loop.wait(1999ms);
            EXPECT_TRUE(desk.seams.drawing.documents.empty());
            EXPECT_FALSE(window.closed());
            desk.seams.loop.wait(1ms);
            EXPECT_EQ(desk.seams.drawing.documents,
                      std::vector<std::string>{window.chart.dataXml.get()});
            EXPECT_EQ(window.savedPicture.path.get(), pathText(picture));
            EXPECT_TRUE(window.closed());
            desk.seams.loop.wait(10s);
            EXPECT_EQ(desk.seams.drawing.documents.size(), 1U) << "once";
        });
    }
}

TEST(ChartWindow, OfAUserStaysOpenAndSavesWhenAsked) {
    EvaluationDesk desk;
    desk.measure("P", sampleValues());
    desk.state.reportChartKey = "k18";
    whileOpen(desk, 5, [&](ChartWindow& window) {
        desk.seams.loop.wait(1min);
        EXPECT_FALSE(window.closed());
        EXPECT_TRUE(desk.seams.drawing.documents.empty());
        window.savePicture.click();
        EXPECT_EQ(desk.seams.drawing.documents.size(), 1U);
        EXPECT_FALSE(window.closed());
        window.back.click();
        EXPECT_TRUE(window.closed());
    });
}

TEST(ChartWindow, ADoubleClickOnAProblemAsksForItsSolution) {
    EvaluationDesk desk;
    std::vector<int> asked;
    desk.context.recommend = [&](ChartWindow& window) {
        asked.push_back(window.problems.selected);
    };
    desk.measure("P", sampleValues());
    whileOpen(desk, 2, [&](ChartWindow& window) {
        window.problems.selected = 1;
        call(window.problems.doubleClicked);
    });
    EXPECT_EQ(asked, std::vector<int>{1});
}

} // namespace
} // namespace vorna
