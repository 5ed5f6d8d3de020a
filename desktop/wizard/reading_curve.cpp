#include "desktop/wizard/reading_curve.h"

#include "desktop/theme.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <utility>

namespace vorna {
namespace {

constexpr double curveWidth = 2.5;
// What the height spans at least, as a share of the largest reading: noise stays small.
constexpr double leastSpanShare = 0.1;
constexpr double figureType = 14;
constexpr double figuresWidth = 52;

} // namespace

ReadingCurve::ReadingCurve(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void ReadingCurve::setReadings(std::vector<double> readings, int wanted) {
    readings_ = std::move(readings);
    wanted_ = wanted;
    update();
}

QSize ReadingCurve::minimumSizeHint() const {
    return {px(80), px(48)};
}

void ReadingCurve::paintEvent(QPaintEvent*) {
    const Theme& t = theme();
    QPainter painter(this);
    painter.setPen(t.edge);
    painter.drawLine(0, 0, 0, height() - 1);
    painter.drawLine(0, height() - 1, width(), height() - 1);
    if (readings_.empty())
        return;
    const auto [low, high] = std::minmax_element(readings_.begin(), readings_.end());
    const double span = std::max({*high - *low, *high * leastSpanShare, 1.0});
    const double middle = (*high + *low) / 2;
    const double edge = px(8);
    const QRectF room = QRectF(rect()).adjusted(edge, edge, -edge, -edge);
    const auto places =
        std::max<double>(1, std::max<double>(wanted_, double(readings_.size())) - 1);
    QPolygonF line;
    for (std::size_t i = 0; i < readings_.size(); ++i)
        line.append({room.left() + room.width() * double(i) / places,
                     room.center().y() - room.height() * (readings_[i] - middle) / span});
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(t.accent, curveWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(line);
    painter.setBrush(t.accent);
    painter.drawEllipse(line.last(), curveWidth, curveWidth);
}

ReadingFigures::ReadingFigures(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

void ReadingFigures::setReadings(const QStringList& readings) {
    readings_ = readings;
    update();
}

QSize ReadingFigures::sizeHint() const {
    return {px(figuresWidth), QFontMetrics(sizedFont(figureType)).height()};
}

void ReadingFigures::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const int step = QFontMetrics(sizedFont(figureType)).height();
    int top = 0;
    for (auto i = readings_.size() - 1; i >= 0 && top + step <= height(); --i, top += step) {
        const bool newest = i == readings_.size() - 1;
        painter.setFont(sizedFont(figureType, newest));
        painter.setPen(newest ? theme().ink : theme().ink2);
        painter.drawText(QRect(0, top, width(), step), Qt::AlignRight | Qt::AlignVCenter,
                         readings_[i]);
    }
}

} // namespace vorna
