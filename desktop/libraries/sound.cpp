#include "desktop/libraries/makers.h"
#include "desktop/libraries/qt_sound.h"

vorna::Sound* makeSound() {
    return new vorna::QtSound;
}
