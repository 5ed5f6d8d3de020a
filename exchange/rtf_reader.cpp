#include "exchange/rtf_reader.h"

#include "exchange/rtf_fields.h"
#include "exchange/rtf_reading.h"
#include "platform/failure.h"

#include <optional>
#include <utility>

namespace vorna {
namespace {

using Destination = RtfDestination;
using Kind = RtfToken::Kind;

constexpr std::size_t maxDepth = 256; // what lies in deeper groups is left out

// Behind the mark of UTF-8 and line ends, which some programs put in front.
bool isRichText(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    const std::size_t start = bytes.find_first_not_of(" \t\r\n");
    return start != std::string_view::npos && bytes.substr(start).starts_with("{\\rtf");
}

} // namespace

RtfDocument RtfReading::read() {
    while (!finished_) {
        const RtfToken token = tokens_.next();
        if (token.kind == Kind::End)
            break;
        take(token);
    }
    decodePending();
    return body_.finish(body_.isOpen() ? paragraphEnd(level()) : RtfParagraphEnd{});
}

void RtfReading::take(const RtfToken& token) {
    const bool inDepth = deeper_ == 0;
    if (token.kind == Kind::GroupStart)
        beginGroup();
    else if (token.kind == Kind::GroupEnd)
        endGroup();
    else if (inDepth && token.kind == Kind::Word)
        takeWord(token);
    else if (inDepth && token.kind == Kind::Symbol)
        takeSymbol(token.text.front());
    else if (inDepth && token.kind == Kind::HexByte)
        takeHexByte(token.byte);
    else if (inDepth && token.kind == Kind::Text)
        takeBytes(token.text);
    else if (inDepth && token.kind == Kind::Binary && !isFallback() &&
             state().destination == Destination::Picture)
        picture_.takeBytes(token.text);
    const bool star = token.kind == Kind::Symbol && token.text == "*";
    groupBegins_ = token.kind == Kind::GroupStart || (groupBegins_ && star);
    starred_ = groupBegins_ && star;
}

void RtfReading::beginGroup() {
    decodePending();
    fallbackLeft_ = 0;
    if (states_.size() >= maxDepth) {
        ++deeper_;
        return;
    }
    states_.push_back(state());
    state().opensDestination = false;
    state().endsFootnote = false;
    state().endsTextBox = false;
}

void RtfReading::endGroup() {
    decodePending();
    fallbackLeft_ = 0;
    if (deeper_ > 0) {
        --deeper_;
        return;
    }
    const RtfState ended = state();
    finished_ = states_.size() <= 2; // what stands behind the file's own group is no part of it
    if (!finished_)
        states_.pop_back();
    leave(ended);
}

void RtfReading::enter(Destination destination) {
    state().destination = destination;
    state().opensDestination = true;
    if (destination == Destination::Picture)
        picture_ = {};
    else if (destination != Destination::Nowhere && destination != Destination::FormField)
        gathered_.clear(); // those two stand inside a field's instruction
}

// A footnote stands in brackets in its place, a text box in lines of its own.
void RtfReading::enterFlat(bool footnote) {
    enter(Destination::Body);
    state().flat = true;
    state().endsFootnote = footnote;
    state().endsTextBox = !footnote;
    if (!footnote) {
        body_.startLine();
        return;
    }
    state().character.script = 0;
    footnoteBegins_ = true;
}

// The second form of what was written in two forms.
void RtfReading::enterUnlessShown() {
    if (body_.contentCount() > contentBefore_)
        enter(Destination::Nowhere);
    else
        enterFlat(false);
}

void RtfReading::enterListMark() {
    listTextSeen_ = true;
    state().inListMark = true;
}

void RtfReading::enterResult() {
    if (state().skipsResult)
        enter(Destination::Nowhere);
    else if (state().fieldLink >= 0)
        state().character.link = state().fieldLink;
}

void RtfReading::leave(const RtfState& ended) {
    if (ended.destination == Destination::Fonts)
        fonts_.endEntry();
    else if (ended.destination == Destination::Styles)
        styles_.endEntry();
    if (ended.endsFootnote) {
        body_.cancelLine();
        if (!std::exchange(footnoteBegins_, false))
            body_.addText("]", look(ended));
    }
    if (ended.endsTextBox)
        body_.startLine();
    if (!ended.opensDestination)
        return;
    if (ended.destination == Destination::Picture) {
        if (std::optional<RtfPicture> picture = picture_.finish())
            body_.addPicture(std::move(*picture), look(state()));
    } else if (ended.destination == Destination::FieldInstruction) {
        leaveInstruction();
    } else if (ended.destination == Destination::ListLevelText) {
        lists_.setLevelText(gathered_);
    } else if (ended.destination == Destination::Generator) {
        styles_.takeGenerator(gathered_);
    }
}

void RtfReading::leaveInstruction() {
    if (state().destination != Destination::Body)
        return;
    const RtfField field = parseFieldInstruction(gathered_);
    state().fieldLink = field.link.empty() ? -1 : body_.addLink(field.link);
    const std::string shown = !field.isCheckBox                    ? field.text
                              : ticked_.value_or(tickedByDefault_) ? "☒"
                                                                   : "☐";
    state().skipsResult = !shown.empty();
    body_.addText(shown, look(state()));
}

RtfDocument parseRtf(std::string_view bytes) {
    if (!isRichText(bytes))
        throw Failure("a document is no rich text");
    return RtfReading(bytes.substr(bytes.find('{'))).read();
}

} // namespace vorna
