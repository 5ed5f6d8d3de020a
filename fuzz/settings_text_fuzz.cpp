// A settings or language file's entries out of any bytes, and its encoding there and back.
#include "core/settings_file.h"
#include "platform/encoding.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const vorna::DecodedText content = vorna::decodeTextFile(bytes);
    static_cast<void>(vorna::parseIniEntries(content.text));
    // What is written reads back as the same text.
    if (vorna::decodeTextFile(vorna::encodeTextFile(content)).text != content.text)
        std::abort();
    return 0;
}
