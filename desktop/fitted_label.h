// A label of one line whose type shrinks where the room is too small for it: for what must be read
// whole and large. Where even the smallest type does not fit, hovering shows the whole text.
#pragma once

#include <QColor>
#include <QLabel>

namespace vorna {

// Sizes for a body text of 15 pixels.
struct FittedType {
    double largest = 15;
    double smallest = 11;
    bool bold = false;
    QColor ink = {}; // an invalid one: the text's usual colour
};

class FittedLabel : public QLabel {
public:
    explicit FittedLabel(const FittedType& type, QWidget* parent = nullptr);

    // A sign before the text, as high as its largest type by this factor; empty for none.
    void setSign(const QString& iconName, double factor = 1.3);
    // Stands where the text is empty.
    void setPlaceholder(const QString& text);
    void setType(const FittedType& type);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    [[nodiscard]] QString shownText() const;
    [[nodiscard]] int signWidth(double typeSize) const;
    [[nodiscard]] QSize sizeFor(double typeSize) const;
    [[nodiscard]] double fittingSize(const QSize& room) const;

    FittedType type_;
    QString sign_;
    double signFactor_ = 1;
    QString placeholder_;
};

// The largest type size between two, in half steps, in which a text is no wider and no higher than
// its room.
double fittingTypeSize(const QString& text, const FittedType& type, const QSize& room);

} // namespace vorna
