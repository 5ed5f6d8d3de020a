#include "desktop/wizard/point_panel.h"

#include "acquisition/point_display.h"
#include "desktop/binder.h"
#include "desktop/card.h"
#include "desktop/fitted_label.h"
#include "desktop/picture_view.h"
#include "desktop/theme.h"
#include "desktop/windows/window_parts.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPlainTextEdit>

#include <algorithm>

namespace vorna {
namespace {

constexpr double pictureGap = 12;
constexpr double pictureRatio = 3.0 / 4; // width to height
constexpr double largestSmallWidth = 132;
constexpr double leastSmallWidth = 48;
constexpr double smallShare = 0.26; // of the room along which the small ones stand
constexpr double leastHintWidth = 84;
constexpr double pointNameType = 46;
constexpr double chineseType = 42;
constexpr double placeType = 24;
constexpr double descriptionType = 18;
constexpr double narrowDescriptionType = 15;
constexpr double leastDescriptionType = 13;
constexpr double chipCorner = 8;
constexpr double chipHeight = 42;

// Where the point lies, on a tinted ground.
class PlaceChip final : public FittedLabel {
public:
    PlaceChip()
        : FittedLabel(
              {.largest = placeType, .smallest = 15, .bold = true, .ink = theme().softInk}) {
        setContentsMargins(px(14), 0, px(14), 0);
        setFixedHeight(px(chipHeight));
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme().soft);
        painter.drawRoundedRect(rect(), chipCorner, chipCorner);
        painter.end();
        FittedLabel::paintEvent(event);
    }
};

PictureView* smallPicture(Binder& binder, Picture& picture) {
    auto* const view = new PictureView;
    view->setClickable(true);
    binder.bind(picture, *view);
    return view;
}

} // namespace

// Read, not edited. As high as its text in its width; it scrolls where there is less room.
class PointDescription final : public QPlainTextEdit {
public:
    PointDescription(Binder& binder, TextBox& description) {
        setReadOnly(true);
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setFocusPolicy(Qt::ClickFocus);
        viewport()->setAutoFillBackground(false);
        document()->setDocumentMargin(0);
        QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        policy.setHeightForWidth(true);
        setSizePolicy(policy);
        binder.bind(static_cast<Control&>(description), *this);
        binder.onChange(description, [this, &description] {
            setPlainText(qt(description.text));
            updateGeometry();
        });
    }
    void setType(double size) {
        setFont(sizedFont(size));
        updateGeometry();
    }
    [[nodiscard]] int heightForWidth(int width) const override {
        const QFontMetrics metrics(font());
        const QRect text = metrics.boundingRect(QRect(0, 0, width - 1, QWIDGETSIZE_MAX),
                                                static_cast<int>(Qt::TextWordWrap), toPlainText());
        return std::max(text.height(), 2 * metrics.lineSpacing()) + px(3);
    }
    [[nodiscard]] QSize sizeHint() const override {
        return {px(200), heightForWidth(std::max(width(), px(200)))};
    }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return {px(120), 2 * QFontMetrics(font()).lineSpacing()};
    }
};

// ---- Pictures

PointPictures::PointPictures(Binder& binder, PointDisplay& point)
    : line_(row(pictureGap)), side_(new QWidget), smallOnes_(column(10)) {
    setLayout(line_);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto* const large = new PictureView;
    binder.bind(point.largePicture, *large);
    line_->addWidget(large, 1);
    side_->setLayout(smallOnes_);
    second_ = smallPicture(binder, point.secondPicture);
    third_ = smallPicture(binder, point.thirdPicture);
    hint_ = new QWidget;
    QHBoxLayout* const words = row(7);
    hint_->setLayout(words);
    words->addWidget(signLabel("zoom", theme().ink2, 16), 0, Qt::AlignTop);
    QLabel* const text = textLabel(13.5, false, theme().ink2);
    binder.bind(point.clickHint, *text);
    words->addWidget(text, 1, Qt::AlignTop);
    smallOnes_->addWidget(second_);
    smallOnes_->addWidget(third_);
    smallOnes_->addWidget(hint_, 1, Qt::AlignTop);
    smallOnes_->addStretch();
    line_->addWidget(side_);
}

