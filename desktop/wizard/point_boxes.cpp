#include "desktop/wizard/point_boxes.h"

#include "acquisition/measurement_wizard.h"
#include "desktop/binder.h"
#include "desktop/card.h"
#include "desktop/fitted_label.h"
#include "desktop/icons.h"
#include "desktop/theme.h"

#include <QFocusEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>

namespace vorna {
namespace {

constexpr double boxCorner = 6;
constexpr double haloWidth = 2;
constexpr double haloRoom = 4; // round the box, for the halo of the current one
constexpr double currentFrame = 3;
constexpr double valueType = 21;
constexpr double leastValueType = 12;
constexpr double indexType = 11;
constexpr double checkSide = 13;
constexpr int pairCount = 12;
constexpr int leftColumn = 0;
constexpr int nameColumn = 1;
constexpr int rightColumn = 2;

struct BoxLook {
    QColor ground;
    QColor ink;
    QColor second; // of the index and the check mark
    Qt::PenStyle outline = Qt::SolidLine;
    bool done = false;
};

// White, red, green and yellow as they look: nothing yet, the two halves of the waiting, and the
// contact of the current point or a finished one.
BoxLook boxLook(BackColour colour, bool touched) {
    const Theme& t = theme();
    switch (colour) {
    case BackColour::Red:
        return {t.waitA, t.waitInk, t.waitInk};
    case BackColour::Green:
        return {t.waitB, t.waitInk, t.waitInk, Qt::DashLine};
    case BackColour::Yellow:
        if (touched)
            return {t.contact, t.contactInk, t.contactInk};
        return {t.done, t.ink, t.ink2, Qt::SolidLine, true};
    default:
        return {t.surface, t.ink, t.ink2};
    }
}

} // namespace

// ---- One box

PointBoxView::PointBoxView(const PointBox& box, const PointProgress& progress)
    : box_(box), progress_(progress) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    setMaximumHeight(sizeHint().height());
    setCursor(Qt::PointingHandCursor);
}

QSize PointBoxView::sizeHint() const {
    return {px(104), px(50)};
}

QSize PointBoxView::minimumSizeHint() const {
    return {px(56), px(24)};
}

void PointBoxView::paintEvent(QPaintEvent*) {
    const bool current = progress_.currentBox == box_.index();
    const BoxLook look =
        boxLook(box_.backColour, current && progress_.state == PointState::Contact);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    const QRectF box = QRectF(rect()).adjusted(haloRoom, haloRoom, -haloRoom, -haloRoom);
    if (current || keyboardRing_) {
        const double out = haloRoom - haloWidth / 2;
        painter.setPen(QPen(theme().accent, haloWidth));
        painter.drawRoundedRect(box.adjusted(-out, -out, out, out), boxCorner + out,
                                boxCorner + out);
    }
    const double frame = current ? currentFrame : 1;
    painter.setPen(QPen(current ? theme().ink : theme().edge, frame, look.outline));
    painter.setBrush(look.ground);
    const double half = frame / 2;
    painter.drawRoundedRect(box.adjusted(half, half, -half, -half), boxCorner, boxCorner);

    painter.setPen(look.second);
    painter.setFont(sizedFont(indexType));
    const QFontMetrics small = painter.fontMetrics();
    const QString index = QString::number(box_.index());
    painter.drawText(QPointF(box.left() + px(6), box.top() + px(2) + small.ascent()), index);
    const int check = px(checkSide);
    if (look.done)
        painter.drawPixmap(QPointF(box.right() - check - px(4), box.top() + px(4)),
                           iconPixmap("check", look.second, check, devicePixelRatioF()));
    const int edge = std::max(small.horizontalAdvance("00"), check) + px(7);
    const QRectF room = box.adjusted(edge, 1, -edge, -1);
    const QString value = qt(box_.text);
    painter.setPen(look.ink);
    painter.setFont(sizedFont(
        fittingTypeSize(value, {valueType, leastValueType, true}, room.size().toSize()), true));
    painter.drawText(box, Qt::AlignCenter, value);
}

void PointBoxView::focusInEvent(QFocusEvent* event) {
    keyboardRing_ =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    QAbstractButton::focusInEvent(event);
}

