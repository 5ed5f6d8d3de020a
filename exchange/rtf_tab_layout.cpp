#include "exchange/rtf_tab_layout.h"

#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace vorna {
namespace {

// Twips.
constexpr int widestText = 6000; // longer text may wrap, and where it ends is not known
constexpr int rightmostStop = 11000;
constexpr int smallestGap = 60;

// Hundredths of the letters' size, of the wider ones among the usual fonts.
int widthOfCharacter(char32_t character) {
    if (character >= 0x80)
        return character >= 0x2E80 ? 100 : 62;
    const char c = static_cast<char>(character);
    if (std::string_view(" ijl.,:;'|!I").find(c) != std::string_view::npos)
        return 28;
    if (std::string_view("frt()[]-/\"`").find(c) != std::string_view::npos)
        return 40;
    if (std::string_view("mwMW@%").find(c) != std::string_view::npos)
        return 92;
    return c >= 'A' && c <= 'Z' ? 66 : 58;
}

// Twips, or any number beyond widestText.
int widthOfPiece(const RtfPiece& piece) {
    const RtfCharacterFormat& format = piece.run->format;
    const int twips = format.halfPoints * 10 * (format.bold ? 106 : 100) / 100;
    if (piece.run->picture >= 0)
        return widestText + 1;
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(piece.text.data());
    int width = 0;
    for (std::size_t at = 0; at < piece.text.size() && width <= widestText;) {
        UChar32 character = 0;
        U8_NEXT_OR_FFFD(bytes, at, piece.text.size(), character);
        width += widthOfCharacter(static_cast<char32_t>(character)) * twips / 100;
    }
    return width;
}

int widthOfSegment(const RtfSegment& segment) {
    int width = 0;
    for (const RtfPiece& piece : segment)
        width = std::min(width + widthOfPiece(piece), widestText + 1);
    return width;
}

RtfTab stopBehind(int position, const std::vector<RtfTab>& tabs, int hanging, int tabWidth) {
    const auto own = std::find_if(tabs.begin(), tabs.end(), [position](const RtfTab& tab) {
        return tab.position > position;
    });
    if (hanging > position && (own == tabs.end() || own->position > hanging))
        return {hanging};
    return own != tabs.end() ? *own : RtfTab{(position / tabWidth + 1) * tabWidth};
}

// The box of a segment that ends at a stop, or is centred at it; `room` is free before the stop.
RtfBox alignedBox(int width, int room, RtfAlignment alignment) {
    return {std::max(alignment == RtfAlignment::Right ? room : room * 2, width), alignment};
}

} // namespace

bool RtfLines::next(RtfLine& line) {
    line.assign(1, {});
    if (std::exchange(done_, true))
        return false;
    for (; run_ < runs_.size(); ++run_, at_ = 0) {
        const RtfRun& run = runs_[run_];
        if (run.picture >= 0)
            line.back().push_back({&run, {}});
        while (at_ < run.text.size()) {
            const std::string_view rest = std::string_view(run.text).substr(at_);
            const std::size_t end = std::min(rest.find_first_of("\t\n"), rest.size());
            if (end > 0)
                line.back().push_back({&run, rest.substr(0, end)});
            at_ += end + 1;
            if (end < rest.size() && rest[end] == '\t')
                line.emplace_back();
            else if (end < rest.size())
                return !(done_ = false);
        }
    }
    return true;
}

std::vector<RtfBox> layoutTabs(const RtfLine& line, const std::vector<RtfTab>& tabs,
                               RtfLineStart start, int tabWidth) {
    std::vector<RtfBox> boxes(line.size());
    int position = start.position;
    int room = 0; // up to the stop that the segment ends or stands centred at
    RtfAlignment alignment = RtfAlignment::Left;
    for (std::size_t i = 0; i < line.size() && line.size() > 1; ++i) {
        position = std::min(position, rightmostStop);
        const int width = widthOfSegment(line[i]);
        const bool last = i + 1 == line.size();
        const bool aligned = alignment != RtfAlignment::Left;
        if (aligned)
            boxes[i] = alignedBox(width, room, alignment);
        // The estimate is a wide one: a stop that it just misses is taken nevertheless.
        const int end = position + (aligned ? boxes[i].width : width * 9 / 10);
        const RtfTab stop = stopBehind(end, tabs, start.hanging, tabWidth);
        alignment = RtfAlignment::Left;
        if (last || width > widestText || stop.position > rightmostStop) {
            position = std::max(end, position + width) + smallestGap;
            continue;
        }
        alignment = stop.alignment;
        const int free = stop.position - position - std::max(boxes[i].width, width);
        room = std::max(free, 0);
        if (aligned) {
            boxes[i].gap = alignment == RtfAlignment::Left ? room : 0;
        } else {
            boxes[i].width =
                alignment == RtfAlignment::Left ? stop.position - position : std::max(width, 1);
            boxes[i].tight = alignment == RtfAlignment::Left && free < smallestGap;
        }
        position += boxes[i].width + boxes[i].gap;
    }
    return boxes;
}

} // namespace vorna
