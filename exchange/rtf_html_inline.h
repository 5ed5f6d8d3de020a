// The content of paragraphs as elements of a page.
#pragma once

#include "exchange/rtf_document.h"
#include "exchange/rtf_tab_layout.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vorna {

class RtfInlineWriter {
public:
    // All three must outlive the writer.
    RtfInlineWriter(const RtfDocument& document, const std::vector<std::string>& pictureNames,
                    std::string& page)
        : document_(document), pictureNames_(pictureNames), page_(page) {}

    // What stands between the tags of the paragraph; never empty.
    void write(const RtfParagraph& paragraph);

private:
    std::vector<RtfBox> boxes(const RtfLine& line, bool first) const;
    void writeLine(const RtfLine& line, const std::vector<RtfBox>& boxes);
    void writeSegment(const RtfSegment& segment);
    void writePiece(const RtfPiece& piece);
    void writePicture(const RtfRun& run);
    void writeText(std::string_view text);
    void turnToLink(int link);

    const RtfDocument& document_;
    const std::vector<std::string>& pictureNames_;
    std::string& page_;
    const RtfParagraph* paragraph_ = nullptr;
    int link_ = -1;           // the one that is open
    bool blankBefore_ = true; // a blank here would not show
    std::size_t boxCount_ = 0;
};

// Where the first line begins, from the left edge of the others; never left of the page's text.
int firstLineIndent(const RtfParagraphFormat& format);

} // namespace vorna
