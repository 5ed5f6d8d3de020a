// The road through the main window by mouse and keyboard.
#include "desktop/masked_edit.h"
#include "tests/desktop/desktop_desk.h"

#include <QComboBox>
#include <QLineEdit>
#include <QWheelEvent>
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

TEST_F(MainWindowRoadTest, AWheelThatPassesOverAClosedListLeavesIt) {
    desk.selectSample();
    window().tabs.select(static_cast<std::size_t>(MainTab::Card));
    DesktopDesk::settle();
    auto& list = widgetOf<QComboBox>(desk, window().card.gender);
    const int before = window().card.gender.index;
    for (const int down : {-120, 120}) {
        QWheelEvent wheel(QPointF(5, 5), list.mapToGlobal(QPointF(5, 5)), {}, {0, down}, {}, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&list, &wheel);
        EXPECT_EQ(window().card.gender.index, before);
    }
}

TEST_F(MainWindowRoadTest, TheSettingsListIsWalkedByKeys) {
    window().tabs.select(static_cast<std::size_t>(MainTab::Settings));
    DesktopDesk::settle();
    int helps = 0;
    window().showHelp = [&](const fs::path&) { ++helps; };
    EXPECT_FALSE(window().freeMeasurement.frame.visible) << "no row is chosen yet";
    ListTable& table = desk.table(window().settingsList);
    table.setFocus();
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(&table, Qt::Key_Down);
    EXPECT_EQ(helps, 0);
    QTest::keyClick(&table, Qt::Key_Return);
    EXPECT_TRUE(window().freeMeasurement.frame.visible);
}

TEST_F(MainWindowRoadTest, F1AndTheFilterAreThereEverywhere) {
    desk.selectSample();
    desk.selectMeasurement(0);
    int helps = 0;
    desk.program->windows().helpWanted = [&] { ++helps; };
    desk.program->windows().shown = [](WindowView& view) {
        EXPECT_EQ(view.windowTitle(), qt(view.model().caption())) << "and nothing more";
        DesktopDesk::settle();
        EXPECT_EQ(QApplication::activeWindow(), &view);
        QTest::keyClick(&view, Qt::Key_F1);
        QTest::keyClick(&view, Qt::Key_Escape);
    };
    window().chartButtons.at(0)->click();
    EXPECT_EQ(helps, 1);
    desk.program->view().activateWindow();
    DesktopDesk::settle();
    QTest::keyClick(&desk.program->view(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(window().tabs.selected, static_cast<int>(MainTab::Clients));
}

TEST_F(MainWindowRoadTest, TheButtonsOfAQuestionAreInTheLanguage) {
    const char* const yes[] = {"Ano", "Yes", "Ja", "Да"};
    for (int language = 1; language <= 4; ++language) {
        desk.start(language);
        QMessageBox box(QMessageBox::Question, {}, {}, QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(box.button(QMessageBox::Yes)->text().remove('&'),
                  QString::fromUtf8(yes[language - 1]));
    }
}

TEST(MaskedEditTest, ADigitTakesItsPlaceAndOneThatGoesLeavesIt) {
    struct Case {
        const char* rule;
        const char *shown, *edited;
        int cursor;
        const char* text;
        int next;
    };
    const Case cases[] = {
        {"the first digit", "14.05.1978", "314.05.1978", 1, "34.05.1978", 1},
        {"in front of a sign", "14.05.1978", "143.05.1978", 3, "14.35.1978", 4},
        {"the sign itself", "14.05.1978", "14..05.1978", 3, "14.05.1978", 3},
        {"in an empty box", "__.__.____", "1__.__.____", 1, "1_.__.____", 1},
        {"behind the last place", "1_.__.____", "1_.__.____2", 11, "12.__.____", 3},
        {"a letter", "14.05.1978", "1x4.05.1978", 2, "14.05.1978", 1},
        {"when all is full", "14.05.1978", "14.05.19781", 11, "14.05.1978", 10},
        {"taken back", "14.05.1978", "14.0.1978", 4, "14.0_.1978", 4},
        {"a sign stays", "14.05.1978", "1405.1978", 2, "14.05.1978", 2},
        {"all at once", "__.__.____", "01.02.1980", 10, "01.02.1980", 10},
    };
    for (const Case& c : cases) {
        const MaskedEdit edit = maskedEdit(c.shown, c.edited, c.cursor);
        EXPECT_EQ(edit.text.toStdString(), c.text) << c.rule;
        EXPECT_EQ(edit.cursor, c.next) << c.rule;
    }
}

TEST_F(MainWindowRoadTest, ThePlaceOfTheWindowIsKept) {
    desk.program->view().setGeometry(40, 30, 900, 640);
    DesktopDesk::settle();
    desk.program->view().close();
    desk.start(2);
    EXPECT_EQ(desk.program->window().place.left, 40 * twipsPerPixel);
    EXPECT_EQ(desk.program->window().place.top, 30 * twipsPerPixel);
}

TEST(ThemeTest, AGenericFamilyIsTheOneWithFiguresOfOneWidth) {
    const QFont before = QApplication::font();
    const auto familyFor = [](const char* family) {
        QApplication::setFont(QFont(family));
        applyTheme(*qApp, ThemeChoice::Light);
        return QApplication::font().family();
    };
    EXPECT_EQ(familyFor("Sans Serif"), "Noto Sans");
    EXPECT_EQ(familyFor("DejaVu Serif"), "DejaVu Serif");
    QApplication::setFont(before);
    applyTheme(*qApp, ThemeChoice::Light);
}

} // namespace
} // namespace vorna
