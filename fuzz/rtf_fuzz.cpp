// Any bytes as rich text, up to the page.
#include "exchange/rtf_html.h"
#include "exchange/rtf_reader.h"
#include "platform/failure.h"
#include "tests/exchange/rtf_page.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The start that everything else is refused for.
    std::string bytes = "{\\rtf1";
    bytes.append(reinterpret_cast<const char*>(data), size);
    const vorna::RtfDocument document = vorna::parseRtf(bytes);
    std::vector<std::string> names;
    for (std::size_t i = 0; i < document.pictures.size(); ++i)
        names.push_back("rtf1-" + std::to_string(i + 1) + "." + document.pictures[i].extension);
    const std::string fault = vorna::rtf_page::faultOf(vorna::formatRtfHtml(document, names));
    if (!fault.empty()) {
        std::fprintf(stderr, "%s\n", fault.c_str());
        std::abort();
    }
    return 0;
}
