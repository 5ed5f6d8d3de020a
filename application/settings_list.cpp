#include "application/settings_list.h"

#include "application/main_window.h"
#include "core/file_names.h"
#include "core/language_texts.h"
#include "platform/failure.h"
#include "platform/files.h"

namespace vorna {

SettingsFrames::SettingsFrames(Window& window)
    : settings(window, "nastavFrame"), about(window, "aboutFrame"), version(window, "Label5") {
    settings.visible = false;
    about.visible = false;
}

std::string programVersion() {
    return VORNA_VERSION_MAJOR "." VORNA_VERSION_MINOR ", rev. " VORNA_VERSION_PATCH;
}

std::filesystem::path helpFile(const Session& session) {
    const fs::path own = under(session.appFolder, names::helpFile(session.language));
    const fs::path shown = under(session.appFolder, names::help);
    // A read-only installation keeps the help of another language, or none.
    const bool current = attempt([&] {
                             if (readWholeFile(own) != readWholeFile(shown))
                                 throw Failure("the help is another language's");
                         }) ||
                         (isMissing(own) && !isMissing(shown));
    return current ? shown : own;
}

void openSettingsRow(MainWindow& window, const Session& session, int row,
                     const std::function<void(const std::filesystem::path&)>& showHelp) {
    SettingsFrames& frames = window.settings;
    frames.settings.visible = false;
    window.freeMeasurement.frame.visible = false;
    frames.about.visible = false;
    switch (static_cast<SettingsRow>(row)) {
    case SettingsRow::Help:
        if (showHelp)
            showHelp(helpFile(session));
        break;
    case SettingsRow::Settings:
        window.probe.calibrationText.text = t(session, "t25");
        window.probe.calibrationText.backColour = BackColour::Plain;
        frames.settings.visible = true;
        window.probe.listPorts.click();
        break;
    case SettingsRow::FreeMeasurement:
        window.freeMeasurement.frame.visible = true;
        break;
    case SettingsRow::About:
        frames.version.caption = programVersion();
        frames.about.visible = true;
        break;
    }
}

} // namespace vorna
