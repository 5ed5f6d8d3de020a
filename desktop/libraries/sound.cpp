// What the program finds in this library by its name.
#include "desktop/libraries/qt_sound.h"

#include <QtGlobal>

extern "C" Q_DECL_EXPORT vorna::Sound* makeSound() {
    return new vorna::QtSound;
}
