// Rich text as a page: what the report shows of a client's documents.
//
// Bold, italic, underlined and struck-out text, colours, sizes, alignment, indents, spacing,
// frames, tabs, lists, tables, pictures and links are kept; fonts only by their kind (with serifs,
// typewriter). Headers and footers are left out.
#pragma once

#include "platform/files.h"

#include <string>

namespace vorna {

// A whole page in UTF-8 with the title "Test Page", one <body> and one </body>. No script is in it,
// and nothing outside the folder is referred to but links to http:, https: and mailto: addresses.
//
// The document's pictures are written into the folder under names that depend on the document's
// path and their order alone ("rtf<number>-<order>.png"); those of an earlier conversion of the
// same document go. A picture that cannot be written is left out. Failure when the file cannot be
// read, is larger than 256 MiB, or is no rich text.
std::string rtfToHtml(const fs::path& rtfPath, const fs::path& folder);

// Removes the pictures of all conversions from the folder, so that those of documents that no page
// shows any more do not gather. Nothing else in the folder is touched.
void removeRtfPictures(const fs::path& folder);

} // namespace vorna
