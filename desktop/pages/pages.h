// The pages of the main window, one for each tab: layout and binding only.
#pragma once

#include "application/main_window.h"
#include "desktop/binder.h"
#include "desktop/texts.h"

#include <QWidget>

namespace vorna {

struct PageParts {
    MainWindow& window;
    Binder& binder;
    Texts texts;
};

QWidget* makeClientsPage(const PageParts& parts);
QWidget* makeCardPage(const PageParts& parts);
QWidget* makeMeasurementsPage(const PageParts& parts);
QWidget* makeLibraryPage(const PageParts& parts);
QWidget* makeSettingsPage(const PageParts& parts);

} // namespace vorna
