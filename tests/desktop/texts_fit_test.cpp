// Every text of every window is there and whole, in all languages and both modes.
#include "tests/desktop/desktop_desk.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

#include <vector>

namespace vorna {
namespace {

QString nameOf(const QWidget& widget, const QString& text) {
    return QString("%1 \"%2\"").arg(widget.objectName(), text);
}

// What is cut off or blank among the visible widgets below one.
QStringList faultsOf(const QWidget& root) {
    QStringList faults;
    for (const QLabel* const label : root.findChildren<QLabel*>()) {
        if (!label->isVisibleTo(&root) || label->text().isEmpty())
            continue;
        if (!label->wordWrap() && label->sizePolicy().horizontalPolicy() != QSizePolicy::Ignored &&
            label->sizeHint().width() > label->width() + 1)
            faults.append("cut: " + nameOf(*label, label->text()));
        if (label->wordWrap() && label->heightForWidth(label->width()) > label->height() + 1)
            faults.append("too low: " + nameOf(*label, label->text()));
    }
    for (const QAbstractButton* const button : root.findChildren<QAbstractButton*>()) {
        if (!button->isVisibleTo(&root) || button->objectName().isEmpty())
            continue;
        if (button->accessibleName().isEmpty())
            faults.append("no name: " + nameOf(*button, button->text()));
        const bool plain = dynamic_cast<const QPushButton*>(button) != nullptr ||
                           dynamic_cast<const QCheckBox*>(button) != nullptr;
        if (plain && button->sizeHint().width() > button->width() + 1)
            faults.append("cut: " + nameOf(*button, button->text()));
    }
    return faults;
}

class TextsFitTest : public ::testing::TestWithParam<int> {
protected:
    void expectWhole(const QWidget& shown, const std::string& what) {
        DesktopDesk::settle();
        const QStringList faults = faultsOf(shown);
        EXPECT_TRUE(faults.isEmpty())
            << what << ", language " << GetParam() << ": " << faults.join("; ").toStdString();
    }

    DesktopDesk desk;
};

TEST_P(TextsFitTest, OnEveryTab) {
    desk.start(GetParam());
    desk.selectSample();
    MainWindow& window = desk.program->window();
    desk.program->view().resize(800, 600);
    EXPECT_EQ(desk.program->view().size(), QSize(800, 600)) << "the window can be so small";
    for (const QSize& size : {QSize(1280, 800), QSize(1000, 700)}) {
        desk.program->view().resize(size);
        for (const MainTab tab : {MainTab::Clients, MainTab::Card, MainTab::Measurements,
                                  MainTab::Library, MainTab::Settings}) {
            window.tabs.select(static_cast<std::size_t>(tab));
            expectWhole(desk.program->view(), "tab " + std::to_string(static_cast<int>(tab)));
        }
        for (int row = 1; row < 4; ++row) {
            desk.clickRow(window.settingsList, row);
            expectWhole(desk.program->view(), "settings row " + std::to_string(row));
        }
    }
}

TEST_P(TextsFitTest, InEveryWindowOfAMeasurement) {
    for (const bool tcm : {true, false}) {
        desk.start(GetParam(), tcm);
        desk.selectSample();
        MainWindow& window = desk.program->window();
        int windows = 0;
        desk.program->windows().shown = [&](WindowView& view) {
            ++windows;
            view.resize(1280, 800);
            expectWhole(view, "window " + view.model().section());
            if (auto* const chart = dynamic_cast<ChartWindow*>(&view.model()))
                if (chart->problems.visible && chart->problems.size() > 0) {
                    chart->problems.selected = 0;
                    call(chart->problems.doubleClicked);
                }
            view.close();
        };
        for (int row = 0; row < static_cast<int>(window.measurements.list.size()); ++row)
            for (const auto& tile : window.chartButtons.members) {
                desk.selectMeasurement(row);
                tile->click();
            }
        window.measureSource.click();
        EXPECT_GT(windows, 8) << "all kinds of windows came up";
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, TextsFitTest, ::testing::Values(1, 2, 3, 4));

} // namespace
} // namespace vorna
