#include "desktop/style.h"

#include "desktop/icons.h"
#include "desktop/theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <QVariant>

#include <algorithm>

namespace vorna {
namespace {

constexpr const char* roleProperty = "vornaRole";
constexpr double radius = 6;
constexpr double ringWidth = 2;

struct ButtonColours {
    QColor ground;
    QColor outline;
    QColor text;
};

ButtonColours coloursOf(ButtonRole role, const QStyleOption& option) {
    const Theme& t = theme();
    const bool down = (option.state & (QStyle::State_Sunken | QStyle::State_On)) != 0;
    const bool hot = (option.state & QStyle::State_MouseOver) != 0 &&
                     (option.state & QStyle::State_Enabled) != 0;
    switch (role) {
    case ButtonRole::Primary:
        return {down || hot ? t.accentPressed : t.accent, down || hot ? t.accentPressed : t.accent,
                t.onAccent};
    case ButtonRole::Quiet:
        return {down ? t.soft : hot ? t.raised : QColor(Qt::transparent), Qt::transparent, t.ink};
    case ButtonRole::Danger:
        return {down || hot ? t.dangerSoft : QColor(Qt::transparent), Qt::transparent, t.danger};
    case ButtonRole::DangerOutlined:
        return {down || hot ? t.dangerSoft : t.surface, t.danger, t.danger};
    case ButtonRole::Plain:
        break;
    }
    return {down ? t.soft : hot ? t.raised : t.surface, t.edge, t.ink};
}

void drawBox(QPainter& painter, const QRectF& box, const QColor& ground, const QPen& outline,
             double corner = radius) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(ground);
    painter.setPen(outline);
    const double half = outline.style() == Qt::NoPen ? 0 : outline.widthF() / 2;
    painter.drawRoundedRect(box.adjusted(half, half, -half, -half), corner, corner);
    painter.restore();
}

void drawButton(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const ButtonColours colours = coloursOf(roleOf(widget), option);
    painter.save();
    if ((option.state & QStyle::State_Enabled) == 0)
        painter.setOpacity(painter.opacity() / 2);
    const QRectF box(option.rect);
    const bool on = (option.state & QStyle::State_On) != 0;
    const QPen outline = colours.outline == QColor(Qt::transparent) ? QPen(Qt::NoPen)
                         : on ? QPen(theme().accent, ringWidth)
                              : QPen(colours.outline, 1);
    drawBox(painter, box, colours.ground, outline);
    if ((option.state & QStyle::State_HasFocus) != 0 &&
        (option.state & QStyle::State_KeyboardFocusChange) != 0) {
        const bool filled = roleOf(widget) == ButtonRole::Primary;
        const double inset = filled ? 3 : 0;
        drawBox(painter, box.adjusted(inset, inset, -inset, -inset), Qt::transparent,
                QPen(filled ? theme().onAccent : theme().accent, ringWidth));
    }
    painter.restore();
}

void drawField(const QStyleOption& option, QPainter& painter) {
    const Theme& t = theme();
    const bool readOnly = (option.state & QStyle::State_ReadOnly) != 0;
    const bool focus = (option.state & QStyle::State_HasFocus) != 0 && !readOnly;
    painter.save();
    if ((option.state & QStyle::State_Enabled) == 0)
        painter.setOpacity(painter.opacity() / 2);
    drawBox(painter, option.rect, readOnly ? t.raised : option.palette.color(QPalette::Base),
            focus ? QPen(t.accent, ringWidth) : QPen(readOnly ? t.line : t.edge, 1));
    painter.restore();
}

void drawCheck(const QStyleOption& option, QPainter& painter) {
    const Theme& t = theme();
    const bool on = (option.state & QStyle::State_On) != 0;
    painter.save();
    if ((option.state & QStyle::State_Enabled) == 0)
        painter.setOpacity(painter.opacity() / 2);
    drawBox(painter, option.rect, on ? t.accent : t.surface, QPen(on ? t.accent : t.edge, 1.5), 4);
    if (on) {
        const QRectF box(option.rect);
        QPainterPath tick;
        tick.moveTo(box.left() + box.width() * 0.22, box.top() + box.height() * 0.52);
        tick.lineTo(box.left() + box.width() * 0.42, box.top() + box.height() * 0.72);
        tick.lineTo(box.left() + box.width() * 0.79, box.top() + box.height() * 0.30);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(
            QPen(t.onAccent, box.width() / 8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(tick);
    }
    painter.restore();
}

void drawButtonLabel(const QStyleOptionButton& option, QPainter& painter, const QWidget* widget,
                     bool underline) {
    painter.save();
    if ((option.state & QStyle::State_Enabled) == 0)
        painter.setOpacity(painter.opacity() / 2);
    const int flags = Qt::AlignVCenter | (underline ? Qt::TextShowMnemonic : Qt::TextHideMnemonic);
    const int words =
        option.text.isEmpty() ? 0 : option.fontMetrics.size(flags, option.text).width();
    const int side = option.icon.isNull() ? 0 : option.iconSize.width();
    const int gap = words > 0 && side > 0 ? px(9) : 0;
    int left = option.rect.left() + std::max(0, (option.rect.width() - words - side - gap) / 2);
    if (side > 0) {
        const QRect place(left, option.rect.center().y() - side / 2 + 1, side, side);
        option.icon.paint(&painter, place);
        left += side + gap;
    }
    painter.setPen(coloursOf(roleOf(widget), option).text);
    painter.drawText(
        QRect(left, option.rect.top(), option.rect.right() - left + 1, option.rect.height()), flags,
        option.text);
    painter.restore();
}

void drawHeaderSection(const QStyleOption& option, QPainter& painter) {
    painter.fillRect(option.rect, theme().raised);
    painter.fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1),
                     theme().line);
}

void drawHeaderLabel(const QStyleOptionHeader& option, QPainter& painter) {
    painter.save();
    painter.setPen(theme().ink2);
    const QRect room = option.rect.adjusted(px(10), 0, -px(4), 0);
    QStringList lines = option.text.split('\n');
    for (QString& line : lines)
        line = option.fontMetrics.elidedText(line, Qt::ElideRight, room.width());
    painter.drawText(room, static_cast<int>(option.textAlignment) | Qt::AlignVCenter,
                     lines.join('\n'));
    painter.restore();
}

void drawComboBox(const QStyleOptionComboBox& option, QPainter& painter) {
    drawField(option, painter);
    const int side = px(16);
    const QRect place(option.rect.right() - side - px(10), option.rect.center().y() - side / 2 + 1,
                      side, side);
    icon("down").paint(&painter, place, Qt::AlignCenter,
                       (option.state & QStyle::State_Enabled) != 0 ? QIcon::Normal
                                                                   : QIcon::Disabled);
}

void drawScrollBar(const QStyleOptionSlider& option, const QRect& slider, QPainter& painter) {
    if (option.minimum == option.maximum)
        return;
    const bool held =
        (option.state & QStyle::State_Sunken) != 0 || (option.state & QStyle::State_MouseOver) != 0;
    const bool upright = option.orientation == Qt::Vertical;
    const int inset = px(3);
    const QRectF thumb = upright ? QRectF(slider).adjusted(inset, 2, -inset, -2)
                                 : QRectF(slider).adjusted(2, inset, -2, -inset);
    QColor colour = theme().edge;
    colour.setAlphaF(held ? 0.9F : 0.5F);
    drawBox(painter, thumb, colour, QPen(Qt::NoPen), std::min(thumb.width(), thumb.height()) / 2);
}

} // namespace

