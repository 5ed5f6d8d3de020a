// The fragments of the two report pages and their assembly. Their form is fixed: older pages and
// style sheets know it, the doubled quote behind page1 and the odd alignment included.
#pragma once

#include <string>
#include <string_view>

namespace vorna::page {

inline constexpr std::string_view head =
    "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\">"
    "<html><head>"
    "<meta http-equiv=\"content-type\" content=\"text/html; charset=windows-1250\">"
    "<title>VORNA</title>"
    "<link rel=\"stylesheet\" href=\"css/text.css\" type=\"text/css\">"
    "<style></style></head><body><div class=\"page1\"\">";
inline constexpr std::string_view tableOpen =
    "<table style=\"text-align: left; width: 100%;\" border=\"0\" cellpadding=\"2\""
    " cellspacing=\"2\"><tbody>";
inline constexpr std::string_view reportTitleRow =
    "<tr><td align=\"center\" valign=\"op\"><font size=\"+2\">VORNA</font></td></tr>";
inline constexpr std::string_view pictureTitleRow =
    "<tr><td align=\"center\" valign=\"top\"><font size=\"+2\"></font></td></tr>";
inline constexpr std::string_view spacerRow = "<tr><td> </td></tr>";
inline constexpr std::string_view tableClose =
    "<tr><td align=\"center\" valign=\"top\"></td></tr></tbody></table>";
inline constexpr std::string_view foot = "</body></html>";

std::string chartRow(std::string_view reportChartKey);
std::string pictureRow(std::string_view path);
std::string pictureTextRow(std::string_view label, std::string_view description);

// What a converted document has between its <body> and </body>, letter for letter; empty without
// the latter.
std::string bodyOf(std::string_view document);

// The page's bytes: Windows-1250, with a numeric reference for each character that it lacks, and a
// line end at the end.
std::string encoded(std::string_view text);

} // namespace vorna::page
