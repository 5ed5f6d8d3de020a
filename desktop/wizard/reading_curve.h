// The readings of the point that is measured: their curve, and the latest of them as figures.
#pragma once

#include <QWidget>

#include <vector>

namespace vorna {

class ReadingCurve final : public QWidget {
public:
    explicit ReadingCurve(QWidget* parent = nullptr);

    // In the order in which they came. The curve has room for `wanted` of them, or for all.
    void setReadings(std::vector<double> readings, int wanted);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<double> readings_;
    int wanted_ = 0;
};

// As many of the latest readings as there is room for, the newest on top.
class ReadingFigures final : public QWidget {
public:
    explicit ReadingFigures(QWidget* parent = nullptr);

    void setReadings(const QStringList& readings);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QStringList readings_;
};

} // namespace vorna
