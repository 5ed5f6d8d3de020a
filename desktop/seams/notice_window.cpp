#include "desktop/seams/notice_window.h"

#include "desktop/card.h"
#include "desktop/icons.h"
#include "desktop/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

#include <algorithm>

namespace vorna {
namespace {

constexpr int redrawMs = 40;
constexpr double cornerRadius = 8;

} // namespace

NoticeWindow::NoticeWindow(const QString& text, std::chrono::milliseconds shown, QWidget* owner)
    : QWidget(owner, Qt::Dialog | Qt::FramelessWindowHint), shown_(shown) {
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowModality(Qt::ApplicationModal);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(text);
    auto* const line = row(14);
    line->setContentsMargins(px(26), px(22), px(30), px(26));
    setLayout(line);
    auto* const sign = new QLabel;
    sign->setPixmap(icon("check", theme().accent).pixmap(px(28)));
    line->addWidget(sign);
    auto* const words = new QLabel(text);
    words->setFont(sizedFont(20));
    line->addWidget(words);
    adjustSize();
    if (owner != nullptr) {
        const QRect over = owner->window()->geometry();
        move(over.center() - QPoint(width() / 2, height() / 2));
    }
    elapsed_.start();
    connect(&redraw_, &QTimer::timeout, this, [this] { update(); });
    redraw_.start(redrawMs);
}

void NoticeWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme().edge, 1));
    painter.setBrush(theme().surface);
    const QRectF card = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawRoundedRect(card, cornerRadius, cornerRadius);
    const double left =
        1 - std::min(1.0, static_cast<double>(elapsed_.elapsed()) /
                              static_cast<double>(std::max<std::int64_t>(1, shown_.count())));
    const double inset = cornerRadius;
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme().accent);
    painter.drawRect(QRectF(card.left() + inset, card.bottom() - px(4),
                            (card.width() - 2 * inset) * left, px(3)));
}

} // namespace vorna
