#include "desktop/font_reading.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QThreadPool>

namespace vorna {

void readFontsBeside() {
    qAddPostRoutine([] { QThreadPool::globalInstance()->waitForDone(); });
    QThreadPool::globalInstance()->start([] { static_cast<void>(QFontDatabase::families()); });
}

} // namespace vorna
