// The grid of a table. Rich text gives each row its own edges; a page wants columns that all rows
// share, and cells that span several of them.
#pragma once

#include "exchange/rtf_document.h"

#include <cstddef>
#include <vector>

namespace vorna {

struct RtfGridCell {
    RtfCellDefinition definition;
    std::size_t column = 0;  // the first one
    std::size_t columns = 1; // how many it spans
    std::size_t rows = 1;
    std::vector<const std::vector<RtfBlock>*> contents; // of all cells that it joins
};

struct RtfGridRow {
    std::size_t emptyColumns = 0; // left of the first cell
    std::vector<RtfGridCell> cells;
};

struct RtfGrid {
    int left = 0; // of the leftmost edge, twips
    // Twips; empty when the rows share too few edges to form columns, and each cell spans one then.
    std::vector<int> columnWidths;
    std::vector<RtfGridRow> rows;
};

// The grid looks into the table. Cells without a definition follow their neighbours.
RtfGrid layoutTable(const RtfTable& table);

} // namespace vorna
