#include "exchange/rtf_html_inline.h"

#include "exchange/rtf_html_style.h"

#include <algorithm>
#include <utility>

namespace vorna {
namespace {

constexpr std::size_t maxBoxes = 20'000; // beyond it a tab is a mere gap
constexpr std::string_view gap = "\u2003";
constexpr std::string_view firmBlank = "&#160;";

std::string escapedAttribute(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '&')
            escaped += "&amp;";
        else
            escaped += c;
    }
    return escaped;
}

// The elements of a look, from the outermost in.
std::vector<std::string_view> elementsOf(const RtfCharacterFormat& format) {
    std::vector<std::string_view> elements;
    if (format.bold)
        elements.emplace_back("b");
    if (format.italic)
        elements.emplace_back("i");
    if (format.underline)
        elements.emplace_back("u");
    if (format.strike)
        elements.emplace_back("s");
    if (format.script != 0)
        elements.emplace_back(format.script > 0 ? "sup" : "sub");
    return elements;
}

CssStyle styleOfBox(const RtfBox& box) {
    CssStyle style;
    style.add("display", "inline-block");
    style.add("min-width", cssLength(box.width));
    style.add("text-indent", "0");
    if (box.alignment != RtfAlignment::Left)
        style.add("text-align", box.alignment == RtfAlignment::Right ? "right" : "center");
    if (box.gap > 0)
        style.add("margin-right", cssLength(box.gap));
    if (box.tight) {
        style.add("box-sizing", "border-box");
        style.add("padding-right", "4pt");
    }
    return style;
}

} // namespace

int firstLineIndent(const RtfParagraphFormat& format) {
    return std::max(format.first, -format.left);
}

void RtfInlineWriter::write(const RtfParagraph& paragraph) {
    paragraph_ = &paragraph;
    RtfLines lines(paragraph.runs);
    RtfLine line;
    const std::size_t start = page_.size();
    for (bool first = true; lines.next(line); first = false) {
        if (!first)
            page_ += "<br/>";
        blankBefore_ = true;
        writeLine(line, boxes(line, first));
    }
    if (page_.size() == start || page_.ends_with("<br/>"))
        page_ += firmBlank; // an empty line has no height
}

std::vector<RtfBox> RtfInlineWriter::boxes(const RtfLine& line, bool first) const {
    const RtfParagraphFormat& format = paragraph_->format;
    const bool atTheLeft =
        (format.alignment == RtfAlignment::Left || format.alignment == RtfAlignment::Justified) &&
        !format.rightToLeft;
    if (line.size() == 1 || !atTheLeft || boxCount_ + line.size() > maxBoxes)
        return std::vector<RtfBox>(line.size());
    const int position = format.left + (first ? firstLineIndent(format) : 0);
    return layoutTabs(line, format.tabs, {position, format.left}, document_.tabWidth);
}

void RtfInlineWriter::writeLine(const RtfLine& line, const std::vector<RtfBox>& boxes) {
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool boxed = boxes[i].width > 0;
        if (boxed) {
            page_ += "<span" + styleOfBox(boxes[i]).attribute() + ">";
            blankBefore_ = true;
            ++boxCount_;
        }
        writeSegment(line[i]);
        if (boxed)
            page_ += "</span>";
        else if (i + 1 < line.size())
            page_ += gap;
        blankBefore_ = false;
    }
}

void RtfInlineWriter::writeSegment(const RtfSegment& segment) {
    for (const RtfPiece& piece : segment) {
        turnToLink(piece.run->format.link);
        writePiece(piece);
    }
    turnToLink(-1);
}

void RtfInlineWriter::writePiece(const RtfPiece& piece) {
    if (piece.run->picture >= 0) {
        writePicture(*piece.run);
        return;
    }
    const RtfCharacterFormat& format = piece.run->format;
    const std::string style = styleOfRun(format, paragraph_->mark).attribute();
    const std::vector<std::string_view> elements = elementsOf(format);
    if (!style.empty())
        page_ += "<span" + style + ">";
    for (const std::string_view element : elements)
        page_.append("<").append(element).append(">");
    writeText(piece.text);
    for (auto element = elements.rbegin(); element != elements.rend(); ++element)
        page_.append("</").append(*element).append(">");
    if (!style.empty())
        page_ += "</span>";
}

// The page scales a picture that is wider than itself, so the height follows the width.
void RtfInlineWriter::writePicture(const RtfRun& run) {
    const auto index = static_cast<std::size_t>(run.picture);
    if (index >= pictureNames_.size() || pictureNames_[index].empty())
        return;
    const RtfPicture& picture = document_.pictures[index];
    CssStyle style;
    style.add("max-width", "100%");
    style.add("height", "auto");
    if (picture.width > 0)
        style.add("width", cssLength(picture.width));
    if (picture.width > 0 && picture.height > 0)
        style.add("aspect-ratio",
                  std::to_string(picture.width) + "/" + std::to_string(picture.height));
    page_ += "<img src=\"" + pictureNames_[index] + "\" alt=\"\"" + style.attribute() + "/>";
    blankBefore_ = false;
}

// Of several blanks every second one is firm, so that none is lost and a line can still be broken.
void RtfInlineWriter::writeText(std::string_view text) {
    for (const char c : text) {
        const bool blank = c == ' ' && !blankBefore_;
        if (c == ' ')
            page_ += blank ? " " : firmBlank;
        else if (c == '&')
            page_ += "&amp;";
        else if (c == '<')
            page_ += "&lt;";
        else if (c == '>')
            page_ += "&gt;";
        else
            page_ += c;
        blankBefore_ = blank;
    }
}

void RtfInlineWriter::turnToLink(int link) {
    if (link == link_)
        return;
    if (link_ >= 0)
        page_ += "</a>";
    link_ = link >= 0 && static_cast<std::size_t>(link) < document_.links.size() ? link : -1;
    if (link_ >= 0)
        page_ += "<a href=\"" + escapedAttribute(document_.links[static_cast<std::size_t>(link)]) +
                 "\">";
}

} // namespace vorna
