// One process of the system without windows: the session, the state and the main window over the
// tool's own seams. Time is virtual, dialogs are recorded and answered from the command line.
#pragma once

#include "application/main_window.h"
#include "application/startup.h"
#include "platform/virtual_event_loop.h"
#include "tool/tool_seams.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vorna {

// The options of every command.
struct ToolOptions {
    std::filesystem::path appFolder;  // empty: the folder of the executable
    std::filesystem::path commonData; // empty: as for the desktop program
    std::string locale;               // empty: the user's own
    std::optional<LocalTime> now;     // empty: the machine's clock
    double speed = 0;                 // 0: time jumps
    std::vector<std::string> answers; // yes, no, ok or cancel
    bool pretty = false;
};

class ToolProcess {
public:
    explicit ToolProcess(const ToolOptions& options);

    // Start-up; true when it was a first run.
    bool start();

    // Selects a client in the list by its intid, as a click does. CannotRun when there is none.
    void selectClient(const std::string& intid);
    // Selects a measurement by its file name, whether the folder holds it or not.
    void selectMeasurement(const std::string& name);

    VirtualClock clock;
    VirtualEventLoop loop;
    RecordingDialogs dialogs;
    RecordingClipboard clipboard;
    RecordingOpener opener;
    SilentSound sound;
    OffscreenDrawing drawing;
    Platform platform;
    ModalWindows windows;
    Session session;
    EvaluationState state;
    MainWindow window;
    EvaluationContext context;
    bool ended = false; // the process would have ended

private:
    StartupFolders folders_;
};

} // namespace vorna