void setRole(QAbstractButton& button, ButtonRole role) {
    button.setProperty(roleProperty, static_cast<int>(role));
    QPalette palette = button.palette();
    const QStyleOption plain;
    const QColor text = coloursOf(role, plain).text;
    palette.setColor(QPalette::Active, QPalette::ButtonText, text);
    palette.setColor(QPalette::Inactive, QPalette::ButtonText, text);
    button.setPalette(palette);
    if (role == ButtonRole::Primary)
        button.setFont(sizedFont(15, true));
}

ButtonRole roleOf(const QWidget* button) {
    return button == nullptr ? ButtonRole::Plain
                             : static_cast<ButtonRole>(button->property(roleProperty).toInt());
}

VornaStyle::VornaStyle() : QProxyStyle("Fusion") {}

QIcon VornaStyle::standardIcon(StandardPixmap standard, const QStyleOption* option,
                               const QWidget* widget) const {
    if (standard == SP_LineEditClearButton)
        return icon("x");
    return QProxyStyle::standardIcon(standard, option, widget);
}

void VornaStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    switch (element) {
    case PE_PanelButtonCommand:
    case PE_PanelButtonTool:
        drawButton(*option, *painter, widget);
        return;
    case PE_PanelLineEdit:
        // A box without a frame looks like a label.
        if (const auto* const frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
            frame == nullptr || frame->lineWidth > 0)
            drawField(*option, *painter);
        return;
    case PE_FrameFocusRect:
        if (qobject_cast<const QCheckBox*>(widget) != nullptr)
            drawBox(*painter, option->rect, Qt::transparent, QPen(theme().accent, ringWidth));
        return;
    case PE_FrameLineEdit:
    case PE_FrameDefaultButton:
        return;
    case PE_Frame:
        drawBox(*painter, option->rect, Qt::transparent,
                (option->state & State_HasFocus) != 0 ? QPen(theme().accent, ringWidth)
                                                      : QPen(theme().line, 1));
        return;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        drawCheck(*option, *painter);
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void VornaStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    if (element == CE_PushButtonBevel) {
        drawButton(*option, *painter, widget);
        return;
    }
    if (element == CE_PushButtonLabel) {
        if (const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option))
            drawButtonLabel(*button, *painter, widget, altHeld_);
        return;
    }
    if (element == CE_HeaderSection || element == CE_HeaderEmptyArea) {
        drawHeaderSection(*option, *painter);
        return;
    }
    if (element == CE_HeaderLabel) {
        if (const auto* const header = qstyleoption_cast<const QStyleOptionHeader*>(option))
            drawHeaderLabel(*header, *painter);
        return;
    }
    if (element == CE_Splitter)
        return;
    if (element == CE_ProgressBarGroove) {
        drawBox(*painter, option->rect, theme().raised, QPen(theme().edge, 1),
                option->rect.height() / 2.0);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void VornaStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    if (control == CC_ComboBox) {
        if (const auto* const combo = qstyleoption_cast<const QStyleOptionComboBox*>(option))
            drawComboBox(*combo, *painter);
        return;
    }
    if (control == CC_ScrollBar) {
        if (const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option))
            drawScrollBar(*bar, subControlRect(control, option, SC_ScrollBarSlider, widget),
                          *painter);
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect VornaStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                 SubControl part, const QWidget* widget) const {
    if (control == CC_ComboBox && part == SC_ComboBoxEditField)
        return option->rect.adjusted(px(11), 0, -px(34), 0);
    const auto* const bar =
        control == CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
    if (bar == nullptr)
        return QProxyStyle::subControlRect(control, option, part, widget);
    // The thumb alone, without buttons at the ends.
    const bool upright = bar->orientation == Qt::Vertical;
    const int length = upright ? bar->rect.height() : bar->rect.width();
    const int range = bar->maximum - bar->minimum;
    const int thumb =
        range == 0 ? length
                   : std::clamp(static_cast<int>(static_cast<qint64>(length) * bar->pageStep /
                                                 (static_cast<qint64>(range) + bar->pageStep)),
                                std::min(px(32), length), length);
    const int at = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                           length - thumb, bar->upsideDown);
    const auto piece = [&](int from, int size) {
        return upright ? QRect(bar->rect.left(), bar->rect.top() + from, bar->rect.width(), size)
                       : QRect(bar->rect.left() + from, bar->rect.top(), size, bar->rect.height());
    };
    switch (part) {
    case SC_ScrollBarSlider:
        return piece(at, thumb);
    case SC_ScrollBarGroove:
        return bar->rect;
    case SC_ScrollBarSubPage:
        return piece(0, at);
    case SC_ScrollBarAddPage:
        return piece(at + thumb, length - at - thumb);
    default:
        return {};
    }
}

