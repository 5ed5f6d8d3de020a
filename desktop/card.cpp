#include "desktop/card.h"

#include "desktop/icons.h"
#include "desktop/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace vorna {
namespace {

constexpr double cardRadius = 8;

void setInk(QWidget& widget, const QColor& colour) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, colour);
    palette.setColor(QPalette::Text, colour);
    widget.setPalette(palette);
}

QLabel* iconLabel(const QString& name, const QColor& colour, int size) {
    auto* const label = new QLabel;
    label->setPixmap(icon(name, colour).pixmap(px(size)));
    label->setFixedWidth(px(size));
    return label;
}

// Gives way where the room is narrow; hovering shows the whole text.
class ElidedLabel final : public QLabel {
public:
    ElidedLabel() { setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(rect(), static_cast<int>(alignment()),
                         fontMetrics().elidedText(text(), Qt::ElideRight, width()));
        setToolTip(sizeHint().width() > width() ? text() : QString());
    }
};

} // namespace

Heading::Heading(const QString& iconName, const QString& text, QWidget* parent)
    : QWidget(parent), text_(new QLabel(text)), note_(new ElidedLabel) {
    auto* const line = row(9);
    setLayout(line);
    if (!iconName.isEmpty())
        line->addWidget(iconLabel(iconName, theme().accent, 20));
    text_->setFont(sizedFont(15, true));
    note_->setFont(sizedFont(13.5));
    note_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setInk(*note_, theme().ink2);
    line->addWidget(text_);
    line->addWidget(note_, 1);
}

void Heading::setText(const QString& text) {
    text_->setText(text);
}

void Heading::setNote(const QString& note) {
    note_->setText(note);
}

Card::Card(QWidget* parent) : QFrame(parent), body_(column(10)) {
    body_->setContentsMargins(px(16), px(14), px(16), px(14));
    setLayout(body_);
}

Card::Card(const QString& iconName, const QString& heading, QWidget* parent) : Card(parent) {
    heading_ = new Heading(iconName, heading);
    body_->addWidget(heading_);
}

void Card::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(theme().line);
    painter.setBrush(theme().surface);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cardRadius, cardRadius);
}

QWidget* field(const QString& label, QWidget& edited) {
    auto* const whole = new QWidget;
    auto* const lines = column(4);
    whole->setLayout(lines);
    auto* const caption = new QLabel(label);
    caption->setFont(sizedFont(13));
    caption->setBuddy(&edited);
    setInk(*caption, theme().ink2);
    edited.setAccessibleName(label);
    lines->addWidget(caption);
    lines->addWidget(&edited);
    return whole;
}

QPushButton* button(const QString& iconName, ButtonRole role) {
    auto* const made = new QPushButton;
    setRole(*made, role);
    if (!iconName.isEmpty()) {
        const Theme& t = theme();
        const QColor colour = role == ButtonRole::Primary ? t.onAccent
                              : role == ButtonRole::Danger || role == ButtonRole::DangerOutlined
                                  ? t.danger
                                  : t.ink2;
        made->setIcon(icon(iconName, colour));
    }
    made->setAutoDefault(false);
    return made;
}

QWidget* hint(const QString& iconName, const QString& text) {
    auto* const whole = new QWidget;
    auto* const line = row(7);
    whole->setLayout(line);
    line->setAlignment(Qt::AlignTop);
    QLabel* const sign = iconLabel(iconName, theme().ink2, 16);
    sign->setFixedHeight(px(20));
    line->addWidget(sign, 0, Qt::AlignTop);
    QLabel* const words = wrappingLabel(text);
    words->setFont(sizedFont(13.5));
    words->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    setInk(*words, theme().ink2);
    line->addWidget(words, 1);
    return whole;
}

QLabel* wrappingLabel(const QString& text) {
    auto* const label = new QLabel(text);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QHBoxLayout* row(int gap) {
    auto* const layout = new QHBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(px(gap));
    return layout;
}

QVBoxLayout* column(int gap) {
    auto* const layout = new QVBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(px(gap));
    return layout;
}

} // namespace vorna
