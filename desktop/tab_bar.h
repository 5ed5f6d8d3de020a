// The strip of tabs: an icon and a word each, the one in front underlined in the accent. It shows
// one tab strip of a view model.
#pragma once

#include "core/window.h"

#include <QString>
#include <QTabBar>

#include <vector>

namespace vorna {

class Binder;

class TabBar final : public QTabBar {
public:
    // `icons` by the tab's index.
    TabBar(Binder& binder, TabStrip& strip, std::vector<QString> icons);

    // Below this width of its window, in pixels of the 15 px body text, the tabs have no icons.
    void setWithIcons(bool withIcons);

protected:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] QSize tabSizeHint(int index) const override;

private:
    void showStrip();

    TabStrip& strip_;
    std::vector<QString> icons_;
    bool withIcons_ = true;
};

} // namespace vorna
