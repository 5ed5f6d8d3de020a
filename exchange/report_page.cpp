#include "exchange/report_page.h"

#include "platform/encoding.h"
#include "platform/text.h"

namespace vorna::page {
namespace {

constexpr std::string_view bodyTag = "<body>";

std::string row(std::string_view cell) {
    return "<tr><td align=\"center\" valign=\"top\">" + std::string(cell) + "</td></tr>";
}

// The number of one character in UTF-8.
unsigned long codePoint(std::string_view character) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(character[i]); };
    if (character.size() == 1)
        return byte(0);
    unsigned long number = byte(0) & (0x7FU >> character.size());
    for (std::size_t i = 1; i < character.size(); ++i)
        number = number << 6U | (byte(i) & 0x3FU);
    return number;
}

} // namespace

std::string chartRow(std::string_view reportChartKey) {
    return row("<img style=\"width: 745px; height: 320px;\" src=\"graf" +
               std::string(reportChartKey) + ".bmp\" title=\"graf1\" alt=\"graf1\">");
}

std::string pictureRow(std::string_view path) {
    return row("<img style=\"width: 453px; height: 604px;\" src=\"" + std::string(path) +
               "\" title=\"obr1\" alt=\"obr1\">");
}

std::string pictureTextRow(std::string_view label, std::string_view description) {
    return row("<font size=\"+1\">" + std::string(label) + " : " + std::string(description) +
               "</font><p></p><br>");
}

std::string bodyOf(std::string_view document) {
    // Places count from 1, and 0 is nowhere: without the tag the first five characters go.
    const std::size_t at = document.find(bodyTag);
    const std::size_t place = at == std::string_view::npos ? 0 : at + 1;
    const std::string_view rest =
        document.substr(std::min(document.size(), place + bodyTag.size() - 1));
    const std::size_t end = rest.find("</body>");
    return std::string(rest.substr(0, end == std::string_view::npos ? 0 : end));
}

std::string encoded(std::string_view text) {
    std::string bytes;
    while (!text.empty()) {
        const std::string_view character = firstCharacters(text, 1);
        text.remove_prefix(character.size());
        if (const auto known = encode(character, CodePage::Windows1250))
            bytes += *known;
        else
            bytes += "&#" + std::to_string(codePoint(character)) + ";";
    }
    return bytes + "\r\n";
}

} // namespace vorna::page
