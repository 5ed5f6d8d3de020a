#include "exchange/rtf_html.h"

#include "exchange/rtf_html_inline.h"
#include "exchange/rtf_html_style.h"
#include "exchange/rtf_table_grid.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <utility>

namespace vorna {
namespace {

// The page's body alone goes into a report, so everything that matters stands in the elements.
constexpr std::string_view pageStart =
    "<!DOCTYPE html>\n"
    "<html>\n"
    "<head>\n"
    "<meta charset=\"utf-8\"/>\n"
    "<title>Test Page</title>\n"
    "<style>body{font-family:sans-serif}</style>\n"
    "</head>\n"
    "<body>\n"
    "<div style=\"line-height:1.25;overflow-wrap:break-word\">\n";
constexpr std::string_view pageEnd = "</div>\n"
                                     "</body>\n"
                                     "</html>\n";
constexpr int singleLine = 125; // hundredths of the letters' size

std::string hundredths(int value) {
    std::string text =
        std::to_string(value / 100) + "." + std::to_string(value % 100 + 100).substr(1);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text;
}

bool hasBorder(const RtfBorders& borders) {
    return std::any_of(borders.begin(), borders.end(), [](const RtfBorder& border) {
        return border.style != RtfBorder::Style::None;
    });
}

// Neighbours with the same borders stand in one frame.
bool shareFrame(const RtfParagraph* above, const RtfParagraph* below) {
    return above != nullptr && below != nullptr && hasBorder(above->format.borders) &&
           above->format.borders == below->format.borders &&
           above->format.left == below->format.left && above->format.right == below->format.right;
}

const RtfParagraph* paragraphAt(std::span<const RtfBlock> blocks, std::size_t index) {
    return index < blocks.size() ? std::get_if<RtfParagraph>(&blocks[index].content) : nullptr;
}

class PageWriter {
public:
    PageWriter(const RtfDocument& document, const std::vector<std::string>& pictureNames)
        : inline_(document, pictureNames, page_) {}

    std::string write(const std::vector<RtfBlock>& blocks) {
        page_ = pageStart;
        writeBlocks(blocks);
        page_ += pageEnd;
        return std::move(page_);
    }

private:
    struct Neighbours {
        const RtfParagraph* above;
        const RtfParagraph* below;
    };

    void writeBlocks(std::span<const RtfBlock> blocks) {
        for (std::size_t i = 0; i < blocks.size(); ++i) {
            if (const RtfParagraph* const paragraph = paragraphAt(blocks, i))
                writeParagraph(*paragraph,
                               {paragraphAt(blocks, i - 1), paragraphAt(blocks, i + 1)});
            else
                writeTable(std::get<RtfTable>(blocks[i].content));
        }
    }

    void writeParagraph(const RtfParagraph& paragraph, Neighbours neighbours);
    void writeTable(const RtfTable& table);
    void writeColumns(const RtfGrid& grid);
    void writeCell(const RtfGridCell& cell, const RtfRowDefinition& row, bool firstRow,
                   bool lastRow);

