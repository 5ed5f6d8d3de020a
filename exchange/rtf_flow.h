// Puts paragraphs and the ends of cells and rows together to blocks and tables, tables inside a
// cell too. Whatever comes in whichever order, no paragraph gets lost.
#pragma once

#include "exchange/rtf_document.h"

#include <cstddef>
#include <vector>

namespace vorna {

class RtfFlow {
public:
    // The deepest table in a table; what lies deeper joins it.
    static constexpr int deepest = 8;

    // At level 0 in the text, at level n in a cell of the n-th table around it. A table takes the
    // page break of its first paragraph over.
    void addParagraph(RtfParagraph paragraph, int level);

    // The cell, at level 1 or deeper, holds what was added since the one before it.
    void endCell(int level);

    // The row holds the cells since the row before it; nothing happens without one.
    void endRow(int level, const RtfRowDefinition& definition);

    // All blocks, with what was left open closed.
    std::vector<RtfBlock> finish();

private:
    struct OpenTable {
        RtfTable table;
        std::vector<std::vector<RtfBlock>> cells; // of the row that is not ended yet
        std::vector<RtfBlock> cell;
    };

    void moveTo(int level);
    void closeTable();
    std::vector<RtfBlock>& blocksAt(std::size_t level);

    std::vector<RtfBlock> blocks_;
    std::vector<OpenTable> open_; // from the outermost in
};

} // namespace vorna
