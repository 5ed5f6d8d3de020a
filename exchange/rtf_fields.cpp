#include "exchange/rtf_fields.h"

#include "exchange/rtf_code_pages.h"
#include "platform/text.h"

#include <algorithm>
#include <charconv>
#include <utility>
#include <vector>

namespace vorna {
namespace {

constexpr std::size_t maxAddressBytes = 2048;

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n';
}

// Cuts the next piece off: what stands between quotes, or up to the next blank.
std::string_view nextPiece(std::string_view& rest) {
    while (!rest.empty() && isBlank(rest.front()))
        rest.remove_prefix(1);
    const bool quoted = rest.starts_with('"');
    if (quoted)
        rest.remove_prefix(1);
    const std::size_t end =
        std::min(quoted ? rest.find('"') : rest.find_first_of(" \t\n\""), rest.size());
    const std::string_view piece = rest.substr(0, end);
    rest.remove_prefix(quoted ? std::min(end + 1, rest.size()) : end);
    return piece;
}

// The first piece that is no switch of the instruction; the places and tips that switches name are
// passed over.
std::string_view target(std::string_view rest) {
    while (!rest.empty()) {
        const std::string_view piece = nextPiece(rest);
        if (!piece.starts_with('\\'))
            return piece;
        if (piece == "\\l" || piece == "\\o" || piece == "\\t")
            nextPiece(rest);
    }
    return {};
}

std::string symbol(std::string_view rest) {
    const std::string_view number = nextPiece(rest);
    unsigned code = 0;
    std::from_chars(number.data(), number.data() + number.size(), code);
    RtfSymbols symbols = RtfSymbols::None;
    while (!rest.empty())
        if (nextPiece(rest) == "\\f")
            symbols = symbolsOfFont(nextPiece(rest));
    std::string text;
    if (code >= 0x20)
        appendCharacter(text, symbols != RtfSymbols::None && code <= 0xFF
                                  ? symbolCharacter(symbols, static_cast<unsigned char>(code))
                                  : code);
    return text;
}

} // namespace

RtfField parseFieldInstruction(std::string_view instruction) {
    const std::string_view kind = nextPiece(instruction);
    RtfField field;
    if (equalFolded(kind, "HYPERLINK"))
        field.link = safeAddress(target(instruction));
    else if (equalFolded(kind, "SYMBOL"))
        field.text = symbol(instruction);
    else
        field.isCheckBox = equalFolded(kind, "FORMCHECKBOX");
    return field;
}

std::string safeAddress(std::string_view address) {
    constexpr std::string_view plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
        "-._~:/?#[]@!$&()*+,;=%";
    const std::string start = foldCase(address.substr(0, 8));
    if (address.size() > maxAddressBytes ||
        !(start.starts_with("http://") || start.starts_with("https://") ||
          start.starts_with("mailto:")))
        return {};
    const std::size_t scheme = start.find(':');
    std::string safe = start.substr(0, scheme);
    for (const char c : address.substr(scheme)) {
        constexpr std::string_view digits = "0123456789ABCDEF";
        const auto byte = static_cast<unsigned char>(c);
        if (plain.find(c) != std::string_view::npos)
            safe += c;
        else
            safe.append({'%', digits[byte >> 4U], digits[byte & 15U]});
    }
    return safe;
}

} // namespace vorna
