// A label whose type shrinks where the room is too small for it: for what must be read
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
    double sign = 0; // the height of a sign before the text, in type sizes; 0 for none
};

class FittedLabel : public QLabel {
public:
    // `sign` is the icon before the text, where the type has one.
    explicit FittedLabel(const FittedType& type, const QString& sign = {});

    // Stands where the text is empty.
    void setPlaceholder(const QString& text);
    void setType(const FittedType& type);
    // Stands on the line of another label beside it, as high as this one. It must outlive it.
    void setOnLineOf(const FittedLabel& other) { lineOf_ = &other; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    [[nodiscard]] QString shownText() const;
    [[nodiscard]] int signWidth(double typeSize) const;
    [[nodiscard]] QSize sizeFor(double typeSize) const;
    [[nodiscard]] double fittingSize() const;
    [[nodiscard]] int baseline() const;

    FittedType type_;
    QString sign_;
    QString placeholder_;
    const FittedLabel* lineOf_ = nullptr;
};

// The largest type size between two, in half steps, in which a text is no wider and no higher than
// its room.
double fittingTypeSize(const QString& text, const FittedType& type, const QSize& room);

} // namespace vorna
