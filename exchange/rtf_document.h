// A rich-text document as it was understood: paragraphs and tables, runs of text with their looks,
// pictures. Lengths are twips (a twentieth of a point) unless a name tells otherwise, and lie in
// the ranges that a page has.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace vorna {

constexpr int noColour = -1; // otherwise 0xRRGGBB

// The kind of letters; None is the page's own.
enum class RtfFamily : std::uint8_t { None, Serif, Monospace, Cursive };

struct RtfCharacterFormat {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    bool capitals = false;
    bool smallCapitals = false;
    bool hidden = false;
    std::int8_t script = 0; // 1 above the line, -1 below it
    RtfFamily family = RtfFamily::None;
    int halfPoints = 24;
    int colour = noColour;
    int background = noColour;
    int link = -1; // index in the document's links, -1 for none

    bool operator==(const RtfCharacterFormat&) const = default;
};

struct RtfBorder {
    enum class Style : std::uint8_t { None, Solid, Double, Dotted, Dashed };

    Style style = Style::None;
    bool named = false; // the file speaks of it, if only to say that there is none
    int width = 15;
    int colour = noColour;
    int space = 0; // between it and the text

    bool operator==(const RtfBorder&) const = default;
};

enum RtfSide { rtfTop, rtfRight, rtfBottom, rtfLeft, rtfInnerHorizontal, rtfInnerVertical };
using RtfBorders = std::array<RtfBorder, 4>;

enum class RtfAlignment : std::uint8_t { Left, Right, Centre, Justified };

struct RtfTab {
    int position = 0; // from the left edge of the text
    RtfAlignment alignment = RtfAlignment::Left;
};

struct RtfParagraphFormat {
    RtfAlignment alignment = RtfAlignment::Left;
    bool rightToLeft = false;
    bool pageBreakBefore = false;
    bool keepWithNext = false;
    bool keepTogether = false;
    int left = 0;
    int right = 0;
    int first = 0; // beyond `left`; negative when the first line hangs out
    int before = 0;
    int after = 0;
    int lineMultiple = 0; // of a single line's height in 240ths, 0 for the page's own
    int background = noColour;
    RtfBorders borders;
    std::vector<RtfTab> tabs; // ascending
};

// Text of one look, or a picture. In the text '\t' is a tab and '\n' a new line.
struct RtfRun {
    RtfCharacterFormat format;
    std::string text;
    int picture = -1; // index in the document's pictures
};

struct RtfParagraph {
    RtfParagraphFormat format;
    RtfCharacterFormat mark; // of the paragraph's end: it gives an empty line its height
    std::vector<RtfRun> runs;
};

enum class RtfVertical : std::uint8_t { Top, Middle, Bottom };

// What a row says of one of its cells.
struct RtfCellDefinition {
    enum class Merge : std::uint8_t { None, First, Next };

    int rightEdge = 0;
    int gap = -1;               // at the left and right of its text; -1 for the row's
    Merge across = Merge::None; // with the cells right of it
    Merge down = Merge::None;   // with the cells below it
    RtfVertical vertical = RtfVertical::Top;
    int background = noColour;
    RtfBorders borders;
};

struct RtfRowDefinition {
    int left = 0;
    int gap = 108; // at the left and right of the cells' texts
    RtfAlignment alignment = RtfAlignment::Left;
    std::array<RtfBorder, 6> borders; // of cells that say nothing of their own
    std::vector<RtfCellDefinition> cells;
};

struct RtfBlock;

struct RtfRow {
    RtfRowDefinition definition;
    std::vector<std::vector<RtfBlock>> cells; // as many as the text has, whatever is defined
};

struct RtfTable {
    bool pageBreakBefore = false;
    std::vector<RtfRow> rows;
};

struct RtfBlock {
    std::variant<RtfParagraph, RtfTable> content;
};

struct RtfPicture {
    std::string bytes;     // a whole file
    std::string extension; // what the bytes are: png, jpg or bmp
    int width = 0;         // as shown; 0 when the file tells none
    int height = 0;
};

struct RtfDocument {
    std::vector<RtfBlock> blocks;
    std::vector<RtfPicture> pictures;
    std::vector<std::string> links; // addresses that begin with http:, https: or mailto:
    int tabWidth = 720;             // between the stops that no paragraph sets
};

} // namespace vorna
