// Writes a document as a page. All that comes from the document is escaped; its only references are
// those to its pictures' files and its links.
#pragma once

#include "exchange/rtf_document.h"

#include <string>
#include <vector>

namespace vorna {

// A whole page in UTF-8, well-formed as XML too. `pictureNames` has the file of each picture of the
// document, empty for one that is to be left out.
std::string formatRtfHtml(const RtfDocument& document,
                          const std::vector<std::string>& pictureNames);

} // namespace vorna
