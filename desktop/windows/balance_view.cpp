#include "desktop/binder.h"
#include "desktop/card.h"
#include "desktop/chart_view.h"
#include "desktop/theme.h"
#include "desktop/windows/cross_diagram.h"
#include "desktop/windows/views.h"
#include "desktop/windows/window_parts.h"
#include "evaluation/balance_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QVBoxLayout>

namespace vorna {
namespace {

Card* crossCard(Binder& binder, BalanceWindow& window) {
    auto* const card = new Card;
    card->body().setContentsMargins(px(10), px(10), px(10), px(10));
    auto* const cross = new CrossDiagram;
    binder.bind(static_cast<Control&>(window.cross), *cross);
    const auto name = [&window, cross] {
        cross->setEnds({.left = qt(window.crossLeft.caption),
                        .right = qt(window.crossRight.caption),
                        .top = qt(window.crossTop.caption),
                        .bottom = qt(window.crossBottom.caption)});
    };
    for (Label* const end :
         {&window.crossLeft, &window.crossRight, &window.crossTop, &window.crossBottom})
        binder.onChange(*end, name);
    // The lines say in words where the marker stands.
    const auto place = [&window, cross] {
        cross->setMarker(window.marker);
        cross->setAccessibleName(qt(window.title.caption));
        cross->setAccessibleDescription(qt(window.leftRight.caption) + ", " +
                                        qt(window.handsFeet.caption));
    };
    for (Label* const line : {&window.leftRight, &window.handsFeet})
        binder.onChange(*line, place);
    card->body().addWidget(cross);
    return card;
}

// A figure that is read from afar, with its name above.
Card* figureCard(Binder& binder, Label& name, TextBox& figure) {
    auto* const card = new Card;
    QVBoxLayout& lines = card->body();
    lines.setSpacing(0);
    lines.setContentsMargins(px(16), px(10), px(16), px(10));
    QLabel* const above = textLabel(14, false, theme().ink2);
    QLabel* const value = textLabel(36, true, theme().ink);
    binder.bind(static_cast<Control&>(name), *above);
    binder.bind(static_cast<Control&>(figure), *value);
    const auto show = [&name, &figure, above, value] {
        above->setText(qt(name.caption).remove(':'));
        value->setText(qt(figure.text).replace(' ', QChar::Nbsp));
        value->setAccessibleName(above->text() + ' ' + qt(figure.text));
    };
    binder.onChange(name, show);
    binder.onChange(figure, show);
    lines.addWidget(above);
    lines.addStretch(1);
    lines.addWidget(value);
    return card;
}

// One balance line; its percent, which ends it, in bold.
QWidget* balanceRow(Binder& binder, const QString& iconName, Label& line) {
    auto* const whole = new QWidget;
    whole->setMinimumHeight(px(46));
    auto* const parts = row(14);
    whole->setLayout(parts);
    parts->addWidget(signLabel(iconName, theme().accent, 26));
    QLabel* const text = textLabel(18, false, theme().ink);
    text->setTextFormat(Qt::RichText);
    binder.bind(static_cast<Control&>(line), *text);
    binder.onChange(line, [&line, text] {
        const QRegularExpression percent("(\\d+) %$");
        QString shown = qt(line.caption).toHtmlEscaped();
        text->setText(shown.replace(percent, "<b>\\1&nbsp;%</b>"));
        text->setAccessibleName(qt(line.caption));
    });
    parts->addWidget(text, 1);
    return whole;
}

Card* linesCard(Binder& binder, BalanceWindow& window) {
    auto* const card = new Card;
    QVBoxLayout& lines = card->body();
    lines.setSpacing(0);
    lines.setContentsMargins(px(18), px(4), px(18), px(4));
    const auto rule = [&lines] {
        auto* const line = new QFrame;
        line->setFrameShape(QFrame::HLine);
        line->setForegroundRole(QPalette::Mid);
        lines.addWidget(line);
    };
    lines.addWidget(balanceRow(binder, "lr", window.leftRight));
    rule();
    lines.addWidget(balanceRow(binder, "differ", window.handsFeet));
    rule();
    lines.addWidget(balanceRow(binder, "taiji", window.yinYang));
    return card;
}

QWidget* figureColumn(Binder& binder, BalanceWindow& window) {
    auto* const whole = new QWidget;
    QVBoxLayout* const lines = column(12);
    whole->setLayout(lines);
    auto* const figures = row(12);
    figures->addWidget(figureCard(binder, window.energyHeading, window.energyLevel), 1);
    figures->addWidget(figureCard(binder, window.balanceHeading, window.balancePercent), 1);
    lines->addLayout(figures);
    lines->addWidget(linesCard(binder, window));
    auto* const pie = new ChartView;
    pie->setSizeWanted({px(300), px(130)}); // grows with the room
    binder.bind(window.quadrants, *pie);
    lines->addWidget(pie, 1);
    return whole;
}

} // namespace

std::unique_ptr<WindowView> makeBalanceView(const Session&, BalanceWindow& window) {
    auto view = std::make_unique<WindowView>(window);
    Binder& binder = view->binder();
    QVBoxLayout* const lines = windowColumn(*view);
    lines->addWidget(titleBlock(binder, window.title, window.subtitle));
    auto* const halves = row(16);
    halves->addWidget(crossCard(binder, window), 57);
    halves->addWidget(scrollingColumn(figureColumn(binder, window)), 43);
    lines->addLayout(halves, 1);
    auto* const foot = new WindowFoot;
    foot->addRight(boundButton(binder, window.back, "back", ButtonRole::Primary));
    lines->addWidget(foot);
    view->setFirstSize(1100, 720);
    return view;
}

} // namespace vorna
