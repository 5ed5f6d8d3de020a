#include "desktop/wizard/point_boxes.h"

#include "acquisition/measurement_wizard.h"
#include "desktop/binder.h"
#include "desktop/card.h"
#include "desktop/fitted_label.h"
#include "desktop/theme.h"

#include <QFocusEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>
#include <QPolygonF>

#include <optional>

namespace vorna {

struct BoxLook {
    QColor ground;
    QColor ink;
    QColor second; // of the index and the check mark
    Qt::PenStyle outline = Qt::SolidLine;
    bool done = false;
};

namespace {

constexpr double boxCorner = 6;
constexpr double haloWidth = 2;
constexpr double haloRoom = 4; // round the box, for the halo of the current one
constexpr double currentFrame = 3;
constexpr double mostBoxHeight = 72;
constexpr double narrowBox = 76; // has no room for the index beside a value
constexpr double boxType = 21;
constexpr double leastBoxType = 12;
constexpr double indexType = 11;
constexpr double checkSide = 13;
constexpr double pairNameWidth = 84;
constexpr int pairCount = 12;
constexpr int leftBoxes = 0;
constexpr int pairNames = 1;
constexpr int rightBoxes = 2;

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

// A check mark, strong enough to be seen from afar.
void drawDone(QPainter& painter, const QPointF& place, const QColor& colour) {
    const double side = px(checkSide);
    QPolygonF mark;
    for (const QPointF& corner : {QPointF(0.15, 0.55), QPointF(0.4, 0.8), QPointF(0.88, 0.25)})
        mark.append(place + corner * side);
    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, side / 8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(mark);
    painter.restore();
}

} // namespace

// ---- One box

PointBoxView::PointBoxView(const PointBox& box, const PointProgress& progress)
    : box_(box), progress_(progress) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    setMaximumHeight(px(mostBoxHeight));
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

    paintContent(painter, box, look);
}

// The index stands in the corner; in a narrow box a value takes its place.
void PointBoxView::paintContent(QPainter& painter, const QRectF& box, const BoxLook& look) const {
    const QString value = qt(box_.text);
    const bool narrow = box.width() < px(narrowBox);
    const int check = px(checkSide);
    painter.setPen(look.second);
    painter.setFont(sizedFont(indexType));
    if (!narrow || value.isEmpty())
        painter.drawText(
            QPointF(box.left() + px(6), box.top() + px(3) + painter.fontMetrics().ascent()),
            QString::number(box_.index()));
    if (look.done)
        drawDone(painter, {box.right() - check - px(4), box.top() + px(4)}, look.second);
    const int edge = px(5);
    const int besideCheck = check + edge;
    const QRectF room = box.adjusted(narrow ? edge : besideCheck, 1,
                                     narrow && !look.done ? -edge : -besideCheck, -1);
    painter.setPen(look.ink);
    painter.setFont(sizedFont(
        fittingTypeSize(value, {boxType, leastBoxType, true}, room.size().toSize()), true));
    painter.drawText(room, Qt::AlignCenter, value);
}

void PointBoxView::focusInEvent(QFocusEvent* event) {
    keyboardRing_ =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    QAbstractButton::focusInEvent(event);
    if (keyboardRing_)
        call(box_.clicked); // as one that was pressed, it shows its point
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
    heading->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    QHBoxLayout* const line = row(9);
    line->setContentsMargins(px(haloRoom), 0, px(haloRoom), 0);
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
    auto* const label =
        new FittedLabel({.largest = 13.5, .smallest = 11, .bold = true, .ink = theme().ink2});
    label->setAlignment(Qt::AlignCenter);
    label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
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

FittedType pairType(bool isCurrent) {
    return {.largest = isCurrent ? 15.0 : 14.0,
            .smallest = 9,
            .bold = isCurrent,
            .ink = isCurrent ? theme().ink : theme().ink2};
}

// The name of a pair, bold while one of its boxes is the current.
QLabel* pairName(Binder& binder, MeasurementWizard& wizard, Label& name) {
    auto* const label = new FittedLabel({});
    label->setAlignment(Qt::AlignCenter);
    label->setMaximumWidth(px(pairNameWidth));
    binder.bind(static_cast<Control&>(name), *label);
    // The names of two points stand one over the other.
    binder.onChange(name, [&name, label] {
        label->setText(qt(name.caption).replace(QStringLiteral(" · "), QStringLiteral(" ·\n")));
    });
    binder.onChange(wizard.run.progress,
                    [&wizard, &name, label, shown = std::optional<bool>()]() mutable {
                        const int current = wizard.run.progress.currentBox;
                        const bool isCurrent = (current - 1) % pairCount + 1 == name.index();
                        if (shown != isCurrent)
                            label->setType(pairType(isCurrent));
                        shown = isCurrent;
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
    grid->setColumnStretch(leftBoxes, 1);
    grid->setColumnStretch(rightBoxes, 1);
    grid->setColumnMinimumWidth(pairNames, px(52));
    grid->addWidget(sideHeading(binder, wizard.leftHeading), 0, leftBoxes);
    grid->addWidget(sideHeading(binder, wizard.rightHeading), 0, rightBoxes);
    for (int pair = 1; pair <= pairCount; ++pair) {
        grid->addWidget(boxView(binder, wizard, wizard.run.box(pair)), pair, leftBoxes);
        grid->addWidget(pairName(binder, wizard, *wizard.pairLabels.at(pair)), pair, pairNames);
        grid->addWidget(boxView(binder, wizard, wizard.run.box(pair + pairCount)), pair,
                        rightBoxes);
        grid->setRowStretch(pair, 1);
    }
    card->body().addLayout(grid, 1);
    card->body().addStretch();
    return card;
}

} // namespace vorna
