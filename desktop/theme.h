// The look of the program: the colours of its two themes, the sizes of its types, and their
// handing over to Qt.
#pragma once

#include <QColor>
#include <QFont>

#include <array>
#include <cstdint>

class QApplication;

namespace vorna {

// Every colour by its role. Text on its ground has a contrast of at least 4.7 to 1.
struct Theme {
    QColor ground;  // of windows
    QColor surface; // of cards, tables, fields
    QColor raised;  // of the tab strip and of headers
    QColor line;    // hairlines
    QColor edge;    // outlines of fields and buttons
    QColor ink;
    QColor ink2; // second text
    QColor accent;
    QColor accentPressed;
    QColor onAccent;
    QColor soft; // selected row
    QColor softInk;
    QColor danger;
    QColor dangerSoft;
    QColor warn;
    QColor warnSoft;
    QColor violetSoft; // the fourth tint of the calibration's states
    QColor violet;
    QColor contact; // the probe touches
    QColor contactInk;
    QColor done; // a finished box
    QColor waitA;
    QColor waitB;
    QColor waitInk;
    // Wood, fire, earth, metal, water, as in the charts.
    std::array<QColor, 5> elements{0x17AB0CU, 0xFF2929U, 0xFFFF00U, 0x0001FCU, 0x000000U};
    QColor paper; // ground of charts and drawings in both themes
    QColor paperLine;
};

enum class ThemeChoice : std::uint8_t { FollowDesktop, Light, Dark };

// Gives the application its style, palette and font. Once, before the first window.
void applyTheme(QApplication& application, ThemeChoice choice);

// The theme that was applied; the light one before.
const Theme& theme();

// A length or type size that is meant for a body text of 15 pixels, in the user's own size.
int px(double at15);

// Shows a widget in its place, or hides it. One that is in no layout yet would be shown as a window
// of its own: it comes with its page.
void setShown(QWidget& widget, bool shown);

// The application's font in such a size.
QFont sizedFont(double at15, bool bold = false);

} // namespace vorna
