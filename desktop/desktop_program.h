// The desktop program as a whole: the seams of one process, its start-up, its windows, its end.
#pragma once

#include "acquisition/measurement_wizard.h"
#include "application/main_window.h"
#include "application/measuring.h"
#include "application/startup.h"
#include "desktop/desktop_windows.h"
#include "desktop/help/help_view.h"
#include "desktop/main_view.h"
#include "desktop/seams/loaded_devices.h"
#include "desktop/seams/loaded_sound.h"
#include "desktop/seams/qt_desktop.h"
#include "desktop/seams/qt_dialogs.h"
#include "desktop/windows/work_view.h"
#include "platform/qt/qt_chart_drawing.h"
#include "platform/qt/qt_event_loop.h"

#include <QTranslator>

#include <memory>

namespace vorna {

class DesktopProgram {
public:
    explicit DesktopProgram(StartupFolders folders);
    DesktopProgram(const DesktopProgram&) = delete;
    DesktopProgram& operator=(const DesktopProgram&) = delete;
    ~DesktopProgram();

    // Start-up and the main window, not shown yet.
    void start();
    void show();
    // Until the program ends; the exit code.
    int run() const;

    [[nodiscard]] MainWindow& window() { return window_; }
    [[nodiscard]] MainView& view() { return *view_; }
    [[nodiscard]] DesktopWindows& windows() { return windows_; }
    [[nodiscard]] EvaluationContext& context() { return context_; }

    // Ends every wait and `run`, from whichever window.
    void end(int exitCode);

private:
    void showHelp(const std::filesystem::path& file);

    StartupFolders folders_;
    SystemClock clock_;
    QtEventLoop loop_;
    QtDialogs dialogs_;
    QtClipboard clipboard_;
    QtOpener opener_;
    LoadedSound sound_;
    QtChartDrawing drawing_;
    Platform platform_;
    Session session_;
    EvaluationState state_;
    MainWindow window_;
    DesktopWindows windows_;
    EvaluationContext context_;
    LoadedSerialLine line_;
    LoadedDeviceSearch search_;
    std::unique_ptr<Measuring> measuring_;
    std::unique_ptr<QTranslator> textsOfQt_;
    std::unique_ptr<MainView> view_;
    std::unique_ptr<HelpView> help_; // once it was asked for
    WorkView work_;
    bool ended_ = false;
    int exitCode_ = 0;
};

// The program's main: reads the command line, runs, and gives the exit code.
int runDesktop(int count, char** arguments);

} // namespace vorna
