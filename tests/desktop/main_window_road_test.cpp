// The road through the main window by mouse and keyboard.
#include "tests/desktop/desktop_desk.h"

#include <QLineEdit>
#include <gtest/gtest.h>

namespace vorna {
namespace {

template <class T>
T& widgetOf(DesktopDesk& desk, const Control& control) {
    return dynamic_cast<T&>(*desk.program->view().binder().widgetOf(control));
}

class MainWindowRoadTest : public ::testing::Test {
protected:
    MainWindowRoadTest() { desk.start(2); }

    MainWindow& window() { return desk.program->window(); }

    DesktopDesk desk;
};

TEST_F(MainWindowRoadTest, TheFilterIsTypedAndAClientClicked) {
    EXPECT_FALSE(window().tabs.tabs()[2].enabled);
    auto& filter = widgetOf<QLineEdit>(desk, window().clients.filter);
    QTest::keyClicks(&filter, "zz");
    EXPECT_EQ(window().clients.list.size(), 0U);
    QTest::keyClick(&filter, Qt::Key_Backspace);
    QTest::keyClick(&filter, Qt::Key_Backspace);
    ASSERT_EQ(window().clients.list.size(), 1U);
    desk.clickRow(window().clients.list, 0);
    EXPECT_TRUE(window().tabs.tabs()[2].enabled);
    auto& surname = widgetOf<QLineEdit>(desk, window().card.surname);
    EXPECT_EQ(surname.text().toStdString(), window().clients.list.row(0).text);
    EXPECT_EQ(window().activeControl, &window().clients.list);
}

TEST_F(MainWindowRoadTest, TheCardGoesOnByEnterAndIsSaved) {
    desk.selectSample();
    window().tabs.select(static_cast<std::size_t>(MainTab::Card));
    DesktopDesk::settle();
    auto& surname = widgetOf<QLineEdit>(desk, window().card.surname);
    surname.setFocus();
    surname.selectAll();
    QTest::keyClicks(&surname, "Nova");
    QTest::keyClick(&surname, Qt::Key_Return);
    EXPECT_EQ(window().activeControl, &window().card.firstName);
    EXPECT_EQ(window().card.surname.text.get(), "Nova");
    window().card.save.click();
    EXPECT_EQ(window().clients.list.row(0).text, "Nova");
}

TEST_F(MainWindowRoadTest, AChartOpensForTheRowThatWasClicked) {
    desk.selectSample();
    desk.selectMeasurement(0);
    EXPECT_EQ(window().activeControl, &window().measurements.list);
    std::vector<std::string> sections;
    desk.program->windows().shown = [&](WindowView& view) {
        sections.push_back(view.model().section());
        DesktopDesk::settle();
        QTest::keyClick(&view, Qt::Key_Escape);
    };
    auto& tile = widgetOf<QAbstractButton>(desk, *window().chartButtons.at(0));
    QTest::mouseClick(&tile, Qt::LeftButton);
    EXPECT_EQ(sections, std::vector<std::string>{"graffrm"});
    EXPECT_EQ(window().activeControl, &window().measurements.list) << "the list keeps it";

    desk.selectMeasurement(1);
    QTest::mouseClick(&tile, Qt::LeftButton);
    EXPECT_EQ(desk.said.size(), 1U) << "a measurement of the other mode";
    EXPECT_EQ(sections.size(), 2U) << "told, and drawn all the same";
}

TEST_F(MainWindowRoadTest, SpaceChecksARowAndTheClickOnItsMarkTakesItBack) {
    desk.selectSample();
    desk.selectMeasurement(0);
    ListTable& table = desk.table(window().measurements.list);
    QTest::keyClick(&table, Qt::Key_Space);
    EXPECT_TRUE(window().measurements.list.row(0).checked);
    const QRect cell = table.visualRect(table.model()->index(0, 0));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                      QPoint(cell.left() + px(20), cell.center().y()));
    EXPECT_FALSE(window().measurements.list.row(0).checked);
}

TEST_F(MainWindowRoadTest, TheChosenModeExcludesTheOther) {
    window().tabs.select(static_cast<std::size_t>(MainTab::Settings));
    DesktopDesk::settle();
    desk.clickRow(window().settingsList, 1);
    EXPECT_TRUE(window().settings.settings.visible);
    auto& apm = widgetOf<QAbstractButton>(desk, window().apmOption);
    QTest::mouseClick(&apm, Qt::LeftButton);
    EXPECT_TRUE(window().apmOption.checked);
    EXPECT_FALSE(window().tcmOption.checked);
    QTest::mouseClick(&widgetOf<QAbstractButton>(desk, *window().languageOptions.at(2)),
                      Qt::LeftButton);
    EXPECT_EQ(window().clickedLanguage, 2);
}

TEST_F(MainWindowRoadTest, ThePlaceOfTheWindowIsKept) {
    desk.program->view().setGeometry(40, 30, 900, 640);
    DesktopDesk::settle();
    desk.program->view().close();
    desk.start(2);
    EXPECT_EQ(desk.program->window().place.left, 40 * twipsPerPixel);
    EXPECT_EQ(desk.program->window().place.top, 30 * twipsPerPixel);
}

} // namespace
} // namespace vorna
