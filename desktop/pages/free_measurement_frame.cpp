#include "desktop/pages/free_measurement_frame.h"

#include "desktop/card.h"
#include "desktop/fitted_label.h"
#include "desktop/icons.h"
#include "desktop/scale_bar.h"
#include "desktop/theme.h"
#include "desktop/windows/window_parts.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace vorna {
namespace {

constexpr double freeValueType = 190;
constexpr double freePercentType = 72;

// The button's caption is what it does next; while the probe is read it is the one that ends it.
QPushButton* startStopButton(const PageParts& parts) {
    Button& action = parts.window.freeMeasurement.action;
    QPushButton* const made = button({});
    made->setMinimumHeight(px(48));
    parts.binder.bind(action, *made);
    parts.binder.onChange(action, [&action, made, stops = parts.texts.message("t3")] {
        const bool runs = qt(action.caption) == stops;
        setRole(*made, runs ? ButtonRole::Plain : ButtonRole::Primary);
        made->setFont(sizedFont(16, !runs));
        made->setIcon(icon(runs ? "stop" : "play", runs ? theme().ink2 : theme().onAccent));
    });
    return made;
}

QLayout* valueLine(const PageParts& parts) {
    FreeMeasurementTab& tab = parts.window.freeMeasurement;
    QHBoxLayout* const line = row(56);
    auto* const value = new FittedLabel({.largest = freeValueType, .smallest = 40, .bold = true});
    value->setPlaceholder("---");
    value->setAlignment(Qt::AlignRight);
    parts.binder.bind(tab.value, *value);
    line->addWidget(value, 3);
    auto* const percent = new FittedLabel(
        {.largest = freePercentType, .smallest = 24, .bold = true, .ink = theme().ink2});
    percent->setOnLineOf(*value);
    parts.binder.bind(tab.percent, *percent);
    line->addWidget(percent, 2);
    return line;
}

// A label to click, which looks like what it does.
QPushButton* logButton(const PageParts& parts) {
    Label& log = parts.window.freeMeasurement.armLog;
    QPushButton* const made = button("edit", ButtonRole::Quiet);
    parts.binder.bind(static_cast<Control&>(log), *made);
    parts.binder.onChange(log, [&log, made] {
        const QString caption = qt(log.caption);
        made->setText(QString(caption).replace('&', "&&"));
        made->setAccessibleName(caption);
    });
    QObject::connect(made, &QPushButton::clicked, made, [&log] { call(log.clicked); });
    return made;
}

QLayout* logLine(const PageParts& parts) {
    QHBoxLayout* const line = row(12);
    line->addWidget(logButton(parts));
    QLabel* const hint = textLabel(13.5, false, theme().ink2);
    parts.binder.bind(parts.window.freeMeasurement.logHint, *hint);
    line->addWidget(hint, 1);
    return line;
}

} // namespace

QWidget* makeFreeMeasurementFrame(const PageParts& parts) {
    FreeMeasurementTab& tab = parts.window.freeMeasurement;
    auto* const card = new Card("pulse", {});
    QVBoxLayout& body = card->body();
    body.setContentsMargins(px(36), px(28), px(36), px(24));
    body.setSpacing(px(16));
    QLabel& name = card->heading()->label();
    name.setFont(sizedFont(17, true));
    parts.binder.onChange(tab.frame, [&tab, &name] { name.setText(qt(tab.frame.caption)); });
    card->heading()->layout()->addWidget(startStopButton(parts));
    body.addLayout(valueLine(parts), 1);
    auto* const bar = new ScaleBar(30, 15);
    parts.binder.bind(tab.bar, *bar);
    parts.binder.onChange(tab.frame,
                          [&tab, bar] { bar->setAccessibleName(qt(tab.frame.caption)); });
    body.addWidget(bar);
    auto* const line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setForegroundRole(QPalette::Mid);
    body.addWidget(line);
    body.addLayout(logLine(parts));
    return card;
}

} // namespace vorna