void PointBoxView::focusOutEvent(QFocusEvent* event) {
    keyboardRing_ = false;
    QAbstractButton::focusOutEvent(event);
}

// ---- The card

namespace {

// The set's name and how many of the boxes are done.
QWidget* boxHeading(Binder& binder, MeasurementWizard& wizard) {
    auto* const heading = new QWidget;
    QHBoxLayout* const line = row(9);
    heading->setLayout(line);
    auto* const set = new FittedLabel({.largest = 16, .smallest = 12, .bold = true});
    binder.bind(static_cast<Control&>(wizard.boxFrame), *set);
    binder.onChange(wizard.boxFrame, [&wizard, set] { set->setText(qt(wizard.boxFrame.caption)); });
    line->addWidget(set, 1);
    auto* const done = new QLabel;
    done->setFont(sizedFont(15));
    const auto show = [&wizard, done] {
        done->setText(QString("<b>%1</b> / %2")
                          .arg(wizard.run.boxesDone())
                          .arg(wizard.run.boxes.members.size()));
    };
    binder.onChange(wizard.run.progress, show);
    for (const auto& box : wizard.run.boxes.members)
        binder.onChange(*box, show);
    line->addWidget(done);
    return heading;
}

QLabel* sideHeading(Binder& binder, Label& side) {
    auto* const label = new FittedLabel(
        {.largest = 13.5, .smallest = 11, .bold = true, .ink = theme().ink2});
    label->setAlignment(Qt::AlignCenter);
    binder.bind(side, *label);
    return label;
}

PointBoxView* boxView(Binder& binder, MeasurementWizard& wizard, PointBox& box) {
    auto* const view = new PointBoxView(box, wizard.run.progress);
    binder.bind(static_cast<Control&>(box), *view);
    Label* const name = wizard.pairLabels.at((box.index() - 1) % pairCount + 1);
    const auto show = [&box, view, name] {
        view->setAccessibleName(
            QString("%1 %2: %3").arg(box.index()).arg(qt(name->caption), qt(box.text)));
        view->update();
    };
    binder.onChange(box, show);
    binder.onChange(*name, show);
    binder.onChange(wizard.run.progress, [view] { view->update(); });
    QObject::connect(view, &QAbstractButton::clicked, view, [&box] { call(box.clicked); });
    return view;
}

// The name of a pair, bold while one of its boxes is the current.
QLabel* pairName(Binder& binder, MeasurementWizard& wizard, Label& name) {
    auto* const label = new FittedLabel({});
    label->setAlignment(Qt::AlignCenter);
    binder.bind(name, *label);
    binder.onChange(wizard.run.progress, [&wizard, &name, label] {
        const int current = wizard.run.progress.currentBox;
        const bool isCurrent = (current - 1) % pairCount + 1 == name.index();
        label->setType({.largest = isCurrent ? 15.0 : 14.0,
                        .smallest = 10,
                        .bold = isCurrent,
                        .ink = isCurrent ? theme().ink : theme().ink2});
    });
    return label;
}

} // namespace

Card* makePointBoxes(Binder& binder, MeasurementWizard& wizard) {
    auto* const card = new Card;
    card->body().setContentsMargins(px(12), px(12), px(12), px(12));
    card->body().setSpacing(px(6));
    card->body().addWidget(boxHeading(binder, wizard));
    auto* const grid = new QGridLayout;
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(px(4));
    grid->setVerticalSpacing(0);
    grid->setColumnStretch(leftColumn, 1);
    grid->setColumnStretch(rightColumn, 1);
    grid->setColumnMinimumWidth(nameColumn, px(52));
    grid->addWidget(sideHeading(binder, wizard.leftHeading), 0, leftColumn);
    grid->addWidget(sideHeading(binder, wizard.rightHeading), 0, rightColumn);
    for (int pair = 1; pair <= pairCount; ++pair) {
        grid->addWidget(boxView(binder, wizard, wizard.run.box(pair)), pair, leftColumn);
        grid->addWidget(pairName(binder, wizard, *wizard.pairLabels.at(pair)), pair, nameColumn);
        grid->addWidget(boxView(binder, wizard, wizard.run.box(pair + pairCount)), pair,
                        rightColumn);
        grid->setRowStretch(pair, 1);
    }
    card->body().addLayout(grid, 1);
    return card;
}

} // namespace vorna
