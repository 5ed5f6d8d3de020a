#include "desktop/wizard/run_panel.h"

#include "acquisition/guided_run.h"
#include "desktop/binder.h"
#include "desktop/card.h"
#include "desktop/scale_bar.h"
#include "desktop/theme.h"
#include "desktop/windows/window_parts.h"
#include "desktop/wizard/contact_ring.h"
#include "desktop/wizard/reading_curve.h"
#include "desktop/wizard/state_strip.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace vorna {
namespace {

constexpr double readingsHeight = 118;
constexpr double lowReadingsHeight = 64;
constexpr double mostReadingsHeight = 280;

ContactRing* boundRing(Binder& binder, RunControls& run) {
    auto* const ring = new ContactRing;
    binder.bind(static_cast<Control&>(run.progress), *ring);
    const auto show = [&run, ring] {
        const PointBox* const box = run.boxes.at(run.progress.currentBox);
        ring->setValue(box == nullptr ? QString() : qt(box->text));
        ring->setShare(run.progress.heldShare());
    };
    binder.onChange(run.progress, show);
    binder.onChange(run.liveValueLabel,
                    [&run, ring] { ring->setAccessibleName(qt(run.liveValueLabel.caption)); });
    for (const auto& box : run.boxes.members)
        binder.onChange(*box, show);
    return ring;
}

} // namespace

RunPanel::RunPanel(Binder& binder, RunControls& run) : run_(run) {
    QVBoxLayout* const lines = column(12);
    setLayout(lines);
    lines->addWidget(makeValueCard(binder));
    readings_ = makeReadings(binder);
    lines->addWidget(readings_, 1);
    lines->addStretch();
    lines->addWidget(makeFoot(binder));
}

QWidget* RunPanel::makeValueCard(Binder& binder) {
    auto* const card = new Card;
    card->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    QVBoxLayout& body = card->body();
    body.setContentsMargins(px(14), px(14), px(14), px(14));
    body.setSpacing(px(12));
    body.addWidget(boundRing(binder, run_), 1);
    body.addWidget(new StateStrip(binder, run_));
    auto* const bar = new ScaleBar(18, 13);
    binder.bind(run_.bar, *bar);
    binder.onChange(run_.liveValueLabel,
                    [this, bar] { bar->setAccessibleName(qt(run_.liveValueLabel.caption)); });
    body.addWidget(bar);
    QHBoxLayout* const live = row(12);
    auto* const name = new FittedLabel({.largest = 14, .smallest = 11, .ink = theme().ink2});
    binder.bind(run_.liveValueLabel, *name);
    live->addWidget(name);
    auto* const value = new FittedLabel({.largest = 20, .smallest = 12, .bold = true});
    value->setAlignment(Qt::AlignRight);
    binder.bind(run_.liveValue, *value);
    live->addWidget(value, 1);
    body.addLayout(live);
    return card;
}

QWidget* RunPanel::makeReadings(Binder& binder) {
    auto* const card = new Card;
    card->setMinimumHeight(px(readingsHeight));
    card->setMaximumHeight(px(mostReadingsHeight));
    card->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    card->body().setContentsMargins(px(14), px(10), px(14), px(12));
    card->body().setSpacing(px(6));
    auto* const heading = new FittedLabel({.largest = 14, .smallest = 11, .bold = true});
    binder.bind(run_.readingsLabel, *heading);
    card->body().addWidget(heading);
    QHBoxLayout* const line = row(10);
    auto* const curve = curve_ = new ReadingCurve;
    auto* const figures = new ReadingFigures;
    binder.bind(static_cast<Control&>(run_.readings), *figures);
    binder.onChange(run_.readingsLabel, [this, curve, figures] {
        curve->setAccessibleName(qt(run_.readingsLabel.caption));
        figures->setAccessibleName(qt(run_.readingsLabel.caption));
    });
    binder.onChange(run_.readings, [this, curve, figures] {
        QStringList texts;
        std::vector<double> numbers;
        for (const ListRow& reading : run_.readings.rows()) {
            texts.append(qt(reading.text));
            numbers.push_back(texts.last().toDouble());
        }
        figures->setReadings(texts);
        curve->setReadings(std::move(numbers), run_.progress.contactNeeded + 1);
    });
    line->addWidget(curve, 1);
    line->addWidget(figures);
    card->body().addLayout(line, 1);
    return card;
}

QWidget* RunPanel::makeFoot(Binder& binder) {
    auto* const foot = new QWidget;
    QHBoxLayout* const line = row(10);
    foot->setLayout(line);
    QLabel* const skip = textLabel(13.5, false, theme().ink2);
    binder.bind(run_.skipHint, *skip);
    line->addWidget(skip, 1);
    line->addWidget(boundButton(binder, run_.preparePoint, "load"));
    return foot;
}

void RunPanel::setLow(bool low) {
    curve_->setVisible(!low);
    readings_->setMinimumHeight(px(low ? lowReadingsHeight : readingsHeight));
}

} // namespace vorna
