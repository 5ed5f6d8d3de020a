// The emblems of the main window: the flags of the languages and the signs of the two modes. They
// are three times as large as they are shown, for dense screens, on a transparent ground.
#pragma once

#include <QImage>

namespace vorna {

// The flag of language 1 to 4: Czech, English, German, Russian.
QImage flagEmblem(int language);

// The sign of yin and yang.
QImage tcmEmblem();

// A pathway that a stroke follows.
QImage apmEmblem();

} // namespace vorna
