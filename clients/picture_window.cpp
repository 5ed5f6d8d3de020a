#include "clients/picture_window.h"

#include "core/file_names.h"
#include "platform/files.h"

namespace vorna {

PictureWindow::PictureWindow(const Session& session) : Window("Form6") {
    setCaption(session.texts.value(section(), "Form6.caption"));
    back.clicked = [this] { close(); };
    applyLanguage(session, *this);
}

void showPicture(const Session& session, WindowHost& windows, const std::filesystem::path& file) {
    std::error_code error;
    PictureWindow window(session);
    if (std::filesystem::is_regular_file(file, error))
        window.picture.path = pathText(file);
    windows.showModal(window);
}

void showLanguagePicture(const Session& session, WindowHost& windows, std::string_view stem) {
    showPicture(session, windows,
                under(session.modeFolder, names::languagePicture(stem, session.language)));
}

} // namespace vorna
