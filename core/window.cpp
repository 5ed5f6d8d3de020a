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

void ListView::setRows(std::vector<ListRow> rows) {
    rows_ = std::move(rows);
    selected = -1;
}

void ListView::add(ListRow row) {
    rows_.push_back(std::move(row));
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
    selected = -1;
}

const ListRow* ListView::selectedRow() const {
    const int row = selected;
    return row >= 0 && static_cast<std::size_t>(row) < rows_.size()
               ? &rows_[static_cast<std::size_t>(row)]
               : nullptr;
}

void TabStrip::change(std::size_t tab, const std::function<void(Tab&)>& edit) {
    if (tab >= tabs_.size())
        throw Failure("a tab strip has no such tab");
    edit(tabs_[tab]);
    changed();
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

void Window::close() {
    closed_ = true;
    if (watcher)
        watcher(nullptr);
}

} // namespace vorna
