// The flat style of the program's controls over Qt's Fusion: outlined buttons and fields, hairline
// frames, round check marks, a ring round what has the keyboard. A button's role is its property.
#pragma once

#include <QProxyStyle>

#include <cstdint>

class QAbstractButton;

namespace vorna {

enum class ButtonRole : std::uint8_t {
    Plain,         // outlined
    Primary,       // filled: at most one in a view
    Quiet,         // without outline
    Danger,        // what deletes
    DangerOutlined // what deletes everything
};

void setRole(QAbstractButton& button, ButtonRole role);
ButtonRole roleOf(const QWidget* button);

class VornaStyle final : public QProxyStyle {
public:
    VornaStyle();

    using QProxyStyle::polish;
    using QProxyStyle::unpolish;
    void polish(QApplication* application) override;
    void unpolish(QApplication* application) override;

    QIcon standardIcon(StandardPixmap standard, const QStyleOption* option,
                       const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                       SubControl part, const QWidget* widget) const override;
    [[nodiscard]] QRect subElementRect(SubElement element, const QStyleOption* option,
                                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* result) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                         const QSize& size, const QWidget* widget) const override;

protected:
    // The letters that Alt reaches are underlined while it is held.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool altHeld_ = false;
};

} // namespace vorna
