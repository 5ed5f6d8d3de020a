// The texts that Qt itself brings: the buttons of message boxes, file choosers, context menus.
#pragma once

#include <QTranslator>

#include <memory>

namespace vorna {

// While it lives, they are in a language of the program, 1 to 4. English where Qt's translations
// are not installed.
std::unique_ptr<QTranslator> textsOfQt(int language);

} // namespace vorna
