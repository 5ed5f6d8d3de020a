#include "desktop/flow_layout.h"

#include <QWidget>

#include <algorithm>

namespace vorna {

FlowLayout::FlowLayout(int gap) : gap_(gap) {
    setContentsMargins(0, 0, 0, 0);
}

FlowLayout::~FlowLayout() {
    qDeleteAll(items_);
}

void FlowLayout::addItem(QLayoutItem* item) {
    items_.append(item);
}

int FlowLayout::count() const {
    return static_cast<int>(items_.size());
}

QLayoutItem* FlowLayout::itemAt(int index) const {
    return items_.value(index);
}

QLayoutItem* FlowLayout::takeAt(int index) {
    return index >= 0 && index < items_.size() ? items_.takeAt(index) : nullptr;
}

int FlowLayout::heightForWidth(int width) const {
    return layOut({0, 0, width, 0}, false);
}

QSize FlowLayout::sizeHint() const {
    QSize all(0, 0);
    for (const QLayoutItem* const item : items_)
        if (!item->isEmpty())
            all = {all.width() + item->sizeHint().width() + gap_,
                   std::max(all.height(), item->sizeHint().height())};
    return {std::max(0, all.width() - gap_), all.height()};
}

QSize FlowLayout::minimumSize() const {
    QSize largest(0, 0);
    for (const QLayoutItem* const item : items_)
        if (!item->isEmpty())
            largest = largest.expandedTo(item->minimumSize());
    return largest;
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    layOut(rect, true);
}

int FlowLayout::layOut(const QRect& rect, bool move) const {
    int x = rect.left();
    int y = rect.top();
    int lineHeight = 0;
    for (QLayoutItem* const item : items_) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint();
        if (x > rect.left() && x + size.width() > rect.right() + 1) {
            x = rect.left();
            y += lineHeight + gap_;
            lineHeight = 0;
        }
        if (move)
            item->setGeometry({{x, y}, size});
        x += size.width() + gap_;
        lineHeight = std::max(lineHeight, size.height());
    }
    return y + lineHeight - rect.top();
}

} // namespace vorna
