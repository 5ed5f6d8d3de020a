#include "desktop/list_table.h"

#include "desktop/icons.h"
#include "desktop/list_delegate.h"
#include "desktop/round_corners.h"
#include "desktop/theme.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vorna {
namespace {

// As high as it is told to be: Qt would measure its captions with every change of the table.
class FixedHeader final : public QHeaderView {
public:
    FixedHeader(int height, QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
        setFixedHeight(height);
        setFont(sizedFont(13, true));
        setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        setSectionResizeMode(QHeaderView::Fixed);
        setMinimumSectionSize(px(20));
    }

    [[nodiscard]] QSize sizeHint() const override {
        return {minimumSectionSize(), minimumHeight()};
    }
};

} // namespace

class ListTable::Model final : public QAbstractTableModel {
public:
    explicit Model(ListTable& table) : QAbstractTableModel(&table), table_(table) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() || table_.list_ == nullptr ? 0
                                                           : static_cast<int>(table_.list_->size());
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(table_.form_.columns.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid())
            return {};
        if (role == Qt::DisplayRole || role == Qt::ToolTipRole || role == Qt::AccessibleTextRole)
            return cellText(index);
        return {};
    }
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override {
        if (orientation != Qt::Horizontal)
            return {};
        const TableColumn& column = table_.form_.columns[static_cast<std::size_t>(section)];
        if (role == Qt::DisplayRole)
            return column.header;
        if (role == Qt::TextAlignmentRole)
            return QVariant::fromValue((column.right ? Qt::AlignRight : Qt::AlignLeft) |
                                       Qt::AlignVCenter);
        return {};
    }
    void shownAnew() {
        beginResetModel();
        endResetModel();
    }

private:
    [[nodiscard]] QString cellText(const QModelIndex& index) const {
        const auto at = static_cast<std::size_t>(index.row());
        const TableColumn& column = table_.form_.columns[static_cast<std::size_t>(index.column())];
        if (!column.buttonName.isEmpty())
            return column.buttonName;
        const std::string_view text =
            column.source == 0 ? std::string_view(table_.list_->unfinishedRows()[at].text)
                               : table_.list_->row(at).subItem(column.source);
        return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    }

    ListTable& table_;
};

// Paints by the table's form what the list's rows hold.
class ListTable::Delegate final : public ListDelegate {
public:
    explicit Delegate(ListTable& table) : ListDelegate(table.form_), table_(table) {}

protected:
    [[nodiscard]] const ListRow& rowOf(const QModelIndex& index) const override {
        return table_.list_->row(static_cast<std::size_t>(index.row()));
    }

private:
    ListTable& table_;
};

ListTable::ListTable(TableForm form, QWidget* parent)
    : QTreeView(parent), form_(std::move(form)), model_(std::make_unique<Model>(*this)),
      delegate_(std::make_unique<Delegate>(*this)) {
    setHeader(new FixedHeader(px(36), this));
    header()->setVisible(form_.headers);
    setModel(model_.get());
    setItemDelegate(delegate_.get());
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setMouseTracking(true);
    setIndentation(0);
    setMinimumHeight(px(form_.headers ? 36 : 0) + px(form_.rowHeight));
    new RoundCorners(*this);
}

ListTable::~ListTable() = default;

void ListTable::show(ListView& list) {
    list_ = &list;
    seenVersion_ = list.rowsVersion();
    model_->shownAnew();
    refresh();
}

void ListTable::refresh() {
    if (list_ == nullptr)
        return;
    refreshing_ = true;
    if (std::exchange(seenVersion_, list_->rowsVersion()) != list_->rowsVersion()) {
        const int place = verticalScrollBar()->value();
        model_->shownAnew();
        verticalScrollBar()->setValue(place);
    }
    const QModelIndex wanted = model_->index(list_->selected, 0);
    if (currentIndex().row() != wanted.row() || !selectionModel()->hasSelection())
        setCurrentIndex(wanted);
    if (!wanted.isValid())
        clearSelection();
    viewport()->update();
    refreshing_ = false;
}

void ListTable::setHeaders(const std::vector<QString>& headers) {
    for (std::size_t i = 0; i < form_.columns.size() && i < headers.size(); ++i)
        form_.columns[i].header = headers[i];
    emit model_->headerDataChanged(Qt::Horizontal, 0, static_cast<int>(form_.columns.size()) - 1);
}

void ListTable::setEmptyText(const QString& text) {
    form_.emptyText = text;
    viewport()->update();
}

void ListTable::setGivingWay(std::vector<int> columns, int below) {
    givingWay_ = std::move(columns);
    givingWayBelow_ = below;
    layOutColumns();
}

