#include "desktop/list_delegate.h"

#include "desktop/icons.h"
#include "desktop/list_table.h"
#include "desktop/theme.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>

#include <algorithm>

namespace vorna {
namespace {

constexpr int padding = 12;
constexpr int barWidth = 4;

bool isSelected(const QStyleOptionViewItem& option) {
    return (option.state & QStyle::State_Selected) != 0;
}

// The text in at most `lines` lines, the last one cut with an ellipsis.
void drawWrapped(QPainter& painter, const QRect& room, const QString& text, int lines) {
    QTextLayout layout(text, painter.font());
    QTextOption option;
    option.setWrapMode(QTextOption::WordWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    QStringList shown;
    for (int i = 0; i < lines; ++i) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(room.width());
        shown.append(i + 1 < lines ? text.mid(line.textStart(), line.textLength()).trimmed()
                                   : text.mid(line.textStart()));
    }
    layout.endLayout();
    const QFontMetrics metrics = painter.fontMetrics();
    const int height = metrics.height();
    int y = room.top() + (room.height() - height * static_cast<int>(shown.size())) / 2;
    for (const QString& line : shown) {
        painter.drawText(QRect(room.left(), y, room.width(), height), Qt::AlignVCenter,
                         metrics.elidedText(line, Qt::ElideRight, room.width()));
        y += height;
    }
}

} // namespace

QSize ListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    const int text = option.fontMetrics.height() * form_.lines + px(8);
    return {px(40), std::max(px(form_.rowHeight), text)};
}

QRect ListDelegate::checkPlace(const QRect& cell) const {
    return {cell.left(), cell.top(), px(padding + 18 + 6), cell.height()};
}

void ListDelegate::paintGround(QPainter& painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    const Theme& t = theme();
    painter.fillRect(option.rect, isSelected(option) ? t.soft : t.surface);
    painter.fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1),
                     isSelected(option) ? t.soft : t.line);
    if (isSelected(option) && index.column() == 0)
        painter.fillRect(
            QRect(option.rect.left(), option.rect.top(), px(barWidth), option.rect.height()),
            t.accent);
}

QRect ListDelegate::paintLeading(QPainter& painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index, const ListRow& row) const {
    QRect room = option.rect.adjusted(px(padding), 0, -px(6), 0);
    const double ratio = painter.device()->devicePixelRatioF();
    if (index.column() == 0 && form_.checks) {
        QStyleOption mark;
        const int side = px(18);
        mark.rect = QRect(room.left(), room.center().y() - side / 2, side, side);
        mark.state = QStyle::State_Enabled | (row.checked ? QStyle::State_On : QStyle::State_Off);
        QApplication::style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &mark, &painter,
                                             option.widget);
        room.setLeft(room.left() + side + px(10));
    }
    if (index.column() == 0 && form_.sign)
        if (const QString name = form_.sign(row); !name.isEmpty()) {
            const int side = px(18);
            painter.drawPixmap(
                room.left(), room.center().y() - side / 2,
                iconPixmap(name, isSelected(option) ? theme().softInk : theme().ink2, side, ratio));
            room.setLeft(room.left() + side + px(8));
        }
    if (form_.dot)
        if (const QColor colour = form_.dot(row, static_cast<std::size_t>(index.column()));
            colour.isValid()) {
            const int side = px(10);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(theme().edge);
            painter.setBrush(colour);
            painter.drawEllipse(room.left(), room.center().y() - side / 2, side, side);
            room.setLeft(room.left() + side + px(8));
        }
    return room;
}

void ListDelegate::paintButton(QPainter& painter, const QStyleOptionViewItem& option,
                               const TableColumn& column, const QString& text) const {
    const Theme& t = theme();
    const int height = px(28);
    const int width =
        std::min(option.rect.width() - px(10), column.buttonIcon.isEmpty() ? px(48) : height);
    const QRect box(option.rect.left() + (option.rect.width() - width) / 2,
                    option.rect.center().y() - height / 2, width, height);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(t.edge);
    painter.setBrush((option.state & QStyle::State_MouseOver) != 0 ? t.raised : t.surface);
    painter.drawRoundedRect(QRectF(box).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
    if (!column.buttonIcon.isEmpty()) {
        const int side = px(16);
        painter.drawPixmap(
            box.center().x() - side / 2 + 1, box.center().y() - side / 2 + 1,
            iconPixmap(column.buttonIcon, t.ink2, side, painter.device()->devicePixelRatioF()));
        return;
    }
    painter.setFont(sizedFont(15, true));
    painter.setPen(t.ink);
    painter.drawText(box, Qt::AlignCenter, text);
}

void ListDelegate::paintText(QPainter& painter, const QRect& room, const TableColumn& column,
                             const QString& text) const {
    if (form_.lines > 1 && !column.right) {
        drawWrapped(painter, room, text, form_.lines);
        return;
    }
    painter.drawText(
        room, static_cast<int>((column.right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter),
        painter.fontMetrics().elidedText(text, column.elide, room.width()));
}

void ListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    const Theme& t = theme();
    const TableColumn& column = form_.columns[static_cast<std::size_t>(index.column())];
    const ListRow& row = rowOf(index);
    const QString text = index.data(Qt::DisplayRole).toString();
    painter->save();
    paintGround(*painter, option, index);
    if (column.icon) {
        paintButton(*painter, option, column, text);
    } else {
        const QRect room = paintLeading(*painter, option, index, row);
        QFont font = option.font;
        font.setBold(column.strong || (isSelected(option) && index.column() == 0));
        painter->setFont(font);
        painter->setPen(isSelected(option) ? t.softInk : column.second ? t.ink2 : t.ink);
        paintText(*painter, room, column, text);
    }
    painter->restore();
}

} // namespace vorna
