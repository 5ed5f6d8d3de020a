#include "demo/overview_page.h"

#include <string_view>

namespace vorna {
namespace {

constexpr std::string_view pageHead = R"(<!DOCTYPE html>
<html><head><meta charset="utf-8"><title>VORNA</title><style>
body { font: 15px/1.45 "Noto Sans", sans-serif; color: #1D2426; background: #F3F1EC; margin: 24px; }
h1 { font-size: 22px } h2 { font-size: 18px; margin: 32px 0 8px; color: #17655A }
section { display: flex; flex-wrap: wrap; gap: 16px }
article { background: #fff; border: 1px solid #DDD8CD; border-radius: 8px; padding: 14px;
          max-width: 760px }
article h3 { font-size: 15px; margin: 0 0 8px } img { max-width: 100%; display: block }
.small img { width: 360px; display: inline-block }
ul { columns: 2; padding-left: 18px; font-size: 13px } p { font-size: 13px; max-width: 720px }
.message { background: #FBF0D3; color: #745000; padding: 6px 10px; border-radius: 6px;
           display: inline-block }
</style></head><body>
)";

std::string escaped(std::string_view text) {
    std::string html;
    for (const char c : text) {
        if (c == '&')
            html += "&amp;";
        else if (c == '<')
            html += "&lt;";
        else if (c == '\n')
            html += "<br>";
        else
            html += c;
    }
    return html;
}

std::string article(const ShownEvaluation& evaluation) {
    const bool small = evaluation.documents.size() > 1;
    std::string html = std::string("<article") + (small ? " class=\"small\"" : "") + "><h3>" +
                       escaped(evaluation.title) + "</h3>";
    for (const ShownDocument& document : evaluation.documents)
        html += "<img src=\"" + document.picture + "\" alt=\"" + escaped(document.control) + "\">";
    if (evaluation.lines.size() == 1)
        html += "<p>" + escaped(evaluation.lines.front()) + "</p>";
    else if (!evaluation.lines.empty()) {
        html += "<ul>";
        for (const std::string& line : evaluation.lines)
            html += "<li>" + escaped(line) + "</li>";
        html += "</ul>";
    }
    return html + "</article>\n";
}

} // namespace

std::string formatOverviewPage(const std::string& client,
                               const std::vector<ShownMeasurement>& measurements) {
    std::string html(pageHead);
    html += "<h1>" + escaped(client) + "</h1>\n";
    for (const ShownMeasurement& measurement : measurements) {
        html += "<h2>" + escaped(measurement.heading) + "</h2>\n";
        for (const std::string& message : measurement.messages)
            html += "<p class=\"message\">" + escaped(message) + "</p>\n";
        html += "<section>\n";
        for (const ShownEvaluation& evaluation : measurement.evaluations)
            html += article(evaluation);
        html += "</section>\n";
    }
    return html + "</body></html>\n";
}

} // namespace vorna
