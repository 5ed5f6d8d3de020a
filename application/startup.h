// Start-up, first run and shut-down: the one ordered procedure that turns an installation folder
// into a running session, and its end. A failing step reports nothing and stops nothing.
#pragma once

#include "application/main_window.h"
#include "core/session.h"
#include "platform/platform.h"

#include <filesystem>

namespace vorna {

struct StartupFolders {
    std::filesystem::path appFolder;  // the folder of the executable
    std::filesystem::path commonData; // the common application data folder
};

// Fills the session and the main window. True when it was a first run, which is when the data root
// had no HTML folder. What a first run overwrites is backed up before; what cannot be backed up is
// not overwritten.
bool startUp(const StartupFolders& folders, Session& session, MainWindow& window,
             Platform& platform);

// Writes the window's place and size. The process ends afterwards.
void shutDown(const Session& session, const MainWindow& window, const Platform& platform);

} // namespace vorna
