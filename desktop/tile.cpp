#include "desktop/tile.h"

#include "desktop/fitted_label.h"
#include "desktop/theme.h"

#include <QPainter>
#include <QStyle>
#include <QSvgRenderer>
#include <QTextLayout>

#include <algorithm>

namespace vorna {
namespace {

constexpr double tileRadius = 8;

void drawTile(QPainter& painter, const QAbstractButton& button) {
    const Theme& t = theme();
    painter.setRenderHint(QPainter::Antialiasing);
    if (!button.isEnabled())
        painter.setOpacity(0.5);
    const bool hot = button.underMouse() && button.isEnabled();
    painter.setPen(button.hasFocus() ? QPen(t.accent, 2) : QPen(t.edge, 1));
    painter.setBrush(button.isDown() ? t.soft : hot ? t.raised : t.surface);
    painter.drawRoundedRect(QRectF(button.rect()).adjusted(1, 1, -1, -1), tileRadius, tileRadius);
}

// Sets the largest type in which a name, broken between its words, has room; false when none is
// small enough.
bool setFittingType(QPainter& painter, const QRect& room, const QString& name) {
    constexpr double largest = 12.5;
    constexpr double smallest = 7.5;
    for (double size = largest; size >= smallest; size -= 0.5) {
        painter.setFont(sizedFont(size, true));
        const QRect taken = painter.fontMetrics().boundingRect(room, Qt::TextWordWrap, name);
        if (taken.width() <= room.width() && taken.height() <= room.height())
            return true;
    }
    return false;
}

} // namespace

KindButton::KindButton(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize KindButton::sizeHint() const {
    return {px(210), px(72)};
}

QSize KindButton::minimumSizeHint() const {
    return {px(76), px(48)};
}

void KindButton::paintEvent(QPaintEvent*) {
    const Theme& t = theme();
    QPainter painter(this);
    drawTile(painter, *this);
    const bool underline = style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, this) != 0;
    const int letterKey = underline ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    // In a narrow window the letter stands above its word.
    const bool small = width() < px(150);
    const int side = px(small ? 28 : 42);
    const int gap = px(small ? 6 : 14);
    const QRect circle(small ? (width() - side) / 2 : gap, small ? gap : (height() - side) / 2,
                       side, side);
    painter.setPen(Qt::NoPen);
    painter.setBrush(t.soft);
    painter.drawEllipse(circle);
    painter.setPen(t.softInk);
    painter.setFont(sizedFont(small ? 15 : 21, true));
    painter.drawText(circle, Qt::AlignCenter | letterKey, text().section('-', 0, 0));
    painter.setPen(t.ink);
    const int edge = px(4);
    const QRect room =
        small ? QRect(edge, circle.bottom(), width() - 2 * edge, height() - circle.bottom() - edge)
              : QRect(2 * gap + side, 0, width() - 2 * gap - side - edge, height());
    const QString word = text().section('-', 1);
    const FittedType type{.largest = small ? 14.0 : 17.0, .smallest = 8, .bold = true};
    painter.setFont(sizedFont(fittingTypeSize(QString(word).remove('&'), type, room.size()), true));
    const auto place = small ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter;
    painter.drawText(room, static_cast<int>(place) | letterKey, word);
}

ChartTile::ChartTile(const QString& drawing, QWidget* parent)
    : QAbstractButton(parent), drawing_(drawing) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ChartTile::setLow(bool low) {
    low_ = low;
    updateGeometry();
    update();
}

void ChartTile::setName(const QString& name) {
    name_ = name;
    setAccessibleName(name);
    setToolTip(name);
    update();
}

QSize ChartTile::sizeHint() const {
    return low_ ? QSize(px(140), px(46)) : QSize(px(120), px(122));
}

QSize ChartTile::minimumSizeHint() const {
    return {px(84), sizeHint().height()};
}

void ChartTile::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawTile(painter, *this);
    const int edge = px(6);
    const QSize sheet = low_ ? QSize(px(30), px(26)) : QSize(px(86), px(52));
    const QRect paper(low_ ? edge : (width() - sheet.width()) / 2,
                      low_ ? (height() - sheet.height()) / 2 : px(9), sheet.width(),
                      sheet.height());
    const QRect whole(edge, 2, width() - 2 * edge, height() - 4);
    const QRect beside = whole.adjusted(paper.right(), 0, 0, 0);
    const QRect below = whole.adjusted(0, paper.bottom() + px(2), 0, -px(4));
    const bool fits = setFittingType(painter, low_ ? beside : below, name_);
    // In a tile that is too small for both, the name stands alone.
    const bool alone = low_ && !fits;
    if (alone)
        setFittingType(painter, whole, name_);
    else
        drawSheet(painter, paper);
    painter.setPen(theme().ink);
    const QRect room = alone ? whole : low_ ? beside : below;
    const auto place = low_ && !alone ? Qt::AlignVCenter | Qt::AlignLeft : Qt::AlignCenter;
    painter.drawText(room, static_cast<int>(place) | Qt::TextWordWrap, name_);
}

void ChartTile::drawSheet(QPainter& painter, const QRect& paper) const {
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme().paper);
    painter.drawRoundedRect(paper, 5, 5);
    QSvgRenderer drawing(":/icons/" + drawing_ + ".svg");
    drawing.setAspectRatioMode(Qt::KeepAspectRatio);
    drawing.render(&painter, QRectF(paper).adjusted(3, 2, -3, -2));
}

} // namespace vorna
