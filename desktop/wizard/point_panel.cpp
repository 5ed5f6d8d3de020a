#include "desktop/wizard/point_panel.h"

#include "acquisition/point_display.h"
#include "desktop/binder.h"
#include "desktop/card.h"
#include "desktop/fitted_label.h"
#include "desktop/flow_layout.h"
#include "desktop/icons.h"
#include "desktop/picture_view.h"
#include "desktop/text_view.h"
#include "desktop/theme.h"
#include "desktop/windows/window_parts.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QTextDocument>

#include <algorithm>

namespace vorna {
namespace {

constexpr double pictureGap = 12;
constexpr double pictureRatio = 3.0 / 4; // width to height
constexpr double largestSmallWidth = 132;
constexpr double leastSmallWidth = 48;
constexpr double smallShare = 0.26;    // of the room along which the small ones stand
constexpr double heightForHint = 300; // of the pictures
constexpr double nameType = 46;
constexpr double chineseType = 42;
constexpr double narrowChineseType = 34;
constexpr double placeType = 24;
constexpr double descriptionType = 18;
constexpr double narrowDescriptionType = 15;
constexpr double chipCorner = 8;

// Where the point lies, on a tinted ground.
class PlaceChip final : public FittedLabel {
public:
    PlaceChip()
        : FittedLabel(
              {.largest = placeType, .smallest = 15, .bold = true, .ink = theme().softInk}) {
        setContentsMargins(px(14), px(4), px(14), px(5));
        setAlignment(Qt::AlignVCenter);
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

// As high as its text in its width; it scrolls where there is less room.
class PointDescription final : public TextView {
public:
    PointDescription() {
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setFocusPolicy(Qt::ClickFocus);
        document()->setDocumentMargin(0);
        connect(this, &QPlainTextEdit::textChanged, this, [this] { updateGeometry(); });
        QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        policy.setHeightForWidth(true);
        setSizePolicy(policy);
    }
    [[nodiscard]] int heightForWidth(int width) const override {
        const QFontMetrics metrics(font());
        const QRect text =
            metrics.boundingRect(QRect(0, 0, width - 1, QWIDGETSIZE_MAX),
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

PictureView* smallPicture(Binder& binder, Picture& picture) {
    auto* const view = new PictureView;
    view->setClickable(true);
    binder.bind(picture, *view);
    return view;
}

} // namespace

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
    line_->addWidget(side_);
}

QSize PointPictures::minimumSizeHint() const {
    return {px(120), px(100)};
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
    const double largeBeside =
        std::min<double>(width() - beside - gap, height() * pictureRatio);
    const double largeBelow =
        std::min<double>(width(), (height() - gap) * pictureRatio - below);
    const bool isBelow = narrow_ && largeBelow > largeBeside;
    const int small = isBelow ? below : beside;
    for (PictureView* const picture : {second_, third_})
        picture->setFixedSize(small, static_cast<int>(small / pictureRatio));
    hint_->setVisible(isBelow || height() >= px(heightForHint));
    line_->setDirection(isBelow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    smallOnes_->setDirection(isBelow ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    side_->setFixedWidth(isBelow ? width() : small);
    side_->setMaximumHeight(isBelow ? static_cast<int>(small / pictureRatio) : QWIDGETSIZE_MAX);
}

// ---- The whole

PointPanel::PointPanel(Binder& binder, PointDisplay& point) : point_(point) {
    QVBoxLayout* const lines = column(10);
    setLayout(lines);
    lines->addLayout(makeHead(binder));
    auto* const description = new PointDescription;
    description->setFont(sizedFont(descriptionType));
    binder.bind(point_.description, *description);
    description_ = description;
    lines->addWidget(description);
    pictures_ = new PointPictures(binder, point_);
    lines->addWidget(pictures_, 1);
}

QLayout* PointPanel::makeHead(Binder& binder) {
    head_ = row(16);
    auto* const names = new FlowLayout(px(12));
    names_ = names;
    auto* const name = new FittedLabel({.largest = nameType, .smallest = 30, .bold = true});
    binder.bind(point_.pointLabel, *name);
    names->addWidget(name);
    auto* const place = new PlaceChip;
    binder.bind(point_.place, *place);
    names->addWidget(place);
    head_->addLayout(names, 1);
    auto* const chinese = new FittedLabel({.largest = chineseType, .smallest = 24});
    binder.bind(static_cast<Control&>(point_.chineseName), *chinese);
    binder.onChange(point_.chineseName,
                    [this, chinese] { chinese->setText(qt(point_.chineseName.text)); });
    chinese_ = chinese;
    head_->addWidget(chinese);
    return head_;
}

void PointPanel::setNarrow(bool narrow) {
    pictures_->setNarrow(narrow);
    if (narrow == narrow_)
        return;
    narrow_ = narrow;
    static_cast<FittedLabel*>(chinese_)->setType(
        {.largest = narrow ? narrowChineseType : chineseType, .smallest = 24});
    description_->setFont(sizedFont(narrow ? narrowDescriptionType : descriptionType));
    QLayout* const from = narrow ? static_cast<QLayout*>(head_) : names_;
    from->removeWidget(chinese_);
    (narrow ? names_ : static_cast<QLayout*>(head_))->addWidget(chinese_);
}

} // namespace vorna
