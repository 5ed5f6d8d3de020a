// A bar of a value with the scale of its range below it.
#pragma once

#include <QProgressBar>

namespace vorna {

class ScaleBar final : public QProgressBar {
public:
    // The bar's height and the size of its figures, for a body text of 15 pixels.
    ScaleBar(double barHeight, double figures, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintScale(QPainter& painter) const;

    double barHeight_;
    double figures_;
};

} // namespace vorna
