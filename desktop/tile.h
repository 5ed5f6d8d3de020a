// Large buttons with a drawing: the kinds of measurement with their letter, the charts with a small
// picture of theirs.
#pragma once

#include <QAbstractButton>
#include <QString>

namespace vorna {

// A letter in a round field before the word. The caption is "P-Words": what stands before the dash
// is the letter.
class KindButton final : public QAbstractButton {
public:
    explicit KindButton(QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

// A small drawing of a chart over its name, or beside it where it is low.
class ChartTile final : public QAbstractButton {
public:
    explicit ChartTile(const QString& drawing, QWidget* parent = nullptr);
    // Beside each other: for narrow windows.
    void setLow(bool low);
    void setName(const QString& name);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawSheet(QPainter& painter, const QRect& paper) const;

    QString drawing_;
    QString name_;
    bool low_ = false;
};

} // namespace vorna
