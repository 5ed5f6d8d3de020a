#include "desktop/round_corners.h"

#include "desktop/card.h"
#include "desktop/theme.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>

namespace vorna {
namespace {

constexpr double cornerOfCard = 8;

bool liesOnCard(const QWidget* widget) {
    for (; widget != nullptr; widget = widget->parentWidget())
        if (dynamic_cast<const Card*>(widget) != nullptr)
            return true;
    return false;
}

} // namespace

RoundCorners::RoundCorners(QWidget& rounded) : QWidget(&rounded) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    rounded.installEventFilter(this);
    setGeometry(rounded.rect());
}

bool RoundCorners::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show) {
        setGeometry(parentWidget()->rect());
        raise();
    }
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    return QWidget::eventFilter(watched, event);
}

void RoundCorners::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outside;
    outside.addRect(rect());
    const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    outside.addRoundedRect(box, cornerOfCard, cornerOfCard);
    painter.fillPath(outside, liesOnCard(parentWidget()) ? theme().surface : theme().ground);
    const bool focus = parentWidget()->hasFocus();
    painter.setPen(focus ? QPen(theme().accent, 2) : QPen(theme().line, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(focus ? box.adjusted(0.5, 0.5, -0.5, -0.5) : box, cornerOfCard,
                            cornerOfCard);
}

} // namespace vorna
