// What a reader of HTML pages needs without drawing them: the tags one by one, and the plain text.
// It takes any bytes: what is no tag is text, an open end closes with the page.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vorna {

struct HtmlPiece {
    enum class Kind { Text, Open, Close };
    Kind kind = Kind::Text;
    std::string name;      // of a tag, in small letters
    std::string_view rest; // a text as it is written, or an opening tag's attributes
};

// Gives the texts and tags of a page in their order; comments and declarations are left out. The
// page must outlive it.
class HtmlScanner {
public:
    explicit HtmlScanner(std::string_view page) : page_(page) {}

    // Nothing at the page's end.
    std::optional<HtmlPiece> next();

private:
    bool skipComment();
    std::optional<HtmlPiece> tag();

    std::string_view page_;
    std::size_t position_ = 0;
};

// A text with its character references replaced: the numeric ones and amp, lt, gt, quot, apos,
// nbsp. Others stay as they are written.
std::string withoutReferences(std::string_view text);

// The value of an attribute, its references replaced; empty when there is none.
std::string attributeOf(const HtmlPiece& tag, std::string_view name);

// The page's title; empty when it has none.
std::string pageTitle(std::string_view page);

// What a reader sees of the page's body, with one blank between words.
std::string pageText(std::string_view page);

} // namespace vorna
