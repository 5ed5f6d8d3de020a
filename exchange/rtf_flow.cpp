#include "exchange/rtf_flow.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vorna {
namespace {

constexpr std::size_t maxCellsOfRow = 64;

void moveBlocks(std::vector<RtfBlock>& from, std::vector<RtfBlock>& to) {
    std::move(from.begin(), from.end(), std::back_inserter(to));
    from.clear();
}

} // namespace

void RtfFlow::addParagraph(RtfParagraph paragraph, int level) {
    const bool inOpenTable = !open_.empty();
    moveTo(level);
    if (!open_.empty()) {
        open_.front().table.pageBreakBefore |= paragraph.format.pageBreakBefore && !inOpenTable;
        paragraph.format.pageBreakBefore = false;
    }
    blocksAt(open_.size()).push_back({std::move(paragraph)});
}

void RtfFlow::endCell(int level) {
    moveTo(std::max(level, 1));
    OpenTable& top = open_.back();
    if (top.cells.size() < maxCellsOfRow)
        top.cells.push_back(std::move(top.cell));
    else
        moveBlocks(top.cell, top.cells.back());
    top.cell.clear();
}

void RtfFlow::endRow(int level, const RtfRowDefinition& definition) {
    moveTo(std::max(level, 1));
    OpenTable& top = open_.back();
    if (!top.cell.empty())
        endCell(level);
    if (top.cells.empty())
        return;
    RtfRow& row = top.table.rows.emplace_back();
    row.cells = std::exchange(top.cells, {});
    row.definition.left = definition.left;
    row.definition.gap = definition.gap;
    row.definition.alignment = definition.alignment;
    row.definition.borders = definition.borders;
    // Definitions of cells that the text lacks are dropped: they would cost memory for nothing.
    const std::size_t count = std::min(definition.cells.size(), row.cells.size());
    row.definition.cells.assign(definition.cells.begin(),
                                definition.cells.begin() + static_cast<std::ptrdiff_t>(count));
}

std::vector<RtfBlock> RtfFlow::finish() {
    moveTo(0);
    return std::move(blocks_);
}

void RtfFlow::moveTo(int level) {
    const auto wanted = static_cast<std::size_t>(std::clamp(level, 0, deepest));
    while (open_.size() > wanted)
        closeTable();
    while (open_.size() < wanted)
        open_.emplace_back();
}

// A row without its end becomes one; text that no cell ever ended is text and no table.
void RtfFlow::closeTable() {
    OpenTable top = std::move(open_.back());
    open_.pop_back();
    std::vector<RtfBlock>& below = blocksAt(open_.size());
    if (top.table.rows.empty() && top.cells.empty()) {
        moveBlocks(top.cell, below);
        return;
    }
    if (!top.cell.empty())
        top.cells.push_back(std::move(top.cell));
    if (!top.cells.empty())
        top.table.rows.push_back({{}, std::move(top.cells)});
    below.push_back({std::move(top.table)});
}

std::vector<RtfBlock>& RtfFlow::blocksAt(std::size_t level) {
    return level == 0 ? blocks_ : open_[level - 1].cell;
}

} // namespace vorna
