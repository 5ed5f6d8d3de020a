#include "desktop/picture_view.h"

#include "desktop/theme.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace vorna {
namespace {

constexpr double pictureRadius = 8;

} // namespace

PictureView::PictureView(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PictureView::setPath(const QString& path) {
    if (path == path_)
        return;
    path_ = path;
    picture_ = path.isEmpty() ? QPixmap() : QPixmap(path);
    scaled_ = {};
    updateGeometry();
    update();
}

void PictureView::setName(const QString& name) {
    setAccessibleName(name);
    setToolTip(name);
}

void PictureView::setClickable(bool clickable) {
    clickable_ = clickable;
    setCursor(clickable ? Qt::PointingHandCursor : Qt::ArrowCursor);
    setFocusPolicy(clickable ? Qt::StrongFocus : Qt::NoFocus);
}

QSize PictureView::sizeHint() const {
    return wanted_.isValid() ? wanted_ : QSize(px(320), px(320));
}

QSize PictureView::minimumSizeHint() const {
    return {px(48), px(48)};
}

void PictureView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QRectF sheet = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    if (!bare_) {
        const bool ring = hasFocus();
        painter.setPen(ring ? QPen(theme().accent, 2) : QPen(theme().paperLine, 1));
        painter.setBrush(theme().paper);
        painter.drawRoundedRect(sheet, pictureRadius, pictureRadius);
        QPainterPath clip;
        clip.addRoundedRect(sheet.adjusted(1, 1, -1, -1), pictureRadius - 1, pictureRadius - 1);
        painter.setClipPath(clip);
    }
    if (picture_.isNull())
        return;
    const double ratio = devicePixelRatioF();
    const QSize room = (QSizeF(size()) * ratio).toSize();
    const QSize fitting = picture_.size().scaled(room, Qt::KeepAspectRatio);
    if (scaled_.size() != fitting)
        scaled_ = picture_.scaled(fitting, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    scaled_.setDevicePixelRatio(ratio);
    const QSizeF shown = QSizeF(fitting) / ratio;
    // White drawings lie on the dimmed paper of the dark theme as if they were drawn on it.
    if (!bare_)
        painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    painter.drawPixmap(QPointF((width() - shown.width()) / 2, (height() - shown.height()) / 2),
                       scaled_);
}

void PictureView::mouseReleaseEvent(QMouseEvent* event) {
    if (clickable_ && event->button() == Qt::LeftButton && rect().contains(event->pos()) && pressed)
        pressed();
}

void PictureView::keyPressEvent(QKeyEvent* event) {
    if (clickable_ && pressed && (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return))
        pressed();
    else
        QWidget::keyPressEvent(event);
}

} // namespace vorna
