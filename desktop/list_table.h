// The table of the program: hairlines, a selection bar, check marks, signs, buttons in cells, a
// sentence when it is empty. It shows the rows of one list control and hands the user's actions
// back to it; a row is looked at only when it is shown.
#pragma once

#include "core/window.h"

#include <QIcon>
#include <QString>
#include <QTreeView>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace vorna {

struct TableColumn {
    QString header;
    std::size_t source = 0; // 0: the row's text, k: its sub-item k
    double width = 100;     // share of the room, or pixels of the 15 px body text when fixed
    bool fixed = false;
    bool second = false; // in the second text's colour
    bool right = false;  // numbers
    bool strong = false;
    bool icon = false; // the column is a button with this icon or, without one, its text
    QString buttonIcon;
    QString buttonName; // of an icon, for those who do not see it
    Qt::TextElideMode elide = Qt::ElideRight;
};

struct TableForm {
    std::vector<TableColumn> columns;
    bool checks = false; // each row has a check mark before its first column
    bool headers = true;
    int lines = 1;         // of text in a row
    double rowHeight = 36; // pixels of the 15 px body text
    QString emptyText;
    // The sign before the first column; an empty name for none.
    std::function<QString(const ListRow&)> sign;
    // The colour of the dot before a cell; an invalid one for none.
    std::function<QColor(const ListRow&, std::size_t column)> dot;
};

class ListTable final : public QTreeView {
public:
    explicit ListTable(TableForm form, QWidget* parent = nullptr);
    ~ListTable() override;

    // The list that it shows; it must outlive the table.
    void show(ListView& list);
    // Shows what has changed in the list.
    void refresh();
    void setHeaders(const std::vector<QString>& headers);
    void setEmptyText(const QString& text);
    // Columns that give way first are hidden below this width; in order of the giving way.
    void setGivingWay(std::vector<int> columns, int below);
    // The arrow keys then only move, and Enter or Space chooses.
    void setChosenByEnter() { chosenByEnter_ = true; }

    [[nodiscard]] const TableForm& form() const { return form_; }
    using QTreeView::show;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    class Model;
    class Delegate;

    void layOutColumns();
    void chosen(int row);
    void toggle(int row);

    TableForm form_;
    ListView* list_ = nullptr;
    std::unique_ptr<Model> model_;
    std::unique_ptr<Delegate> delegate_;
    unsigned seenVersion_ = 0;
    bool refreshing_ = false;
    bool pressedCheck_ = false;
    bool pressing_ = false; // a mouse button
    bool chosenByEnter_ = false;
    std::vector<int> givingWay_;
    int givingWayBelow_ = 0;
};

} // namespace vorna
