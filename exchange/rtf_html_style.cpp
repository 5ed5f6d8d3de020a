#include "exchange/rtf_html_style.h"

#include <algorithm>
#include <cstdlib>

namespace vorna {
namespace {

constexpr int thinnestBorder = 10;
constexpr int thinnestDouble = 45; // two lines and a gap between them

std::string_view cssFamily(RtfFamily family) {
    switch (family) {
    case RtfFamily::Serif:
        return "serif";
    case RtfFamily::Monospace:
        return "monospace";
    case RtfFamily::Cursive:
        return "cursive";
    default:
        return "sans-serif";
    }
}

std::string cssBorder(const RtfBorder& border) {
    const bool twice = border.style == RtfBorder::Style::Double;
    const int width =
        twice ? std::max(border.width * 3, thinnestDouble) : std::max(border.width, thinnestBorder);
    const std::string_view style = twice                                      ? "double"
                                   : border.style == RtfBorder::Style::Dotted ? "dotted"
                                   : border.style == RtfBorder::Style::Dashed ? "dashed"
                                                                              : "solid";
    return cssLength(width) + " " + std::string(style) + " " +
           cssColour(border.colour == noColour ? 0 : border.colour);
}

} // namespace

std::string cssLength(int twips) {
    if (twips == 0)
        return "0";
    const int hundredths = std::abs(twips) * 5;
    std::string text = (twips < 0 ? "-" : "") + std::to_string(hundredths / 100);
    const int fraction = hundredths % 100;
    if (fraction != 0) {
        text += '.';
        text += static_cast<char>('0' + fraction / 10);
        if (fraction % 10 != 0)
            text += static_cast<char>('0' + fraction % 10);
    }
    return text + "pt";
}

std::string cssColour(int colour) {
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4)
        text += "0123456789abcdef"[colour >> shift & 15];
    return text;
}

void CssStyle::add(std::string_view property, std::string_view value) {
    if (!declarations_.empty())
        declarations_ += ';';
    declarations_.append(property).append(":").append(value);
}

std::string CssStyle::attribute() const {
    return declarations_.empty() ? std::string{} : " style=\"" + declarations_ + "\"";
}

void addBorders(CssStyle& style, const RtfBorders& borders, bool padded) {
    static constexpr std::string_view sides[] = {"top", "right", "bottom", "left"};
    const bool drawn = borders[rtfTop].style != RtfBorder::Style::None;
    const bool equal = std::all_of(borders.begin(), borders.end(), [&](const RtfBorder& border) {
        return border.style == borders[rtfTop].style &&
               cssBorder(border) == cssBorder(borders[rtfTop]) &&
               (!padded || border.space == borders[rtfTop].space);
    });
    if (equal && drawn) {
        style.add("border", cssBorder(borders[rtfTop]));
        if (padded && borders[rtfTop].space > 0)
            style.add("padding", cssLength(borders[rtfTop].space));
        return;
    }
    for (std::size_t side = 0; side < borders.size(); ++side) {
        const RtfBorder& border = borders[side];
        if (border.style == RtfBorder::Style::None)
            continue;
        style.add("border-" + std::string(sides[side]), cssBorder(border));
        if (padded && border.space > 0)
            style.add("padding-" + std::string(sides[side]), cssLength(border.space));
    }
}

CssStyle styleOfRun(const RtfCharacterFormat& format, const RtfCharacterFormat& paragraph) {
    CssStyle style;
    if (format.halfPoints != paragraph.halfPoints)
        style.add("font-size", cssLength(format.halfPoints * 10));
    if (format.family != paragraph.family)
        style.add("font-family", cssFamily(format.family));
    if (format.colour != noColour && format.colour != 0) // black is the page's own
        style.add("color", cssColour(format.colour));
    if (format.background != noColour)
        style.add("background-color", cssColour(format.background));
    if (format.capitals)
        style.add("text-transform", "uppercase");
    if (format.smallCapitals)
        style.add("font-variant", "small-caps");
    return style;
}

void addLetters(CssStyle& style, const RtfCharacterFormat& mark) {
    style.add("font-size", cssLength(mark.halfPoints * 10));
    if (mark.family != RtfFamily::None)
        style.add("font-family", cssFamily(mark.family));
}

} // namespace vorna
