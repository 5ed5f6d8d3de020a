#include "desktop/desktop_program.h"

int main(int count, char** arguments) {
    return vorna::runDesktop(count, arguments);
}
