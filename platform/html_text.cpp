#include "platform/html_text.h"

#include "platform/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace vorna {
namespace {

constexpr std::string_view blanks = " \t\r\n\f";

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isNameCharacter(char c) {
    return isLetter(c) || (c >= '0' && c <= '9') || c == '-' || c == '_';
}

void appendUtf8(std::string& text, std::uint32_t c) {
    const auto tail = [&](unsigned shift) { text += char(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        text += char(c);
    } else if (c < 0x800) {
        text += char(0xC0 | (c >> 6));
        tail(0);
    } else if (c < 0x10000) {
        text += char(0xE0 | (c >> 12));
        tail(6);
        tail(0);
    } else {
        text += char(0xF0 | (c >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

// The character of a reference between & and ; or nothing when it is none.
std::optional<std::uint32_t> referenced(std::string_view name) {
    struct Named {
        std::string_view name;
        std::uint32_t character;
    };
    static constexpr std::array<Named, 6> table{
        {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}, {"nbsp", 0xA0}}};
    for (const Named& named : table) {
        if (named.name == name)
            return named.character;
    }
    if (name.size() < 2 || name.front() != '#')
        return std::nullopt;
    name.remove_prefix(1);
    const bool hex = name.front() == 'x' || name.front() == 'X';
    if (hex)
        name.remove_prefix(1);
    std::uint32_t character = 0;
    const auto [end, error] =
        std::from_chars(name.data(), name.data() + name.size(), character, hex ? 16 : 10);
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    if (error != std::errc{} || end != name.data() + name.size() || character < ' ' ||
        character > 0x10FFFF || surrogate)
        return std::nullopt;
    return character;
}

// Tags that stand within a word's line: no blank comes of them.
bool isInline(std::string_view name) {
    static constexpr std::array<std::string_view, 11> names{
        "a", "b", "code", "em", "i", "kbd", "span", "strong", "sub", "sup", "u"};
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool isUnseen(std::string_view name) {
    return name == "head" || name == "script" || name == "style";
}

void appendWords(std::string& result, std::string_view text) {
    for (const char c : text) {
        if (blanks.find(c) == std::string_view::npos)
            result += c;
        else if (!result.empty() && result.back() != ' ')
            result += ' ';
    }
}

std::string_view cut(std::string_view text, std::size_t from, std::size_t to) {
    return from >= text.size() ? std::string_view{} : text.substr(from, to - from);
}

} // namespace

bool HtmlScanner::skipComment() {
    const std::string_view here = page_.substr(position_);
    if (!here.starts_with("<!") && !here.starts_with("<?"))
        return false;
    const bool comment = here.starts_with("<!--");
    const std::size_t end = comment ? page_.find("-->", position_ + 4) : page_.find('>', position_);
    position_ = end == std::string_view::npos ? page_.size() : end + (comment ? 3 : 1);
    return true;
}

std::optional<HtmlPiece> HtmlScanner::tag() {
    std::size_t at = position_ + 1;
    HtmlPiece piece;
    piece.kind = HtmlPiece::Kind::Open;
    if (at < page_.size() && page_[at] == '/') {
        piece.kind = HtmlPiece::Kind::Close;
        ++at;
    }
    if (at >= page_.size() || !isLetter(page_[at]))
        return std::nullopt;
    const std::size_t name = at;
    while (at < page_.size() && isNameCharacter(page_[at]))
        ++at;
    piece.name = foldCase(page_.substr(name, at - name));
    const std::size_t attributes = at;
    for (char quote = 0; at < page_.size() && (quote != 0 || page_[at] != '>'); ++at) {
        if (quote == 0 && (page_[at] == '"' || page_[at] == '\''))
            quote = page_[at];
        else if (page_[at] == quote)
            quote = 0;
    }
    piece.rest = cut(page_, attributes, at);
    position_ = std::min(at + 1, page_.size());
    return piece;
}

std::optional<HtmlPiece> HtmlScanner::next() {
    while (position_ < page_.size()) {
        if (page_[position_] == '<') {
            if (skipComment())
                continue;
            if (std::optional<HtmlPiece> piece = tag())
                return piece;
        }
        const std::size_t from = position_;
        position_ = std::min(page_.find('<', from + 1), page_.size());
        HtmlPiece text;
        text.rest = page_.substr(from, position_ - from);
        return text;
    }
    return std::nullopt;
}

std::string withoutReferences(std::string_view text) {
    constexpr std::size_t longestReference = 10;
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::size_t end =
            text[at] == '&' ? text.substr(at, longestReference).find(';') : std::string_view::npos;
        const auto character =
            end == std::string_view::npos ? std::nullopt : referenced(text.substr(at + 1, end - 1));
        if (character) {
            appendUtf8(result, *character);
            at += end;
        } else {
            result += text[at];
        }
    }
    return result;
}

std::string attributeOf(const HtmlPiece& tag, std::string_view name) {
    const std::string_view text = tag.rest;
    std::size_t at = 0;
    const auto skip = [&](auto&& wanted) {
        while (at < text.size() && wanted(text[at]))
            ++at;
    };
    const auto isBlank = [](char c) { return blanks.find(c) != std::string_view::npos; };
    while (at < text.size()) {
        skip([](char c) { return !isNameCharacter(c); });
        const std::size_t nameAt = at;
        skip(isNameCharacter);
        const bool found = equalFolded(cut(text, nameAt, at), name);
        skip(isBlank);
        if (at >= text.size() || text[at] != '=')
            continue;
        ++at;
        skip(isBlank);
        const char quote =
            at < text.size() && (text[at] == '"' || text[at] == '\'') ? text[at] : '\0';
        at += quote != 0 ? 1 : 0;
        const std::size_t valueAt = at;
        skip([&](char c) { return quote != 0 ? c != quote : !isBlank(c); });
        if (found)
            return withoutReferences(cut(text, valueAt, at));
        at += quote != 0 ? 1 : 0;
    }
    return {};
}

std::string pageTitle(std::string_view page) {
    HtmlScanner scanner(page);
    while (const auto piece = scanner.next()) {
        if (piece->kind != HtmlPiece::Kind::Open || piece->name != "title")
            continue;
        const auto text = scanner.next();
        if (!text || text->kind != HtmlPiece::Kind::Text)
            return {};
        std::string title;
        appendWords(title, withoutReferences(text->rest));
        return std::string(trimmed(title));
    }
    return {};
}

std::string pageText(std::string_view page) {
    std::string result;
    std::string unseen; // the element that is passed over now
    HtmlScanner scanner(page);
    while (const auto piece = scanner.next()) {
        if (!unseen.empty()) {
            if (piece->kind == HtmlPiece::Kind::Close && piece->name == unseen)
                unseen.clear();
        } else if (piece->kind == HtmlPiece::Kind::Text) {
            appendWords(result, withoutReferences(piece->rest));
        } else if (piece->kind == HtmlPiece::Kind::Open && isUnseen(piece->name)) {
            unseen = piece->name;
        } else if (!isInline(piece->name)) {
            appendWords(result, " ");
        }
    }
    return std::string(trimmed(result));
}

} // namespace vorna
