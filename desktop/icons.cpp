#include "desktop/icons.h"

#include "desktop/theme.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cmath>
#include <utility>

namespace vorna {
namespace {

// In a colour, or in its own where that is none.
void drawIcon(QPainter& painter, const QString& name, const QColor& colour, const QRectF& place) {
    QFile file(":/icons/" + name + ".svg");
    if (!file.open(QIODevice::ReadOnly))
        return;
    QByteArray drawing = file.readAll();
    if (colour.isValid())
        drawing.replace("currentColor", colour.name().toLatin1());
    QSvgRenderer(drawing).render(&painter, place);
}

class DrawnIcon final : public QIconEngine {
public:
    DrawnIcon(QString name, QColor colour) : name_(std::move(name)), colour_(colour) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        painter->save();
        if (mode == QIcon::Disabled)
            painter->setOpacity(painter->opacity() / 2);
        drawIcon(*painter, name_, colour_, rect);
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new DrawnIcon(name_, colour_); }

private:
    QString name_;
    QColor colour_;
};

} // namespace

QIcon icon(const QString& name, const QColor& colour) {
    return QIcon(new DrawnIcon(name, colour));
}

QIcon icon(const QString& name) {
    return icon(name, theme().ink2);
}

QIcon drawnIcon(const QString& name) {
    return icon(name, QColor());
}

QPixmap iconPixmap(const QString& name, const QColor& colour, int size, double pixelRatio) {
    const int pixels = static_cast<int>(std::ceil(size * pixelRatio));
    const QString key = QString("%1/%2/%3").arg(name, colour.name()).arg(pixels);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap(pixels, pixels);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        drawIcon(painter, name, colour, pixmap.rect());
        painter.end();
        pixmap.setDevicePixelRatio(pixelRatio);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

} // namespace vorna
