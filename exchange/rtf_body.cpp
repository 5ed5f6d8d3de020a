#include "exchange/rtf_body.h"

#include <algorithm>
#include <utility>

namespace vorna {
namespace {

constexpr std::size_t maxTextBytes = 8U << 20U;
constexpr std::size_t maxRuns = 300'000;
constexpr std::size_t maxBlocks = 100'000; // paragraphs and cells
constexpr std::size_t maxPictures = 500;
constexpr std::size_t maxLinks = 20'000;

// At most so many bytes, and no half character at their end.
std::string_view wholeCharacters(std::string_view text, std::size_t bytes) {
    while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0U) == 0x80U)
        --bytes;
    return text.substr(0, bytes);
}

// The first block begins no page: something may stand in front of it.
void removePageBreak(RtfBlock& block) {
    if (auto* const paragraph = std::get_if<RtfParagraph>(&block.content))
        paragraph->format.pageBreakBefore = false;
    else
        std::get<RtfTable>(block.content).pageBreakBefore = false;
}

} // namespace

void RtfBody::addText(std::string_view text, const RtfCharacterFormat& format) {
    if (textBytes_ + text.size() > maxTextBytes)
        text = wholeCharacters(text, maxTextBytes - textBytes_);
    if (text.empty() || format.hidden)
        return;
    beginContent(format);
    textBytes_ += text.size();
    runFor(format).text += text;
}

void RtfBody::addPicture(RtfPicture picture, const RtfCharacterFormat& format) {
    if (format.hidden || document_.pictures.size() >= maxPictures)
        return;
    beginContent(format);
    document_.pictures.push_back(std::move(picture));
    RtfRun& run = paragraph_.runs.emplace_back();
    run.format = format;
    run.picture = static_cast<int>(document_.pictures.size()) - 1;
}

int RtfBody::addLink(std::string address) {
    if (document_.links.size() >= maxLinks)
        return -1;
    document_.links.push_back(std::move(address));
    return static_cast<int>(document_.links.size()) - 1;
}

void RtfBody::addListMark(const RtfListMark& mark, const RtfCharacterFormat& format) {
    if (runs_ >= maxRuns)
        return;
    ++runs_;
    RtfRun run{format, mark.text + "\t"};
    run.format.link = -1;
    paragraph_.runs.insert(paragraph_.runs.begin(), std::move(run));
}

void RtfBody::endParagraph(RtfParagraphEnd end) {
    if (!takeBlock()) {
        startLine();
        return;
    }
    paragraph_.format = std::move(end.format);
    paragraph_.format.pageBreakBefore |= std::exchange(pageBreak_, false);
    paragraph_.mark = end.mark;
    for (RtfRun& run : paragraph_.runs) {
        if (run.format.halfPoints != paragraphSize)
            continue;
        run.format.halfPoints = end.mark.halfPoints;
        run.format.family = end.mark.family;
    }
    const bool hasTab =
        std::any_of(paragraph_.runs.begin(), paragraph_.runs.end(),
                    [](const RtfRun& run) { return run.text.find('\t') != std::string::npos; });
    if (!hasTab)
        paragraph_.format.tabs.clear();
    flow_.addParagraph(std::exchange(paragraph_, {}), end.level);
    lineWanted_ = false;
}

void RtfBody::endCell(RtfParagraphEnd end) {
    const int level = end.level;
    endParagraph(std::move(end));
    if (takeBlock())
        flow_.endCell(level);
}

void RtfBody::endRow(int level, const RtfRowDefinition& definition) {
    flow_.endRow(level, definition);
}

RtfDocument RtfBody::finish(RtfParagraphEnd end) {
    blocks_ = 0; // the last paragraph is kept in any case
    if (isOpen())
        endParagraph(std::move(end));
    document_.blocks = flow_.finish();
    if (!document_.blocks.empty())
        removePageBreak(document_.blocks.front());
    return std::move(document_);
}

// Beyond the bound the last run of text takes it all, in its own look.
RtfRun& RtfBody::runFor(const RtfCharacterFormat& format) {
    std::vector<RtfRun>& runs = paragraph_.runs;
    const bool text = !runs.empty() && runs.back().picture < 0;
    if (text && (runs.back().format == format || runs_ >= maxRuns))
        return runs.back();
    ++runs_;
    RtfRun& run = runs.emplace_back();
    run.format = format;
    return run;
}

void RtfBody::beginContent(const RtfCharacterFormat& format) {
    ++contents_;
    if (std::exchange(lineWanted_, false) && isOpen())
        runFor(format).text += '\n';
}

bool RtfBody::takeBlock() {
    return blocks_++ < maxBlocks;
}

} // namespace vorna
