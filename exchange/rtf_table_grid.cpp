#include "exchange/rtf_table_grid.h"

#include <algorithm>
#include <map>
#include <utility>

namespace vorna {
namespace {

constexpr int usualWidth = 1440;  // of a cell that tells none
constexpr int smallestWidth = 15; // edges that lie closer are one
constexpr std::size_t maxColumns = 128;

using Merge = RtfCellDefinition::Merge;

// The cells of a row that stand on the page: one for each group that is merged across.
struct Placed {
    RtfGridCell cell;
    int left = 0;
};

bool isBlank(const std::vector<RtfBlock>& blocks) {
    return std::all_of(blocks.begin(), blocks.end(), [](const RtfBlock& block) {
        const auto* const paragraph = std::get_if<RtfParagraph>(&block.content);
        return paragraph != nullptr && paragraph->runs.empty();
    });
}

// Some programs end a row with one cell too many.
std::size_t cellCount(const RtfRow& row) {
    std::size_t count = row.cells.size();
    while (!row.definition.cells.empty() && count > row.definition.cells.size() &&
           isBlank(row.cells[count - 1]))
        --count;
    return count;
}

std::vector<Placed> placeRow(const RtfRow& row) {
    std::vector<Placed> placed;
    int edge = row.definition.left;
    const std::size_t count = cellCount(row);
    for (std::size_t i = 0; i < count; ++i) {
        RtfCellDefinition definition;
        definition.rightEdge = edge + usualWidth;
        if (i < row.definition.cells.size())
            definition = row.definition.cells[i];
        const int left = edge;
        edge = std::max(definition.rightEdge, left + smallestWidth);
        definition.rightEdge = edge;
        if (definition.across == Merge::Next && !placed.empty()) {
            placed.back().cell.definition.rightEdge = edge;
        } else {
            placed.push_back({{definition}, left});
        }
        placed.back().cell.contents.push_back(&row.cells[i]);
    }
    return placed;
}

std::vector<int> allEdges(const std::vector<std::vector<Placed>>& rows) {
    std::vector<int> edges;
    for (const std::vector<Placed>& row : rows)
        for (const Placed& placed : row) {
            edges.push_back(placed.left);
            edges.push_back(placed.cell.definition.rightEdge);
        }
    std::sort(edges.begin(), edges.end());
    std::vector<int> distinct;
    for (const int edge : edges)
        if (distinct.empty() || edge - distinct.back() >= smallestWidth)
            distinct.push_back(edge);
    return distinct;
}

std::size_t indexOf(const std::vector<int>& edges, int edge) {
    const auto behind = std::upper_bound(edges.begin(), edges.end(), edge);
    return behind == edges.begin() ? 0 : static_cast<std::size_t>(behind - edges.begin()) - 1;
}

// Gives each cell its columns by the edges, or one column where there are no common edges.
void takeColumns(std::vector<Placed>& row, const std::vector<int>& edges) {
    std::size_t column = 0;
    for (Placed& placed : row) {
        RtfGridCell& cell = placed.cell;
        cell.column = edges.empty() ? column : std::max(column, indexOf(edges, placed.left));
        const std::size_t end =
            edges.empty() ? column + 1 : indexOf(edges, cell.definition.rightEdge);
        cell.columns = std::max(end, cell.column + 1) - cell.column;
        column = cell.column + cell.columns;
    }
}

// The cells that span rows, by their first column, while the rows are walked down.
using OpenCells = std::map<std::size_t, std::pair<std::size_t, std::size_t>>; // row, cell

// True when the cell joined the one above it.
bool joinAbove(RtfGrid& grid, const OpenCells& open, const RtfGridCell& cell) {
    const auto found = open.find(cell.column);
    if (cell.definition.down != Merge::Next || found == open.end())
        return false;
    const auto [row, index] = found->second;
    RtfGridCell& above = grid.rows[row].cells[index];
    if (row + above.rows != grid.rows.size() - 1 || above.columns != cell.columns)
        return false;
    ++above.rows;
    for (const std::vector<RtfBlock>* content : cell.contents)
        if (!isBlank(*content))
            above.contents.push_back(content);
    return true;
}

void addRow(RtfGrid& grid, OpenCells& open, std::vector<Placed> placed) {
    const std::size_t row = grid.rows.size();
    grid.rows.emplace_back();
    grid.rows[row].emptyColumns = placed.empty() ? 0 : placed.front().cell.column;
    for (Placed& each : placed) {
        if (joinAbove(grid, open, each.cell))
            continue;
        if (each.cell.definition.down == Merge::None)
            open.erase(each.cell.column);
        else
            open[each.cell.column] = {row, grid.rows[row].cells.size()};
        grid.rows[row].cells.push_back(std::move(each.cell));
    }
}

} // namespace

RtfGrid layoutTable(const RtfTable& table) {
    std::vector<std::vector<Placed>> rows;
    rows.reserve(table.rows.size());
    for (const RtfRow& row : table.rows)
        rows.push_back(placeRow(row));
    std::vector<int> edges = allEdges(rows);
    if (edges.size() > maxColumns + 1)
        edges.clear();
    RtfGrid grid;
    grid.left = edges.empty() ? 0 : edges.front();
    for (std::size_t i = 1; i < edges.size(); ++i)
        grid.columnWidths.push_back(edges[i] - edges[i - 1]);
    OpenCells open;
    for (std::vector<Placed>& row : rows) {
        takeColumns(row, edges);
        addRow(grid, open, std::move(row));
    }
    return grid;
}

} // namespace vorna
