#include "exchange/rtf_reading.h"

#include <algorithm>
#include <utility>

namespace vorna {
namespace {

using Destination = RtfDestination;

constexpr std::size_t maxGatheredBytes = 4096;

} // namespace

bool takesText(Destination destination) {
    return destination == Destination::Body || destination == Destination::FieldInstruction ||
           destination == Destination::ListLevelText || destination == Destination::Generator;
}

void RtfReading::takeBytes(std::string_view bytes) {
    const Destination destination = state().destination;
    if (destination == Destination::Picture) {
        picture_.takeDigits(bytes);
    } else if (destination == Destination::Fonts) {
        fonts_.takeText(bytes);
    } else if (destination == Destination::Colours) {
        for (const char c : bytes)
            if (c == ';')
                colours_.add(std::exchange(colour_, noColour));
    } else if (takesText(destination)) {
        const auto skipped = std::min(static_cast<std::size_t>(fallbackLeft_), bytes.size());
        fallbackLeft_ -= static_cast<int>(skipped);
        pendingBytes_.append(bytes.substr(skipped));
    }
}

void RtfReading::takeHexByte(char byte) {
    if (isFallback())
        return;
    if (state().destination == Destination::ListLevelText && byte >= 0 && byte < 0x20) {
        decodePending();
        addDecoded({&byte, 1});
    } else if (takesText(state().destination)) {
        pendingBytes_ += byte;
    }
}

// Code units above 0x7FFF may be written as negative numbers.
void RtfReading::takeUnicode(int number) {
    const auto unit = static_cast<char32_t>(number < 0 ? number + 0x10000 : number);
    const bool low = unit >= 0xDC00 && unit < 0xE000;
    if (low && highSurrogate_ != 0) {
        const char32_t high = std::exchange(highSurrogate_, 0);
        addCharacter(0x10000 + ((high - 0xD800) << 10U) + (unit - 0xDC00));
    } else if (unit >= 0xD800 && unit < 0xDC00) {
        addDecoded({}); // an earlier half without its other half
        highSurrogate_ = unit;
    } else {
        addCharacter(unit);
    }
    fallbackLeft_ = state().fallbackCount;
}

void RtfReading::addCharacter(char32_t character) {
    decodePending();
    const RtfSymbols symbols = fonts_.font(state().font).symbols;
    const bool isPrivate = character >= 0xF000 && character <= 0xF0FF;
    if (isPrivate || (symbols != RtfSymbols::None && character >= 0x20 && character <= 0xFF))
        character = symbolCharacter(symbols, static_cast<unsigned char>(character & 0xFF));
    std::string text;
    appendCharacter(text, character);
    addDecoded(text);
}

void RtfReading::addDecoded(std::string_view text) {
    std::string whole;
    if (std::exchange(highSurrogate_, 0) != 0)
        appendCharacter(whole, 0xFFFD);
    whole += text;
    if (state().destination == Destination::Body && state().flat)
        addFlat(std::move(whole));
    else if (state().destination == Destination::Body)
        body_.addText(whole, look(state()));
    else if (gathered_.size() + whole.size() <= maxGatheredBytes)
        gathered_ += whole;
}

// Text that joins the paragraph around it: a tab there has no stop.
void RtfReading::addFlat(std::string text) {
    std::replace(text.begin(), text.end(), '\t', ' ');
    if (footnoteBegins_) {
        text.erase(0, text.find_first_not_of(' '));
        footnoteBegins_ = text.empty();
        if (!text.empty())
            text.insert(0, " [");
    }
    body_.addText(text, look(state()));
}

void RtfReading::decodePending() {
    if (pendingBytes_.empty())
        return;
    const std::string bytes = std::exchange(pendingBytes_, {});
    const RtfSymbols symbols = fonts_.font(state().font).symbols;
    if (symbols == RtfSymbols::None || state().destination != Destination::Body) {
        addDecoded(decoder_.decode(bytes, fonts_.codePage(state().font)));
        return;
    }
    std::string signs;
    for (const char c : bytes)
        appendCharacter(signs, symbolCharacter(symbols, static_cast<unsigned char>(c)));
    addDecoded(signs);
}

// True for what stands behind a \u for readers without Unicode.
bool RtfReading::isFallback() {
    if (fallbackLeft_ == 0)
        return false;
    --fallbackLeft_;
    return true;
}

// A list's mark without a look of its own takes that of its paragraph, which comes later.
RtfCharacterFormat RtfReading::look(const RtfState& of) const {
    RtfCharacterFormat format = of.character;
    format.family = fonts_.font(of.font).family;
    if (of.inListMark && of.font < 0 && format.halfPoints == RtfCharacterFormat{}.halfPoints)
        format.halfPoints = paragraphSize;
    return format;
}

} // namespace vorna
