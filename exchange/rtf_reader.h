// Reads a rich-text file's bytes to a document. Survives any bytes: groups may be left open or nest
// without end, numbers and tables may be nonsense; time and memory stay in proportion to the bytes.
//
// Left out: headers, footers, notes to the text by reviewers, hidden and deleted text, drawings.
// Footnotes and text boxes are kept where they are anchored.
#pragma once

#include "exchange/rtf_document.h"

#include <string_view>

namespace vorna {

// Failure when the bytes do not begin as rich text does; everything else gives what can be read.
RtfDocument parseRtf(std::string_view bytes);

} // namespace vorna
