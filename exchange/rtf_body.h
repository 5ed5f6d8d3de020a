// The text of a document while it is read: gathers runs to paragraphs and paragraphs to the
// document, within bounds that no real document comes near. Beyond the bound of runs or blocks the
// text goes on in the last look and paragraph; beyond the bound of text it ends.
#pragma once

#include "exchange/rtf_document.h"
#include "exchange/rtf_flow.h"
#include "exchange/rtf_lists.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace vorna {

// Where a paragraph stands and how it looks.
struct RtfParagraphEnd {
    RtfParagraphFormat format;
    RtfCharacterFormat mark;
    int level = 0; // 0 in the text, n in a cell of the n-th table around it
};

// The size of letters that are to look as those of their paragraph's end.
constexpr int paragraphSize = 0;

class RtfBody {
public:
    void addText(std::string_view text, const RtfCharacterFormat& format);
    void addPicture(RtfPicture picture, const RtfCharacterFormat& format);
    // The index by which a look names the link; -1 when there are too many.
    int addLink(std::string address);

    // The mark of a list's paragraph, before all that the paragraph has.
    void addListMark(const RtfListMark& mark, const RtfCharacterFormat& format);
    // What comes next in this paragraph begins a new line, unless it begins the paragraph.
    void startLine() { lineWanted_ = true; }
    void cancelLine() { lineWanted_ = false; }
    // The next paragraph begins a new page.
    void breakPage() { pageBreak_ = true; }

    void endParagraph(RtfParagraphEnd end);
    // Ends the paragraph with the cell.
    void endCell(RtfParagraphEnd end);
    void endRow(int level, const RtfRowDefinition& definition);

    // True when something stands in the paragraph that is not ended yet.
    [[nodiscard]] bool isOpen() const { return !paragraph_.runs.empty(); }
    // Grows with everything that is added.
    [[nodiscard]] std::size_t contentCount() const { return contents_; }
    void setTabWidth(int twips) { document_.tabWidth = twips; }

    // The whole document; what is still open is ended.
    RtfDocument finish(RtfParagraphEnd end);

private:
    RtfRun& runFor(const RtfCharacterFormat& format);
    void beginContent(const RtfCharacterFormat& format);
    bool takeBlock();

    RtfDocument document_;
    RtfFlow flow_;
    RtfParagraph paragraph_;
    bool lineWanted_ = false;
    bool pageBreak_ = false;
    std::size_t contents_ = 0;
    std::size_t textBytes_ = 0;
    std::size_t runs_ = 0;
    std::size_t blocks_ = 0;
};

} // namespace vorna
