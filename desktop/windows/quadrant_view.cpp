#include "desktop/binder.h"
#include "desktop/chart_view.h"
#include "desktop/theme.h"
#include "desktop/windows/views.h"
#include "desktop/windows/window_parts.h"
#include "evaluation/quadrant_window.h"

#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace vorna {

std::unique_ptr<WindowView> makeQuadrantView(const Session&, QuadrantWindow& window) {
    auto view = std::make_unique<WindowView>(window);
    Binder& binder = view->binder();
    QVBoxLayout* const lines = windowColumn(*view);
    lines->addWidget(titleBlock(binder, window.title, window.subtitle));
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(px(16));
    grid->setVerticalSpacing(px(14));
    const auto add = [&](ChartControl& control, int line, int place, int linesTaken = 1) {
        auto* const pie = new ChartView;
        pie->setSizeWanted({px(386), px(298)});
        binder.bind(control, *pie);
        grid->addWidget(pie, line, place, linesTaken, 1);
    };
    // The corners stand as in the pie in the middle.
    add(window.leftYang, 0, 0);
    add(window.quadrants, 0, 1, 2);
    add(window.rightYang, 0, 2);
    add(window.leftYin, 1, 0);
    add(window.rightYin, 1, 2);
    grid->setColumnStretch(0, 32);
    grid->setColumnStretch(1, 36);
    grid->setColumnStretch(2, 32);
    grid->setRowStretch(0, 1);
    grid->setRowStretch(1, 1);
    lines->addLayout(grid, 1);
    auto* const foot = new WindowFoot;
    foot->addLeft(boundButton(binder, window.yinPicture, "moon"));
    foot->addLeft(boundButton(binder, window.yangPicture, "sun"));
    foot->addRight(boundButton(binder, window.back, "back", ButtonRole::Primary));
    lines->addWidget(foot);
    view->setFirstSize(1280, 800);
    return view;
}

} // namespace vorna
