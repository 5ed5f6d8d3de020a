#include "desktop/libraries/makers.h"

const char* vornaVersion() {
    return VORNA_VERSION;
}
