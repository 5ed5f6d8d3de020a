// What every page made from rich text must keep, whatever the document was: for tests and fuzzing.
#pragma once

#include "platform/encoding.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorna::rtf_page {

inline bool isOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

inline bool isPictureFile(std::string_view name) {
    return name.starts_with("rtf") && name.find_first_not_of("0123456789-", 3) == name.find('.') &&
           isOneOf(name.substr(std::min(name.find('.'), name.size())), {".png", ".jpg", ".bmp"});
}

inline bool isSafeAttribute(std::string_view name, std::string_view value) {
    if (name == "href")
        return value.starts_with("http://") || value.starts_with("https://") ||
               value.starts_with("mailto:");
    if (name == "src")
        return isPictureFile(value);
    if (name == "style")
        return value.find_first_of("\\(@!<>'") == std::string_view::npos;
    return isOneOf(name, {"alt", "charset", "colspan", "rowspan"});
}

// Empty when the text between two tags is plain or escaped.
inline std::string faultOfText(std::string_view text) {
    for (std::size_t at = text.find('&'); at != std::string_view::npos; at = text.find('&', at + 1))
        if (const std::string_view entity = text.substr(at, text.find(';', at) - at + 1);
            !isOneOf(entity, {"&amp;", "&lt;", "&gt;", "&#160;"}))
            return "entity " + std::string(entity.substr(0, 10));
    return text.find('>') == std::string_view::npos ? "" : "unescaped >";
}

// Cuts the next attribute off the inside of a tag.
inline std::string takeAttribute(std::string_view& rest) {
    const std::size_t equals = rest.find("=\"");
    const std::size_t end = equals == std::string_view::npos ? equals : rest.find('"', equals + 2);
    if (rest.front() != ' ' || end == std::string_view::npos)
        return "attribute " + std::string(rest);
    const std::string_view name = rest.substr(1, equals - 1);
    const std::string_view value = rest.substr(equals + 2, end - equals - 2);
    rest.remove_prefix(end + 1);
    if (!isSafeAttribute(name, value))
        return "attribute " + std::string(name) + "=" + std::string(value);
    return name == "style" ? "" : faultOfText(value);
}

// Checks one tag, given without its brackets, and keeps the stack of open elements.
inline std::string faultOfTag(std::string_view tag, std::vector<std::string>& open) {
    if (tag.starts_with('/')) {
        if (open.empty() || open.back() != tag.substr(1))
            return "end of " + std::string(tag);
        open.pop_back();
        return "";
    }
    const bool alone = tag.ends_with('/');
    if (alone)
        tag.remove_suffix(1);
    const std::string name(tag.substr(0, tag.find(' ')));
    const bool isAlone = isOneOf(name, {"br", "img", "col", "meta"});
    const bool known =
        isAlone || isOneOf(name, {"html", "head",  "title", "style",    "body", "div", "p",
                                  "span", "a",     "b",     "i",        "u",    "s",   "sup",
                                  "sub",  "table", "tbody", "colgroup", "tr",   "td"});
    if (!known || alone != isAlone)
        return "element " + name;
    if (!alone)
        open.push_back(name);
    for (std::string_view rest = tag.substr(name.size()); !rest.empty();)
        if (const std::string fault = takeAttribute(rest); !fault.empty())
            return fault;
    return "";
}

inline std::size_t count(std::string_view page, std::string_view text) {
    std::size_t found = 0;
    for (std::size_t at = page.find(text); at != std::string_view::npos;
         at = page.find(text, at + 1))
        ++found;
    return found;
}

// What is wrong with the page as a whole, its elements or its references; empty when nothing is.
inline std::string faultOf(std::string_view page) {
    if (!isUtf8(page))
        return "no UTF-8";
    for (const char c : page)
        if ((c >= 0 && c < 0x20 && c != '\n') || c == 0x7F)
            return "control character";
    if (count(page, "<body>") != 1 || count(page, "</body>") != 1)
        return "not one body";
    constexpr std::string_view start = "<!DOCTYPE html>\n";
    if (!page.starts_with(start))
        return "no document type";
    page.remove_prefix(start.size());
    std::vector<std::string> open;
    while (!page.empty()) {
        const std::size_t tag = std::min(page.find('<'), page.size());
        if (const std::string fault = faultOfText(page.substr(0, tag)); !fault.empty())
            return fault;
        page.remove_prefix(tag);
        if (page.empty())
            break;
        const std::size_t end = page.find('>');
        if (end == std::string_view::npos)
            return "tag without end";
        if (const std::string fault = faultOfTag(page.substr(1, end - 1), open); !fault.empty())
            return fault;
        page.remove_prefix(end + 1);
    }
    return open.empty() ? "" : "open " + open.back();
}

} // namespace vorna::rtf_page
