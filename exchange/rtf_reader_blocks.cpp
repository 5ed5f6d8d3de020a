#include "exchange/rtf_reading.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace vorna {

int RtfReading::level() {
    return std::max(state().tableDepth, state().inTable ? 1 : 0);
}

RtfParagraphEnd RtfReading::paragraphEnd(int atLevel) {
    if (std::exchange(sectionBegins_, false) && sectionBreaksPage_ && atLevel == 0)
        body_.breakPage();
    RtfParagraphEnd end{state().paragraph.format, look(state()), atLevel};
    addListMark(end.format);
    return end;
}

void RtfReading::addListMark(RtfParagraphFormat& format) {
    if (listTextSeen_ || state().list == 0)
        return;
    const std::optional<RtfListMark> mark = lists_.nextMark(state().list, state().listLevel);
    if (!mark)
        return;
    body_.addListMark(*mark, look(state()));
    if (format.left == 0 && format.first == 0) {
        format.left = mark->left;
        format.first = mark->first;
    }
}

void RtfReading::endParagraph() {
    if (state().flat)
        body_.startLine();
    else
        body_.endParagraph(paragraphEnd(level()));
}

void RtfReading::endCell(int atLevel) {
    if (state().flat)
        body_.startLine();
    else
        body_.endCell(paragraphEnd(atLevel));
}

void RtfReading::endRow(int atLevel) {
    if (body_.isOpen())
        endCell(atLevel);
    if (!state().flat)
        body_.endRow(atLevel, row().row);
}

void RtfReading::breakPage() {
    if (state().flat || level() > 0)
        return;
    if (body_.isOpen())
        endParagraph();
    body_.breakPage();
}

void RtfReading::beginSection() {
    if (body_.isOpen())
        endParagraph();
    sectionBegins_ = !state().flat;
}

std::span<RtfBorder> RtfReading::borders() {
    std::span<RtfBorder> all;
    if (borderTarget_.owner == RtfBorderTarget::Owner::Paragraph)
        all = state().paragraph.format.borders;
    else if (borderTarget_.owner == RtfBorderTarget::Owner::Row)
        all = row().row.borders;
    else if (borderTarget_.owner == RtfBorderTarget::Owner::Cell)
        all = row().cell.borders;
    else
        return all;
    const auto first = static_cast<std::size_t>(borderTarget_.first);
    return all.subspan(first, static_cast<std::size_t>(borderTarget_.last) - first + 1);
}

} // namespace vorna
