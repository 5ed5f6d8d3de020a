#include "desktop/chart_view.h"

#include "desktop/theme.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace vorna {
namespace {

constexpr double margin = 8;
constexpr double sheetRadius = 8;

} // namespace

ChartView::ChartView(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMouseTracking(true);
}

void ChartView::setDocument(const std::string& document, std::int32_t chartType) {
    if (document == document_ && chartType == chartType_)
        return;
    document_ = document;
    chartType_ = chartType;
    model_ = parseChartDocument(document, chartType);
    setAccessibleName(QString::fromStdString(model_->caption));
    setAccessibleDescription(QString::fromStdString(model_->subcaption));
    layOut();
    update();
}

QSize ChartView::sizeHint() const {
    return wanted_.isValid() ? wanted_ : QSize(px(745), px(420));
}

QSize ChartView::minimumSizeHint() const {
    return {px(160), px(130)};
}

QRectF ChartView::canvas() const {
    return QRectF(rect()).adjusted(margin, margin, -margin, -margin);
}

void ChartView::layOut() {
    chart_.reset();
    if (model_ && canvas().isValid())
        chart_.emplace(*model_, canvas().size());
}

void ChartView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layOut();
}

void ChartView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(theme().paperLine);
    painter.setBrush(theme().paper);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), sheetRadius,
                            sheetRadius);
    if (!chart_)
        return;
    painter.translate(canvas().topLeft());
    chart_->paint(painter, theme().paper);
}

bool ChartView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const std::string text =
        chart_ ? chart_->toolTextAt(QPointF(help->pos()) - canvas().topLeft()) : std::string{};
    if (text.empty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), QString::fromStdString(text).toHtmlEscaped(), this);
    return true;
}

} // namespace vorna
