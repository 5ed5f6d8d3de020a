#include "desktop/seams/qt_desktop.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QUrl>

namespace vorna {

void QtClipboard::setText(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

bool QtOpener::open(const std::filesystem::path& path) {
    const QString file = QString::fromStdU16String(path.u16string());
    return QFileInfo::exists(file) && QDesktopServices::openUrl(QUrl::fromLocalFile(file));
}

} // namespace vorna