QSize PointPictures::minimumSizeHint() const {
    return {px(120), px(140)};
}

void PointPictures::setNarrow(bool narrow) {
    narrow_ = narrow;
    arrange();
}

void PointPictures::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

void PointPictures::arrange() {
    const int gap = px(pictureGap);
    const auto smallWidth = [](double room) {
        return std::clamp(static_cast<int>(room * smallShare), px(leastSmallWidth),
                          px(largestSmallWidth));
    };
    const int beside = std::min(smallWidth(width()), smallWidth(height()));
    const int below = smallWidth(height() * pictureRatio);
    const double largeBeside = std::min<double>(width() - beside - gap, height() * pictureRatio);
    const double largeBelow = std::min<double>(width(), (height() - gap) * pictureRatio - below);
    const bool isBelow = narrow_ && largeBelow > largeBeside;
    const QSize small(isBelow ? below : beside,
                      static_cast<int>((isBelow ? below : beside) / pictureRatio));
    second_->setFixedSize(small);
    third_->setFixedSize(small);
    const int smallGap = smallOnes_->spacing();
    const QSize hintRoom = isBelow
                               ? QSize(width() - 2 * (small.width() + smallGap), small.height())
                               : QSize(small.width(), height() - 2 * (small.height() + smallGap));
    hint_->setVisible(hintRoom.width() >= px(leastHintWidth) &&
                      hint_->heightForWidth(hintRoom.width()) <= hintRoom.height());
    line_->setDirection(isBelow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    smallOnes_->setDirection(isBelow ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    side_->setFixedWidth(isBelow ? width() : small.width());
    side_->setMaximumHeight(isBelow ? small.height() : QWIDGETSIZE_MAX);
}

// ---- The whole

PointPanel::PointPanel(Binder& binder, PointDisplay& point, const QString& empty)
    : point_(point), shown_(new QWidget), head_(column(6)), names_(row(14)) {
    QVBoxLayout* const lines = column(10);
    shown_->setLayout(lines);
    lines->addLayout(makeHead(binder));
    description_ = new PointDescription(binder, point_.description);
    lines->addWidget(description_);
    pictures_ = new PointPictures(binder, point_);
    lines->addWidget(pictures_, 1);

    QLabel* const sentence = textLabel(18, false, theme().ink2);
    sentence->setText(empty);
    sentence->setAlignment(Qt::AlignCenter);
    QVBoxLayout* const either = column(0);
    setLayout(either);
    either->addWidget(shown_, 1);
    either->addWidget(sentence, 1);
    binder.onChange(point_.pointLabel, [this, sentence] {
        const bool any = !point_.pointLabel.caption.get().empty();
        setShown(*shown_, any);
        setShown(*sentence, !any);
    });
    setRoom(false, false);
}

QLayout* PointPanel::makeHead(Binder& binder) {
    auto* const name = new FittedLabel({.largest = pointNameType, .smallest = 30, .bold = true});
    binder.bind(point_.pointLabel, *name);
    place_ = new PlaceChip;
    binder.bind(point_.place, *place_);
    auto* const chinese = new FittedLabel({.largest = chineseType, .smallest = 28});
    binder.bind(static_cast<Control&>(point_.chineseName), *chinese);
    binder.onChange(point_.chineseName,
                    [this, chinese] { chinese->setText(qt(point_.chineseName.text)); });
    names_->addWidget(name);
    names_->addStretch(1);
    names_->addWidget(chinese);
    head_->addLayout(names_);
    return head_;
}

void PointPanel::setRoom(bool narrow, bool low) {
    constexpr int besideName = 1;
    pictures_->setNarrow(narrow);
    description_->setType(!narrow ? descriptionType
                          : low   ? leastDescriptionType
                                  : narrowDescriptionType);
    QBoxLayout* const wanted = narrow ? head_ : names_;
    if (wanted->indexOf(place_) >= 0)
        return;
    (narrow ? names_ : head_)->removeWidget(place_);
    if (narrow)
        head_->addWidget(place_, 0, Qt::AlignLeft);
    else
        names_->insertWidget(besideName, place_);
}

} // namespace vorna
