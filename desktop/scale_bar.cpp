#include "desktop/scale_bar.h"

#include "desktop/theme.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace vorna {
namespace {

constexpr int scaleSteps = 4;
constexpr double scaleGap = 4;

} // namespace

ScaleBar::ScaleBar(double barHeight, double figures, QWidget* parent)
    : QProgressBar(parent), barHeight_(barHeight), figures_(figures) {
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize ScaleBar::sizeHint() const {
    return {px(160), px(barHeight_) + px(scaleGap) + QFontMetrics(sizedFont(figures_)).height()};
}

void ScaleBar::paintEvent(QPaintEvent*) {
    const Theme& t = theme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF groove = QRectF(0, 0, width(), px(barHeight_)).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath outline;
    outline.addRoundedRect(groove, groove.height() / 2, groove.height() / 2);
    painter.fillPath(outline, t.raised);
    const double range = std::max(1, maximum() - minimum());
    const double share = std::clamp((value() - minimum()) / range, 0.0, 1.0);
    painter.save();
    painter.setClipPath(outline);
    painter.fillRect(QRectF(groove.left(), groove.top(), groove.width() * share, groove.height()),
                     t.accent);
    painter.restore();
    painter.setPen(t.edge);
    painter.drawPath(outline);
    paintScale(painter);
}

// The first and the last figure end with the bar, the others stand in the middle of their place.
void ScaleBar::paintScale(QPainter& painter) const {
    painter.setPen(theme().ink2);
    painter.setFont(sizedFont(figures_));
    const QFontMetrics metrics = painter.fontMetrics();
    const int base = px(barHeight_) + px(scaleGap) + metrics.ascent();
    for (int step = 0; step <= scaleSteps; ++step) {
        const QString figure =
            QString::number(minimum() + (maximum() - minimum()) * step / scaleSteps);
        const int wide = metrics.horizontalAdvance(figure);
        const int left = width() * step / scaleSteps - wide / 2;
        painter.drawText(std::clamp(left, 0, std::max(0, width() - wide)), base, figure);
    }
}

} // namespace vorna
