// The desktop program from its start to its painted main window.
//
//     startup_vorna INSTALLATION COMMON_DATA
#include "bench/first_paint.h"
#include "desktop/desktop_program.h"
#include "desktop/font_reading.h"
#include "desktop/theme.h"

#include <QApplication>

int main(int count, char** arguments) {
    if (count < 3)
        return 2;
    QApplication application(count, arguments);
    vorna::readFontsBeside();
    vorna::applyTheme(application, vorna::ThemeChoice::Light);
    vorna::DesktopProgram program({arguments[1], arguments[2]});
    program.start();
    new FirstPaint(program.view());
    program.show();
    return QApplication::exec();
}
