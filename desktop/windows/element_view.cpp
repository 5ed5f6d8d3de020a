#include "desktop/binder.h"
#include "desktop/chart_view.h"
#include "desktop/theme.h"
#include "desktop/windows/views.h"
#include "desktop/windows/window_parts.h"
#include "evaluation/element_window.h"

#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace vorna {

std::unique_ptr<WindowView> makeElementView(const Session&, ElementWindow& window) {
    auto view = std::make_unique<WindowView>(window);
    Binder& binder = view->binder();
    QVBoxLayout* const lines = windowColumn(*view);
    lines->addWidget(titleBlock(binder, window.title, window.subtitle));
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(px(16));
    grid->setVerticalSpacing(px(14));
    const auto add = [&](ChartControl& control, int line, int place, int linesTaken) {
        auto* const pie = new ChartView;
        pie->setSizeWanted({px(580), px(298)});
        binder.bind(control, *pie);
        grid->addWidget(pie, line, place, linesTaken, 1);
    };
    add(window.all, 0, 0, 2);
    add(window.yang, 0, 1, 1);
    add(window.yin, 1, 1, 1);
    grid->setColumnStretch(0, 52);
    grid->setColumnStretch(1, 48);
    grid->setRowStretch(0, 1);
    grid->setRowStretch(1, 1);
    lines->addLayout(grid, 1);
    auto* const foot = new WindowFoot;
    foot->addLeft(boundButton(binder, window.yinPicture, "moon"));
    foot->addLeft(boundButton(binder, window.yangPicture, "sun"));
    foot->addRight(boundButton(binder, window.quadrants, "pie"));
    foot->addRight(boundButton(binder, window.back, "back", ButtonRole::Primary));
    lines->addWidget(foot);
    view->setFirstSize(1280, 800);
    return view;
}

} // namespace vorna
