// Tabs on a page that knows none: where the text between tabs would stand on paper, so that it can
// be put into boxes of that width. The widths of letters are estimated, since the page chooses its
// own fonts; a box grows with its text.
#pragma once

#include "exchange/rtf_document.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace vorna {

// Text of one look without tabs and line ends, or a picture.
struct RtfPiece {
    const RtfRun* run;
    std::string_view text;
};
using RtfSegment = std::vector<RtfPiece>; // between two tabs
using RtfLine = std::vector<RtfSegment>;  // n tabs give n + 1 segments

// Cuts a paragraph into lines, at least one; they look into the runs.
class RtfLines {
public:
    explicit RtfLines(const std::vector<RtfRun>& runs) : runs_(runs) {}

    // False when there is no further line.
    bool next(RtfLine& line);

private:
    const std::vector<RtfRun>& runs_;
    std::size_t run_ = 0;
    std::size_t at_ = 0; // in the run's text
    bool done_ = false;
};

// The box of a segment. Behind one without a width a tab is a mere gap.
struct RtfBox {
    int width = 0; // twips
    RtfAlignment alignment = RtfAlignment::Left;
    int gap = 0;        // right of it, twips
    bool tight = false; // the text may fill it
};

struct RtfLineStart {
    int position = 0; // of the line's first character
    int hanging = 0;  // where the lines below begin, a stop of its own when it lies further right
};

// One box for each segment of the line.
std::vector<RtfBox> layoutTabs(const RtfLine& line, const std::vector<RtfTab>& tabs,
                               RtfLineStart start, int tabWidth);

} // namespace vorna
