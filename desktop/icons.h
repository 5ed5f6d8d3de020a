// The program's own line icons by name, in any colour and size, and its small drawings.
#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>

namespace vorna {

// An icon in a colour; half as strong where it is disabled. An unknown name gives an empty one.
QIcon icon(const QString& name, const QColor& colour);
// In the second text's colour.
QIcon icon(const QString& name);
// A drawing that has colours of its own.
QIcon drawnIcon(const QString& name);

// One drawing of an icon with a side of `size` logical pixels.
QPixmap iconPixmap(const QString& name, const QColor& colour, int size, double pixelRatio);

} // namespace vorna
