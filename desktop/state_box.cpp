#include "desktop/state_box.h"

#include "desktop/binder.h"
#include "desktop/card.h"
#include "desktop/icons.h"
#include "desktop/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

namespace vorna {
namespace {

struct StateLook {
    QColor ground;
    QColor ink;
    const char* icon;
};

StateLook lookOf(BackColour state) {
    const Theme& t = theme();
    switch (state) {
    case BackColour::Yellow:
        return {t.warnSoft, t.warn, "pulse"};
    case BackColour::Red:
        return {t.dangerSoft, t.danger, "alert"};
    case BackColour::Green:
        return {t.soft, t.softInk, "check"};
    case BackColour::Magenta:
        return {t.violetSoft, t.violet, "info"};
    case BackColour::Plain:
    case BackColour::White:
        break;
    }
    return {t.raised, t.ink, "info"};
}

} // namespace

StateBox::StateBox(Binder& binder, TextBox& box)
    : box_(box), sign_(new QLabel), words_(wrappingLabel()) {
    auto* const line = row(10);
    line->setContentsMargins(px(12), px(10), px(12), px(10));
    setLayout(line);
    line->addWidget(sign_, 0, Qt::AlignTop);
    line->addWidget(words_, 1, Qt::AlignTop);
    setMinimumHeight(px(92));
    binder.bind(static_cast<Control&>(box), *this);
    binder.onChange(box, [this] { showState(); });
}

void StateBox::showState() {
    const StateLook look = lookOf(box_.backColour);
    sign_->setPixmap(icon(look.icon, look.ink).pixmap(px(20)));
    words_->setText(qt(box_.text));
    QPalette palette = words_->palette();
    palette.setColor(QPalette::WindowText, look.ink);
    words_->setPalette(palette);
    setAccessibleName(qt(box_.text));
    update();
}

void StateBox::paintEvent(QPaintEvent*) {
    constexpr double radius = 6;
    const StateLook look = lookOf(box_.backColour);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(box_.backColour == BackColour::Plain ? theme().line : look.ink);
    painter.setBrush(look.ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

} // namespace vorna
