#include "desktop/theme.h"

#include "desktop/style.h"

#include <QApplication>
#include <QPalette>
#include <QScreen>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace vorna {
namespace {

constexpr double bodyPixels = 15;
constexpr const char* darkProperty = "vornaDark";

const Theme& lightTheme() {
    static const Theme theme{.ground = 0xF3F1EC,
                             .surface = 0xFFFFFF,
                             .raised = 0xFAF8F4,
                             .line = 0xDDD8CD,
                             .edge = 0x87857D,
                             .ink = 0x1D2426,
                             .ink2 = 0x535D5C,
                             .accent = 0x17655A,
                             .accentPressed = 0x104C43,
                             .onAccent = 0xFFFFFF,
                             .soft = 0xDDEBE6,
                             .softInk = 0x10443B,
                             .danger = 0xA3261B,
                             .dangerSoft = 0xF9E7E3,
                             .warn = 0x745000,
                             .warnSoft = 0xFBF0D3,
                             .violetSoft = 0xEEE4F3,
                             .violet = 0x5B2C72,
                             .contact = 0xFFE169,
                             .contactInk = 0x2B2400,
                             .done = 0xFFF3C2,
                             .waitA = 0xF3C1B9,
                             .waitB = 0xB9DEC2,
                             .waitInk = 0x1D2426,
                             .paper = 0xFFFFFF,
                             .paperLine = 0xDDD8CD};
    return theme;
}

const Theme& darkTheme() {
    static const Theme theme{.ground = 0x16191B,
                             .surface = 0x1E2325,
                             .raised = 0x252B2D,
                             .line = 0x363E40,
                             .edge = 0x7F8A88,
                             .ink = 0xE9E6DF,
                             .ink2 = 0xABB4B1,
                             .accent = 0x63C2AA,
                             .accentPressed = 0x85D6C1,
                             .onAccent = 0x08201A,
                             .soft = 0x22403A,
                             .softInk = 0xD2F0E7,
                             .danger = 0xFF9E90,
                             .dangerSoft = 0x43241F,
                             .warn = 0xF0C560,
                             .warnSoft = 0x3D3215,
                             .violetSoft = 0x3A2B45,
                             .violet = 0xDDB8F0,
                             .contact = 0xE8C94A,
                             .contactInk = 0x221C00,
                             .done = 0x4A4220,
                             .waitA = 0x7C3A32,
                             .waitB = 0x2F5E40,
                             .waitInk = 0xFFFFFF,
                             .paper = 0xE9E6DF,
                             .paperLine = 0xC9C5BB};
    return theme;
}

QColor faded(QColor colour) {
    colour.setAlphaF(0.5F);
    return colour;
}

// In pixels, without a look at the installed fonts.
int sizeOf(const QFont& font) {
    constexpr double pointsPerInch = 72;
    if (font.pixelSize() > 0)
        return font.pixelSize();
    const QScreen* const screen = QGuiApplication::primaryScreen();
    return screen == nullptr
               ? 0
               : static_cast<int>(std::lround(font.pointSizeF() * screen->logicalDotsPerInchY() /
                                              pointsPerInch));
}

QPalette paletteOf(const Theme& theme) {
    QPalette palette;
    palette.setColor(QPalette::Window, theme.ground);
    palette.setColor(QPalette::WindowText, theme.ink);
    palette.setColor(QPalette::Base, theme.surface);
    palette.setColor(QPalette::AlternateBase, theme.raised);
    palette.setColor(QPalette::Text, theme.ink);
    palette.setColor(QPalette::PlaceholderText, theme.ink2);
    palette.setColor(QPalette::Button, theme.surface);
    palette.setColor(QPalette::ButtonText, theme.ink);
    palette.setColor(QPalette::BrightText, theme.danger);
    palette.setColor(QPalette::Highlight, theme.accent);
    palette.setColor(QPalette::HighlightedText, theme.onAccent);
    palette.setColor(QPalette::ToolTipBase, theme.raised);
    palette.setColor(QPalette::ToolTipText, theme.ink);
    palette.setColor(QPalette::Link, theme.accent);
    palette.setColor(QPalette::Light, theme.raised);
    palette.setColor(QPalette::Midlight, theme.line);
    palette.setColor(QPalette::Mid, theme.line);
    palette.setColor(QPalette::Dark, theme.edge);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faded(theme.ink2));
    return palette;
}

} // namespace

const Theme& theme() {
    const bool dark = qApp != nullptr && qApp->property(darkProperty).toBool();
    return dark ? darkTheme() : lightTheme();
}

void applyTheme(QApplication& application, ThemeChoice choice) {
    constexpr int middleGrey = 128;
    const bool dark = choice == ThemeChoice::FollowDesktop
                          ? application.palette().color(QPalette::Window).lightness() < middleGrey
                          : choice == ThemeChoice::Dark;
    application.setProperty(darkProperty, dark);
    QFont font = application.font();
    // Where the desktop names the generic family only, it is the one whose figures are all of one
    // width. Named, it is also found at once; the generic name is searched for in each size.
    if (font.families() == QStringList("Sans Serif"))
        font.setFamily("Noto Sans");
    // The window is read at arm's length: the user's own size counts from 15 pixels on.
    font.setPixelSize(std::max(static_cast<int>(bodyPixels), sizeOf(font)));
    application.setStyle(new VornaStyle);
    application.setPalette(paletteOf(theme()));
    application.setFont(font);
}

int px(double at15) {
    const int body = qApp != nullptr ? sizeOf(qApp->font()) : 0;
    return static_cast<int>(std::lround(at15 * std::max(body, 1) / bodyPixels));
}

void setShown(QWidget& widget, bool shown) {
    if (!shown || widget.parentWidget() != nullptr)
        widget.setVisible(shown);
}

QFont sizedFont(double at15, bool bold) {
    QFont font = qApp->font();
    font.setPixelSize(std::max(1, px(at15)));
    font.setBold(bold);
    return font;
}

} // namespace vorna
