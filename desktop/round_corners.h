// Gives a widget with its own ground the round corners of a card: a sheet above it paints what lies
// outside of them, and the hairline.
#pragma once

#include <QWidget>

namespace vorna {

class RoundCorners final : public QWidget {
public:
    // Goes with the widget.
    explicit RoundCorners(QWidget& rounded);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace vorna
