#include "desktop/wizard/action_bar.h"

#include "acquisition/measurement_wizard.h"
#include "desktop/binder.h"
#include "desktop/card.h"
#include "desktop/flow_layout.h"
#include "desktop/icons.h"
#include "desktop/theme.h"
#include "desktop/windows/window_parts.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>

#include <algorithm>

namespace vorna {
namespace {

constexpr double barGap = 10;
constexpr double barMargin = 14;
constexpr double foldedMargin = 9;
constexpr double chooserWidth = 212;
constexpr double chooserFrame = 60; // round its text
constexpr double startIndexWidth = 50;

// The one action that leads is filled.
void setLeading(QPushButton& button, const QString& iconName, bool leads) {
    const ButtonRole role = leads ? ButtonRole::Primary : ButtonRole::Plain;
    if (roleOf(&button) == role && !button.icon().isNull())
        return;
    setRole(button, role);
    button.setFont(sizedFont(15, leads));
    button.setIcon(icon(iconName, leads ? theme().onAccent : theme().ink2));
    button.update();
}

QWidget* startIndexField(Binder& binder, MeasurementWizard& wizard) {
    auto* const whole = new QWidget;
    QHBoxLayout* const line = row(9);
    whole->setLayout(line);
    auto* const label = new QLabel;
    label->setFont(sizedFont(14));
    binder.bind(wizard.run.startIndexLabel, *label);
    auto* const index = new QLineEdit;
    index->setFixedWidth(px(startIndexWidth));
    index->setAlignment(Qt::AlignCenter);
    label->setBuddy(index);
    binder.bind(wizard.run.startIndex, *index);
    binder.onChange(wizard.run.startIndexLabel, [&wizard, index] {
        index->setAccessibleName(qt(wizard.run.startIndexLabel.caption));
    });
    line->addWidget(label);
    line->addWidget(index);
    return whole;
}

} // namespace

ActionBar::ActionBar(Binder& binder, MeasurementWizard& wizard)
    : wizard_(wizard), line_(row(barGap)) {
    line_->setContentsMargins(px(18), px(barMargin), px(18), px(barMargin));
    setLayout(line_);
    left_ = makeSetGroup(binder);
    right_ = makeActions(binder);
    line_->addWidget(left_);
    line_->addStretch(1);
    line_->addWidget(right_);
    const auto show = [this] { showLeading(); };
    binder.onChange(wizard.run.start, show);
    binder.onChange(wizard.run.stop, show);
    binder.onChange(wizard.run.progress, show);
    for (const auto& box : wizard.run.boxes.members)
        binder.onChange(*box, show);
}

QWidget* ActionBar::makeSetGroup(Binder& binder) {
    auto* const whole = new QWidget;
    auto* const line = new FlowLayout(px(barGap));
    whole->setLayout(line);
    auto* const chooser = new QComboBox;
    chooser->setFont(sizedFont(16, true));
    binder.bind(wizard_.setChooser, *chooser);
    binder.onChange(wizard_.setChooser, [this, chooser] {
        int widest = 0;
        for (const std::string& set : wizard_.setChooser.rows.get())
            widest = std::max(widest, chooser->fontMetrics().horizontalAdvance(qt(set)));
        chooser->setFixedWidth(std::max(px(chooserWidth), widest + px(chooserFrame)));
    });
    binder.onChange(wizard_.boxFrame,
                    [this, chooser] { chooser->setAccessibleName(qt(wizard_.boxFrame.caption)); });
    line->addWidget(chooser);
    line->addWidget(boundButton(binder, wizard_.loadSet, "load"));
    line->addWidget(startIndexField(binder, wizard_));
    return whole;
}

QWidget* ActionBar::makeActions(Binder& binder) {
    auto* const whole = new QWidget;
    auto* const line = new FlowLayout(px(barGap));
    whole->setLayout(line);
    start_ = boundButton(binder, wizard_.run.start, {});
    save_ = boundButton(binder, wizard_.save, {});
    line->addWidget(start_);
    line->addWidget(boundButton(binder, wizard_.run.stop, "stop"));
    line->addWidget(save_);
    return whole;
}

void ActionBar::showLeading() {
    const Button* const leading = wizard_.leadingAction();
    setLeading(*start_, "play", leading == &wizard_.run.start);
    setLeading(*save_, "save", leading == &wizard_.save);
}

QSize ActionBar::minimumSizeHint() const {
    const QMargins margins = line_->contentsMargins();
    return {std::max(left_->minimumSizeHint().width(), right_->minimumSizeHint().width()) +
                margins.left() + margins.right(),
            px(68)};
}

void ActionBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), theme().raised);
    painter.fillRect(QRect(0, height() - 1, width(), 1), theme().line);
}

void ActionBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const QMargins margins = line_->contentsMargins();
    const int wanted = left_->sizeHint().width() + px(barGap) + right_->sizeHint().width() +
                       margins.left() + margins.right();
    const bool folds = wanted > width();
    line_->setDirection(folds ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    const int around = px(folds ? foldedMargin : barMargin);
    line_->setContentsMargins(margins.left(), around, margins.right(), around);
}

} // namespace vorna
