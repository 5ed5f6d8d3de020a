// The whole desktop program on a scratch installation with the sample client, its windows real but
// without a display.
#pragma once

#include "content/sample_client.h"
#include "core/file_names.h"
#include "core/settings_file.h"
#include "desktop/desktop_program.h"
#include "desktop/list_table.h"
#include "desktop/theme.h"
#include "evaluation/chart_window.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/test_installation.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCoreApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <memory>
#include <string>
#include <vector>

namespace vorna {

class DesktopDesk {
public:
    DesktopDesk() {
        copyInstallation(folder / "app");
        QObject::connect(&answering_, &QTimer::timeout, [this] { answer(); });
        answering_.start(20);
    }

    // A start in a language (1 to 4) and mode; the first one lays down the data root.
    void start(int language, bool tcm = true) {
        program.reset();
        make();
        if (!sampled_) {
            program->start();
            program.reset();
            addSampleClient(
                {.sources = VORNA_TEST_SOURCE "/installation", .dataRoot = folder / "data/VORNA"});
            sampled_ = true;
            make();
        }
        const fs::path setup = folder / "data/VORNA/setup.ini";
        WriteIniValue(setup, "Global", "Jazyk", std::to_string(language));
        WriteIniValue(setup, "Global", "ModFunkce", tcm ? "1" : "0");
        open();
    }
    // With the settings as they are now.
    void startAgain() {
        program.reset();
        make();
        open();
    }
    void selectSample() {
        selectClientRow(program->window(), 0);
        settle();
    }
    void selectMeasurement(int row) {
        program->window().tabs.select(static_cast<std::size_t>(MainTab::Measurements));
        settle();
        clickRow(program->window().measurements.list, row);
    }
    // As with the mouse, in the middle of the row's second cell.
    void clickRow(Control& list, int row) {
        ListTable& table = this->table(list);
        const QModelIndex cell =
            table.model()->index(row, table.model()->columnCount() > 1 ? 1 : 0);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(cell).center());
        settle();
    }
    [[nodiscard]] ListTable& table(Control& list) {
        return dynamic_cast<ListTable&>(*program->view().binder().widgetOf(list));
    }
    static void settle() {
        for (int i = 0; i < 6; ++i)
            QCoreApplication::processEvents();
    }

    ScratchFolder folder;
    std::vector<std::string> said; // by message boxes, which are left by Yes or OK
    std::unique_ptr<DesktopProgram> program;

private:
    void make() {
        program = std::make_unique<DesktopProgram>(StartupFolders{folder / "app", folder / "data"});
    }

    void open() {
        program->start();
        program->view().resize(1280, 800);
        program->show();
        settle();
    }

    void answer() {
        auto* const box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr)
            return;
        said.push_back(box->text().toStdString());
        QAbstractButton* const yes = box->button(QMessageBox::Yes);
        (yes != nullptr ? yes : box->button(QMessageBox::Ok))->click();
    }

    bool sampled_ = false;
    QTimer answering_;
};

} // namespace vorna