    std::string page_;
    RtfInlineWriter inline_;
};

// The space of two neighbours adds up, which margins on a page do not.
int spaceAbove(const RtfParagraphFormat& format, const RtfParagraph* above) {
    return format.before + (above != nullptr ? above->format.after : 0);
}

void addPrinting(CssStyle& style, const RtfParagraphFormat& format) {
    if (format.pageBreakBefore)
        style.add("page-break-before", "always");
    if (format.keepWithNext)
        style.add("page-break-after", "avoid");
    if (format.keepTogether)
        style.add("page-break-inside", "avoid");
}

void addAlignment(CssStyle& style, const RtfParagraphFormat& format) {
    static constexpr std::string_view names[] = {"left", "right", "center", "justify"};
    if (format.rightToLeft)
        style.add("direction", "rtl");
    if (format.alignment != RtfAlignment::Left || format.rightToLeft)
        style.add("text-align", names[static_cast<std::size_t>(format.alignment)]);
}

void PageWriter::writeParagraph(const RtfParagraph& paragraph, Neighbours neighbours) {
    const RtfParagraphFormat& format = paragraph.format;
    const bool framedAbove = shareFrame(neighbours.above, &paragraph);
    const bool framedBelow = shareFrame(&paragraph, neighbours.below);
    const int above = spaceAbove(format, neighbours.above);
    CssStyle style;
    style.add("margin", cssLength(framedAbove ? 0 : above) + " " + cssLength(format.right) + " " +
                            cssLength(neighbours.below == nullptr ? format.after : 0) + " " +
                            cssLength(format.left));
    if (framedAbove && above > 0)
        style.add("padding-top", cssLength(above));
    if (firstLineIndent(format) != 0)
        style.add("text-indent", cssLength(firstLineIndent(format)));
    addAlignment(style, format);
    if (format.lineMultiple != 0)
        style.add("line-height", hundredths(format.lineMultiple * singleLine / 240));
    addLetters(style, paragraph.mark);
    if (format.background != noColour)
        style.add("background-color", cssColour(format.background));
    RtfBorders borders = format.borders;
    if (framedAbove)
        borders[rtfTop] = {};
    if (framedBelow)
        borders[rtfBottom] = {};
    addBorders(style, borders, true);
    addPrinting(style, format);
    page_ += "<p" + style.attribute() + ">";
    inline_.write(paragraph);
    page_ += "</p>\n";
}

void PageWriter::writeTable(const RtfTable& table) {
    const RtfGrid grid = layoutTable(table);
    const RtfRowDefinition& first = table.rows.front().definition;
    CssStyle style;
    style.add("border-collapse", "collapse");
    if (first.alignment == RtfAlignment::Left)
        style.add("margin", "0 0 0 " + cssLength(std::clamp(grid.left, 0, 8000)));
    else
        style.add("margin", first.alignment == RtfAlignment::Right ? "0 0 0 auto" : "0 auto");
    if (!grid.columnWidths.empty())
        style.add("width", cssLength(std::accumulate(grid.columnWidths.begin(),
                                                     grid.columnWidths.end(), 0)));
    style.add("max-width", "100%");
    if (table.pageBreakBefore)
        style.add("page-break-before", "always");
    page_ += "<table" + style.attribute() + ">\n";
    writeColumns(grid);
    page_ += "<tbody>\n";
    for (std::size_t i = 0; i < grid.rows.size(); ++i) {
        page_ += "<tr>";
        if (grid.rows[i].emptyColumns > 0)
            page_ += "<td colspan=\"" + std::to_string(grid.rows[i].emptyColumns) + "\"></td>";
        for (const RtfGridCell& cell : grid.rows[i].cells)
            writeCell(cell, table.rows[i].definition, i == 0, i + cell.rows >= grid.rows.size());
        page_ += "</tr>\n";
    }
    page_ += "</tbody>\n</table>\n";
}

void PageWriter::writeColumns(const RtfGrid& grid) {
    const int total = std::accumulate(grid.columnWidths.begin(), grid.columnWidths.end(), 0);
    if (total == 0)
        return;
    page_ += "<colgroup>";
    for (const int width : grid.columnWidths)
        page_ +=
            "<col style=\"width:" + hundredths(static_cast<int>(width * 10000LL / total)) + "%\"/>";
    page_ += "</colgroup>\n";
}

// A side of which the cell says nothing is drawn as the row says.
RtfBorders bordersOfCell(const RtfGridCell& cell, const RtfRowDefinition& row, bool firstRow,
                         bool lastRow) {
    RtfBorders borders = cell.definition.borders;
    const bool lastCell =
        !row.cells.empty() && cell.definition.rightEdge >= row.cells.back().rightEdge;
    const RtfSide sides[] = {
        firstRow ? rtfTop : rtfInnerHorizontal, lastCell ? rtfRight : rtfInnerVertical,
        lastRow ? rtfBottom : rtfInnerHorizontal, cell.column == 0 ? rtfLeft : rtfInnerVertical};
    for (std::size_t side = 0; side < borders.size(); ++side)
        if (!borders[side].named)
            borders[side] = row.borders[sides[side]];
    return borders;
}

void PageWriter::writeCell(const RtfGridCell& cell, const RtfRowDefinition& row, bool firstRow,
                           bool lastRow) {
    static constexpr std::string_view heights[] = {"top", "middle", "bottom"};
    CssStyle style;
    const int gap = cell.definition.gap >= 0 ? cell.definition.gap : row.gap;
    style.add("padding", "1pt " + cssLength(gap));
    style.add("vertical-align", heights[static_cast<std::size_t>(cell.definition.vertical)]);
    if (cell.definition.background != noColour)
        style.add("background-color", cssColour(cell.definition.background));
    addBorders(style, bordersOfCell(cell, row, firstRow, lastRow), false);
    page_ += "<td";
    if (cell.columns > 1)
        page_ += " colspan=\"" + std::to_string(cell.columns) + "\"";
    if (cell.rows > 1)
        page_ += " rowspan=\"" + std::to_string(cell.rows) + "\"";
    page_ += style.attribute() + ">\n";
    for (const std::vector<RtfBlock>* content : cell.contents)
        writeBlocks(*content);
    page_ += "</td>";
}

} // namespace

std::string formatRtfHtml(const RtfDocument& document,
                          const std::vector<std::string>& pictureNames) {
    return PageWriter(document, pictureNames).write(document.blocks);
}

} // namespace vorna
