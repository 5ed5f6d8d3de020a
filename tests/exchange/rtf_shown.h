// What a page shows of a document, in a form that tests can compare.
#pragma once

#include "exchange/rtf_html.h"
#include "exchange/rtf_reader.h"
#include "tests/exchange/rtf_page.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace vorna {

inline std::string without(std::string text, std::string_view piece) {
    for (std::size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at))
        text.erase(at, piece.size());
    return text;
}

// The page of a document whose pictures are in the files rtf1-1, rtf1-2 and so on. Every page that
// a test makes keeps what pages must keep.
inline std::string pageOf(std::string_view rtf) {
    const RtfDocument document = parseRtf(rtf);
    std::vector<std::string> names;
    for (const RtfPicture& picture : document.pictures)
        names.push_back("rtf1-" + std::to_string(names.size() + 1) + "." + picture.extension);
    std::string page = formatRtfHtml(document, names);
    EXPECT_EQ(rtf_page::faultOf(page), "") << page.substr(0, 2000);
    return page;
}

// What stands in the page's body, without line ends and without the looks of a plain paragraph.
inline std::string shown(std::string_view rtf) {
    constexpr std::string_view start = "<div style=\"line-height:1.25;overflow-wrap:break-word\">";
    const std::string page = without(pageOf(rtf), "\n");
    const std::size_t from = page.find(start) + start.size();
    const std::string body = page.substr(from, page.rfind("</div>") - from);
    return without(body, " style=\"margin:0 0 0 0;font-size:12pt\"");
}

// The same of text inside a document with nothing else.
inline std::string shownText(std::string_view text) {
    return shown("{\\rtf1\\ansi\\ansicpg1250 " + std::string(text) + "}");
}

} // namespace vorna
