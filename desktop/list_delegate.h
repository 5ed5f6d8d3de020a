// How one row of a table is painted.
#pragma once

#include "core/window.h"

#include <QStyledItemDelegate>

namespace vorna {

struct TableColumn;
struct TableForm;

class ListDelegate : public QStyledItemDelegate {
public:
    // The form must outlive it.
    explicit ListDelegate(const TableForm& form) : form_(form) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;

    // Where the check mark stands in a row's first cell, with some room round it.
    [[nodiscard]] QRect checkPlace(const QRect& cell) const;

protected:
    [[nodiscard]] virtual const ListRow& rowOf(const QModelIndex& index) const = 0;

private:
    void paintGround(QPainter& painter, const QStyleOptionViewItem& option,
                     const QModelIndex& index) const;
    // Paints what stands before the text and gives the room that is left.
    QRect paintLeading(QPainter& painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index, const ListRow& row) const;
    void paintButton(QPainter& painter, const QStyleOptionViewItem& option,
                     const TableColumn& column, const QString& text) const;
    void paintText(QPainter& painter, const QRect& room, const TableColumn& column,
                   const QString& text) const;

    const TableForm& form_;
};

} // namespace vorna
