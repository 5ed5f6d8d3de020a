#include "content/pictures/panels.h"

#include <algorithm>

namespace vorna {
namespace {

constexpr double gap = 24;

// The views of one column, below each other.
struct Column {
    std::vector<std::size_t> views; // their numbers
    double heights = 0;             // together, for a width of 1
};

bool isTall(const AtlasView& view) {
    return view.canvas.height() > 2 * view.canvas.width();
}

double heightOf(const AtlasView& view) {
    return view.canvas.height() / view.canvas.width();
}

void add(Column& column, std::size_t number, const AtlasView& view) {
    column.views.push_back(number);
    column.heights += heightOf(view);
}

// Tall views first; the others over `stacks` columns, each to the lowest one.
std::vector<Column> columnsOf(const std::vector<const AtlasView*>& views, std::size_t stacks) {
    std::vector<Column> columns;
    std::vector<Column> low(stacks);
    for (std::size_t i = 0; i < views.size(); ++i) {
        if (isTall(*views[i]))
            add(columns.emplace_back(), i, *views[i]);
        else
            add(*std::min_element(
                    low.begin(), low.end(),
                    [](const Column& a, const Column& b) { return a.heights < b.heights; }),
                i, *views[i]);
    }
    std::erase_if(low, [](const Column& column) { return column.views.empty(); });
    columns.insert(columns.end(), low.begin(), low.end());
    return columns;
}

// The width of a column whose views fill the height, cut to what the room has.
double fullWidth(const Column& column, double height) {
    return (height - gap * static_cast<double>(column.views.size() - 1)) / column.heights;
}

double widthOf(const std::vector<Column>& columns, double height) {
    double width = gap * static_cast<double>(columns.size() - 1);
    for (const Column& column : columns)
        width += fullWidth(column, height);
    return width;
}

// The stages of the columns, shrunk to the room together.
std::vector<Stage> laidOut(const std::vector<Column>& columns,
                           const std::vector<const AtlasView*>& views, const QRectF& room) {
    const double shrink = std::min(1.0, room.width() / widthOf(columns, room.height()));
    const double height = room.height() * shrink;
    double left = room.left();
    std::vector<QRectF> targets(views.size());
    for (const Column& column : columns) {
        const double width = fullWidth(column, height);
        double top = room.top();
        for (const std::size_t number : column.views) {
            targets[number] = {left, top, width, width * heightOf(*views[number])};
            top = targets[number].bottom() + gap;
        }
        left += width + gap;
    }
    std::vector<Stage> stages;
    for (std::size_t i = 0; i < views.size(); ++i)
        stages.push_back({.view = *views[i], .part = views[i]->area(), .target = targets[i]});
    return stages;
}

double coverage(const std::vector<Stage>& stages) {
    double sum = 0;
    for (const Stage& stage : stages)
        sum += stage.target.width() * stage.target.height();
    return sum;
}

} // namespace

std::vector<Stage> besideEachOther(const std::vector<const AtlasView*>& views, const QRectF& room) {
    std::vector<Stage> stages;
    const double width = room.width() / static_cast<double>(views.size());
    for (std::size_t i = 0; i < views.size(); ++i) {
        const QRectF column(room.left() + width * static_cast<double>(i), room.top(), width,
                            room.height());
        stages.push_back(wholeView(*views[i], column, false));
    }
    return stages;
}

std::vector<Stage> packed(const std::vector<const AtlasView*>& views, const QRectF& room) {
    std::vector<Stage> one = laidOut(columnsOf(views, 1), views, room);
    std::vector<Stage> two = laidOut(columnsOf(views, 2), views, room);
    return coverage(one) >= coverage(two) ? one : two;
}

QRectF covered(const std::vector<Stage>& stages) {
    QRectF all;
    for (const Stage& stage : stages)
        all |= stage.target;
    return all;
}

} // namespace vorna
