// The settings tab: the list at its left and the three frames of which it shows one at a time.
#pragma once

#include "core/session.h"
#include "core/window.h"

#include <filesystem>
#include <functional>
#include <string>

namespace vorna {

struct MainWindow;

struct SettingsFrames {
    explicit SettingsFrames(Window& window);

    Frame settings;
    Frame about;
    Label version; // major, minor, revision; empty until the frame was shown
};

// The rows of the settings list.
enum class SettingsRow : int { Help, Settings, FreeMeasurement, About };

// Hides the frames, and shows that of the row with what belongs to it; the first row shows none and
// opens the help. A row that does not exist shows none.
void openSettingsRow(MainWindow& window, const Session& session, int row,
                     const std::function<void(const std::filesystem::path&)>& showHelp);

// "major.minor, rev. revision" of this program.
std::string programVersion();

// The file that the help is shown from: the installation's, or the current language's own where
// the installation cannot be written.
std::filesystem::path helpFile(const Session& session);

} // namespace vorna
