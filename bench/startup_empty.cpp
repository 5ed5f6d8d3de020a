// An empty window, painted once.
#include "bench/first_paint.h"

#include <QApplication>

int main(int count, char** arguments) {
    QApplication application(count, arguments);
    QWidget window;
    window.resize(1280, 800);
    new FirstPaint(window);
    window.show();
    return QApplication::exec();
}
