#include "core/window.h"

#include "platform/failure.h"

#include <algorithm>

namespace vorna {

Control::Control(Window& window, std::string name, int index)
    : window_(window), name_(std::move(name)), index_(index) {
    window_.controls_.push_back(this);
}

void Control::changed() {
    if (window_.watcher)
        window_.watcher(this);
}

std::string_view ListRow::subItem(std::size_t column) const {
    return column - 1 < sub.size() ? std::string_view(sub[column - 1]) : std::string_view{};
}

void ListRow::setSubItem(std::size_t column, std::string value) {
    if (sub.size() < column)
        sub.resize(column);
    sub[column - 1] = std::move(value);
}

std::string MaskedBox::emptyText() const {
    std::string empty = mask_;
    std::replace(empty.begin(), empty.end(), '#', '_');
    return empty;
}

void MaskedBox::type(std::string_view typed) {
    std::string taken = emptyText();
    std::size_t place = 0;
    for (const char c : typed) {
        if (c >= '0' && c <= '9') {
            place = mask_.find('#', place);
            if (place == std::string::npos)
                break;
            taken[place++] = c;
        } else if (c == '_') {
            place = std::min(mask_.find('#', place), mask_.size() - 1) + 1;
        } else if (const std::size_t sign = mask_.find(c, place);
                   c != '#' && sign != std::string::npos) {
            place = sign + 1;
        }
    }
    text = taken;
}

void ComboBox::choose(int row) {
    if (row < -1 || row >= static_cast<int>(rows.get().size()))
        throw Failure("a list has no such row");
    index = row;
}

void ListView::finish(std::size_t row) const {
    if (!finishRow || rows_[row].finished)
        return;
    rows_[row].finished = true;
    finishRow(rows_[row]);
}

const std::vector<ListRow>& ListView::rows() const {
    if (finishRow)
        for (std::size_t i = 0; i < rows_.size(); ++i)
            finish(i);
    return rows_;
}

const ListRow& ListView::row(std::size_t row) const {
    if (row >= rows_.size())
        throw Failure("a list has no such row");
    finish(row);
    return rows_[row];
}

void ListView::setRows(std::vector<ListRow> rows) {
    rows_ = std::move(rows);
    ++rowsVersion_;
    selected = -1;
}

void ListView::add(ListRow row) {
    rows_.push_back(std::move(row));
    ++rowsVersion_;
    changed();
}

void ListView::change(std::size_t row, const std::function<void(ListRow&)>& edit) {
    if (row >= rows_.size())
        throw Failure("a list has no such row");
    edit(rows_[row]);
    changed();
}

void ListView::remove(std::size_t row) {
    if (row >= rows_.size())
        throw Failure("a list has no such row");
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
    ++rowsVersion_;
    selected = -1;
}

const ListRow* ListView::selectedRow() const {
    const int at = selected;
    return at >= 0 && static_cast<std::size_t>(at) < rows_.size()
               ? &row(static_cast<std::size_t>(at))
               : nullptr;
}

void DataGrid::goTo(int row) {
    selected = row;
    call(rowChanged);
}

void TabStrip::change(std::size_t tab, const std::function<void(Tab&)>& edit) {
    if (tab >= tabs_.size())
        throw Failure("a tab strip has no such tab");
    edit(tabs_[tab]);
    changed();
}

void TabStrip::select(std::size_t tab) {
    const int before = selected;
    selected = static_cast<int>(tab);
    if (before != selected)
        call(tabChanged);
}

void ChartControl::renderChart() {
    rendered_ = true;
    changed();
    call(renderComplete);
}

Control* Window::find(std::string_view name, int index) const {
    const auto at = std::find_if(controls_.begin(), controls_.end(), [&](const Control* control) {
        return control->name() == name && control->index() == index;
    });
    return at == controls_.end() ? nullptr : *at;
}

void Window::setCaption(std::string caption) {
    caption_ = std::move(caption);
    if (watcher)
        watcher(nullptr);
}

void Window::focus(Control& control) {
    activeControl = &control;
    if (focusWatcher)
        focusWatcher(control);
}

void Window::close() {
    closed_ = true;
    if (watcher)
        watcher(nullptr);
}

} // namespace vorna
