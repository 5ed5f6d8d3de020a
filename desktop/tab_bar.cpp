#include "desktop/tab_bar.h"

#include "desktop/binder.h"
#include "desktop/icons.h"
#include "desktop/theme.h"

#include <QPainter>
#include <QSignalBlocker>

#include <utility>

namespace vorna {
namespace {

constexpr int sideRoom = 18;
constexpr int iconSide = 20;
constexpr int iconGap = 9;
constexpr int stripHeight = 56;

} // namespace

TabBar::TabBar(Binder& binder, TabStrip& strip, std::vector<QString> icons)
    : strip_(strip), icons_(std::move(icons)) {
    setExpanding(false);
    setDrawBase(false);
    setUsesScrollButtons(true);
    setElideMode(Qt::ElideRight);
    setFont(sizedFont(16));
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    for (std::size_t i = 0; i < strip.tabs().size(); ++i)
        addTab({});
    binder.bind(static_cast<Control&>(strip), *this);
    binder.onChange(strip, [this] { showStrip(); });
    connect(this, &QTabBar::currentChanged, this, [this](int tab) {
        if (tab >= 0)
            strip_.select(static_cast<std::size_t>(tab));
    });
}

void TabBar::showStrip() {
    const QSignalBlocker quiet(this);
    for (int i = 0; i < count(); ++i) {
        const Tab& tab = strip_.tabs()[static_cast<std::size_t>(i)];
        const QString caption = qt(tab.caption);
        if (tabText(i) != caption) {
            setTabText(i, caption);
            setAccessibleTabName(i, caption);
        }
        setTabVisible(i, tab.visible);
        setTabEnabled(i, tab.enabled);
    }
    setCurrentIndex(strip_.selected);
    update();
}

void TabBar::setWithIcons(bool withIcons) {
    if (std::exchange(withIcons_, withIcons) == withIcons)
        return;
    setFont(sizedFont(withIcons ? 16 : 15));
    updateGeometry();
    update();
}

QSize TabBar::tabSizeHint(int index) const {
    QFont bold = font();
    bold.setBold(true); // so that nothing moves when a tab comes to the front
    const int icon = withIcons_ ? px(iconSide + iconGap) : 0;
    const int side = withIcons_ ? sideRoom : sideRoom - 6;
    return {QFontMetrics(bold).horizontalAdvance(tabText(index)) + icon + 2 * px(side),
            px(stripHeight)};
}

void TabBar::paintEvent(QPaintEvent*) {
    const Theme& t = theme();
    QPainter painter(this);
    for (int i = 0; i < count(); ++i) {
        if (!isTabVisible(i))
            continue;
        const bool front = i == currentIndex();
        const QRect place = tabRect(i);
        painter.setOpacity(isTabEnabled(i) ? 1 : 0.45);
        QFont shown = font();
        shown.setBold(front);
        painter.setFont(shown);
        QRect room = place.adjusted(px(withIcons_ ? sideRoom : sideRoom - 6), 0, 0, 0);
        if (withIcons_ && static_cast<std::size_t>(i) < icons_.size()) {
            const int side = px(iconSide);
            painter.drawPixmap(room.left(), room.center().y() - side / 2,
                               iconPixmap(icons_[static_cast<std::size_t>(i)],
                                          front ? t.accent : t.ink2, side, devicePixelRatioF()));
            room.setLeft(room.left() + side + px(iconGap));
        }
        painter.setPen(front ? t.ink : t.ink2);
        painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft, tabText(i));
        if (front)
            painter.fillRect(QRect(place.left() + px(10), place.bottom() - px(4) + 1,
                                   place.width() - 2 * px(10), px(4)),
                             t.accent);
        if (front && hasFocus()) {
            painter.setPen(QPen(t.accent, 2));
            painter.drawRoundedRect(place.adjusted(px(6), px(8), -px(6), -px(10)), 6, 6);
        }
    }
}

} // namespace vorna