void ListTable::layOutColumns() {
    const int room = viewport()->width();
    double wanted = 0;
    for (std::size_t i = 0; i < form_.columns.size(); ++i)
        setColumnHidden(static_cast<int>(i), form_.columns[i].width <= 0);
    int below = givingWayBelow_;
    for (const int column : givingWay_) {
        setColumnHidden(column, room < px(below));
        below -= 110;
    }
    int fixed = 0;
    for (std::size_t i = 0; i < form_.columns.size(); ++i) {
        if (isColumnHidden(static_cast<int>(i)))
            continue;
        if (form_.columns[i].fixed)
            fixed += px(form_.columns[i].width);
        else
            wanted += form_.columns[i].width;
    }
    int left = room - fixed;
    for (std::size_t i = 0; i < form_.columns.size(); ++i) {
        if (isColumnHidden(static_cast<int>(i)))
            continue;
        const TableColumn& column = form_.columns[i];
        const int width = column.fixed ? px(column.width)
                                       : static_cast<int>(std::floor(left * column.width / wanted));
        if (!column.fixed) {
            left -= width;
            wanted -= column.width;
        }
        setColumnWidth(static_cast<int>(i), std::max(width, px(20)));
    }
}

void ListTable::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    layOutColumns();
}

void ListTable::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (list_ == nullptr || list_->size() != 0 || form_.emptyText.isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(theme().ink2);
    const int inset = px(16);
    painter.drawText(viewport()->rect().adjusted(inset, inset, -inset, -inset),
                     Qt::AlignCenter | Qt::TextWordWrap, form_.emptyText);
}

// ---- What the user does

void ListTable::chosen(int row) {
    if (list_ == nullptr || row < 0)
        return;
    if (auto* const grid = dynamic_cast<DataGrid*>(list_)) {
        grid->goTo(row);
        return;
    }
    list_->selected = row;
    call(list_->clicked);
}

void ListTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeView::currentChanged(current, previous);
    if (!refreshing_ && current.isValid() && (pressing_ || !chosenByEnter_))
        chosen(current.row());
}

void ListTable::toggle(int row) {
    list_->change(static_cast<std::size_t>(row),
                  [](ListRow& changed) { changed.checked = !changed.checked; });
}

void ListTable::mousePressEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->pos());
    pressedCheck_ = form_.checks && index.isValid() && index.column() == 0 &&
                    delegate_->checkPlace(visualRect(index)).contains(event->pos());
    if (pressedCheck_) {
        toggle(index.row());
        return;
    }
    const bool again = index.isValid() && index.row() == currentIndex().row();
    pressing_ = true;
    QTreeView::mousePressEvent(event);
    pressing_ = false;
    if (again && event->button() == Qt::LeftButton)
        chosen(index.row());
}

void ListTable::mouseReleaseEvent(QMouseEvent* event) {
    if (std::exchange(pressedCheck_, false))
        return;
    QTreeView::mouseReleaseEvent(event);
    const QModelIndex index = indexAt(event->pos());
    const auto* const grid = dynamic_cast<DataGrid*>(list_);
    if (grid == nullptr || !index.isValid() || event->button() != Qt::LeftButton ||
        !form_.columns[static_cast<std::size_t>(index.column())].icon)
        return;
    if (grid->buttonClicked)
        grid->buttonClicked(index.column());
}

void ListTable::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->pos());
    if (!index.isValid() || event->button() != Qt::LeftButton)
        return;
    if (form_.checks && index.column() == 0 &&
        delegate_->checkPlace(visualRect(index)).contains(event->pos())) {
        toggle(index.row());
        return;
    }
    call(list_->doubleClicked);
}

void ListTable::keyPressEvent(QKeyEvent* event) {
    const QModelIndex current = currentIndex();
    const auto* const grid = dynamic_cast<DataGrid*>(list_);
    const auto pressButton = [&](bool last) {
        int found = -1;
        for (std::size_t i = 0; i < form_.columns.size(); ++i)
            if (form_.columns[i].icon && (found < 0 || last))
                found = static_cast<int>(i);
        if (found >= 0 && grid->buttonClicked)
            grid->buttonClicked(found);
    };
    const bool chooses = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                         event->key() == Qt::Key_Space;
    if (chosenByEnter_ && chooses) {
        chosen(current.row());
        return;
    }
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (current.isValid() && grid != nullptr && !list_->doubleClicked)
            pressButton(true);
        else if (current.isValid())
            call(list_->doubleClicked);
        return;
    case Qt::Key_Plus:
        if (current.isValid() && grid != nullptr)
            pressButton(false);
        return;
    case Qt::Key_Space:
        if (form_.checks && current.isValid())
            toggle(current.row());
        return;
    case Qt::Key_Delete:
        call(list_->deletePressed);
        return;
    case Qt::Key_Escape:
        event->ignore();
        return;
    default:
        QTreeView::keyPressEvent(event);
    }
}

} // namespace vorna
