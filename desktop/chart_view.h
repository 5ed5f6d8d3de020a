// A chart document on the screen, drawn for the size it has, with its tool texts on hover.
#pragma once

#include "platform/chart_model.h"
#include "platform/qt/chart_painter.h"

#include <QPixmap>
#include <QWidget>

#include <cstdint>
#include <optional>
#include <string>

namespace vorna {

class ChartView final : public QWidget {
public:
    explicit ChartView(QWidget* parent = nullptr);

    // chartType 11: columns, 4: pie.
    void setDocument(const std::string& document, std::int32_t chartType);
    void setSizeWanted(const QSize& size) { wanted_ = size; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    void layOut();
    [[nodiscard]] QRectF canvas() const;

    std::string document_;
    std::int32_t chartType_ = 0;
    std::optional<ChartModel> model_;
    std::optional<LaidOutChart> chart_; // for the present size
    QSize wanted_;
};

} // namespace vorna