QRect VornaStyle::subElementRect(SubElement element, const QStyleOption* option,
                                 const QWidget* widget) const {
    const QRect rect = QProxyStyle::subElementRect(element, option, widget);
    const auto* const frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    if (element == SE_LineEditContents && frame != nullptr && frame->lineWidth > 0)
        return rect.adjusted(px(8), 0, -px(8), 0);
    return rect;
}

void VornaStyle::polish(QApplication* application) {
    QProxyStyle::polish(application);
    application->installEventFilter(this);
}

void VornaStyle::unpolish(QApplication* application) {
    application->removeEventFilter(this);
    QProxyStyle::unpolish(application);
}

bool VornaStyle::eventFilter(QObject* watched, QEvent* event) {
    const bool pressed = event->type() == QEvent::KeyPress;
    if ((pressed || event->type() == QEvent::KeyRelease) &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt && altHeld_ != pressed) {
        altHeld_ = pressed;
        if (QWidget* const window = QApplication::activeWindow())
            for (QAbstractButton* const button : window->findChildren<QAbstractButton*>())
                button->update();
    }
    return QProxyStyle::eventFilter(watched, event);
}

int VornaStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
    switch (metric) {
    case PM_ButtonIconSize:
    case PM_SmallIconSize:
        return px(20);
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return px(18);
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    case PM_CheckBoxLabelSpacing:
        return px(10);
    case PM_ScrollBarExtent:
        return px(13);
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int VornaStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* result) const {
    if (hint == SH_ItemView_ActivateItemOnSingleClick ||
        hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    if (hint == SH_UnderlineShortcut)
        return altHeld_ ? 1 : 0;
    if (hint == SH_Table_GridLineColor)
        return static_cast<int>(theme().line.rgb());
    return QProxyStyle::styleHint(hint, option, widget, result);
}

QSize VornaStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
    QSize wanted = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (type == CT_PushButton)
        wanted = {wanted.width() + px(22), std::max(wanted.height(), px(40))};
    else if (type == CT_LineEdit || type == CT_ComboBox)
        wanted.setHeight(std::max(wanted.height(), px(40)));
    else if (type == CT_CheckBox)
        wanted.setHeight(std::max(wanted.height(), px(27)));
    return wanted;
}

} // namespace vorna
