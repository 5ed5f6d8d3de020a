// Windows without a display: Qt's offscreen platform, in the program's own look.
#include "desktop/theme.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    vorna::applyTheme(application, vorna::ThemeChoice::Light);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
