// The practitioner's road through the real windows: a point on a serial line, the charts, a
// proposal, the report, another language.
#include "acquisition/measurement_wizard.h"
#include "acquisition/reading_line.h"
#include "probe/pseudo_terminal.h"
#include "recommendation/recommendation_window.h"
#include "tests/desktop/desktop_desk.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QLineEdit>
#include <QTextBrowser>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace vorna {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// A probe that is held on the skin.
class HeldProbe {
public:
    explicit HeldProbe(int reading) {
        terminal_.reset();
        QObject::connect(&lines_, &QTimer::timeout, [this, reading] {
            if (terminal_.hasReader())
                terminal_.write(formatReadingLine(reading));
        });
        lines_.start(20);
    }
    [[nodiscard]] const std::string& path() const { return terminal_.path(); }

private:
    PseudoTerminal terminal_;
    QTimer lines_;
};

// Takes the page that would go to the desktop's browser.
class Browser {
public:
    Browser() { QDesktopServices::setUrlHandler("file", &view_, "setSource"); }
    Browser(const Browser&) = delete;
    Browser& operator=(const Browser&) = delete;
    ~Browser() { QDesktopServices::unsetUrlHandler("file"); }
    [[nodiscard]] fs::path page() const { return view_.source().toLocalFile().toStdU16String(); }

private:
    QTextBrowser view_;
};

template <class Model>
Model* modelOf(WindowView& view) {
    return dynamic_cast<Model*>(&view.model());
}

template <class T = QAbstractButton>
T& widgetOf(WindowView& view, const Control& control) {
    return dynamic_cast<T&>(*view.binder().widgetOf(control));
}

class PractitionerRoadTest : public ::testing::Test {
protected:
    MainWindow& window() { return desk.program->window(); }
    template <class T = QAbstractButton>
    T& widget(const Control& control) {
        return dynamic_cast<T&>(*desk.program->view().binder().widgetOf(control));
    }
    void click(const Control& button) {
        QTest::mouseClick(&widget<>(button), Qt::LeftButton);
        DesktopDesk::settle();
    }

    DesktopDesk desk;
};

TEST_F(PractitionerRoadTest, APointIsMeasuredAndSaved) {
    HeldProbe probe(3000);
    desk.start(2);
    const fs::path setup = desk.folder / "data/VORNA/setup.ini";
    WriteIniValue(setup, "global", "port", probe.path());
    WriteIniValue(setup, "global", "dobamer", "2");
    desk.start(2);
    desk.selectSample();
    window().tabs.select(static_cast<std::size_t>(MainTab::Measurements));
    const std::size_t before = window().measurements.list.size();
    std::string box;
    desk.program->windows().shown = [&](WindowView& view) {
        auto* const wizard = modelOf<MeasurementWizard>(view);
        ASSERT_NE(wizard, nullptr);
        auto& first = widgetOf<QLineEdit>(view, wizard->run.startIndex);
        first.selectAll();
        QTest::keyClicks(&first, "24");
        QTest::keyClick(&widgetOf<>(view, wizard->run.start), Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitFor([&] { return wizard->run.progress.state == PointState::Done; },
                                    10'000));
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return wizard->leadingAction() == &wizard->save; }, 10'000));
        box = wizard->run.boxTexts()[24];
        QTest::mouseClick(&widgetOf<>(view, wizard->save), Qt::LeftButton);
        EXPECT_TRUE(wizard->storedFile());
        view.close();
    };
    click(window().measureSource);
    EXPECT_EQ(box, "100");
    EXPECT_EQ(window().measurements.list.size(), before + 1);
}

TEST_F(PractitionerRoadTest, EveryChartOpensAndAProposalIsCopied) {
    desk.start(2);
    desk.selectSample();
    std::vector<std::string> opened;
    desk.program->windows().shown = [&](WindowView& view) {
        opened.push_back(view.model().section());
        DesktopDesk::settle();
        if (auto* const proposals = modelOf<RecommendationWindow>(view)) {
            ASSERT_GT(proposals->points.size(), 0U);
            proposals->points.change(0, [](ListRow& row) { row.checked = true; });
            QTest::mouseClick(&widgetOf<>(view, proposals->copy), Qt::LeftButton);
            EXPECT_FALSE(QGuiApplication::clipboard()->text().isEmpty());
        }
        if (auto* const chart = modelOf<ChartWindow>(view);
            chart != nullptr && chart->problems.size() > 0) {
            chart->problems.selected = 0;
            call(chart->problems.doubleClicked);
        }
        view.close();
    };
    desk.selectMeasurement(0);
    for (const auto& button : window().chartButtons.members)
        if (widget<>(*button).isVisible())
            click(*button);
    EXPECT_THAT(opened, ElementsAre("graffrm", "graffrm", "Form4", "graffrm", "Form4", "Form3",
                                    "Form7", "graffrm", "graffrm"));
}

TEST_F(PractitionerRoadTest, TheReportIsOpened) {
    Browser browser;
    desk.start(2);
    desk.selectSample();
    desk.selectMeasurement(0);
    QTest::keyClick(&desk.table(window().measurements.list), Qt::Key_Space);
    for (const int chart : {0, 5})
        window().print.charts.at(chart)->checked = true;
    click(window().print.print);
    const std::string page = readWholeFile(browser.page());
    for (const char* const picture : {"graf10.bmp", "graf15.bmp"}) {
        EXPECT_THAT(page, HasSubstr(picture));
        EXPECT_TRUE(fs::exists(browser.page().parent_path() / picture));
    }
}

TEST_F(PractitionerRoadTest, LanguageAndModeHoldFromTheNextStartOn) {
    desk.start(2);
    window().tabs.select(static_cast<std::size_t>(MainTab::Settings));
    DesktopDesk::settle();
    desk.clickRow(window().settingsList, 1);
    click(*window().languageOptions.at(2));
    click(window().apmOption);
    click(window().saveModeAndLanguage);
    EXPECT_EQ(desk.said.size(), 1U);
    desk.startAgain();
    EXPECT_EQ(window().measureSource.caption.get(), "P-Quellpunkte");
    EXPECT_FALSE(widget<>(window().measureEnergy).isVisible());
}

} // namespace
} // namespace vorna
