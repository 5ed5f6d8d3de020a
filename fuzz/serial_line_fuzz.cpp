// What a serial line and a USB device can send: any bytes, in pieces of any length, read in
// between or not. The readings are those of the whole text at once, and what is kept stays small.
#include "acquisition/reading_buffer.h"
#include "acquisition/reading_line.h"
#include "core/number.h"
#include "platform/failure.h"
#include "platform/ftdi_memory.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

// Reads on in both and compares; `position` is the line end used last in the whole text.
void readAll(vorna::ReadingBuffer& buffer, std::string_view text, std::size_t& position) {
    while (true) {
        const std::size_t found = text.find(vorna::lineEnd, position) + 1;
        if (buffer.findLineEnd() != found)
            std::abort();
        if (found == 0)
            break;
        position = found;
        const std::string characters = buffer.takeReadingCharacters();
        const std::string_view expected =
            found > vorna::readingCharacters
                ? text.substr(found - 1 - vorna::readingCharacters, vorna::readingCharacters)
                : std::string_view{};
        if (characters != expected)
            std::abort();
        vorna::attempt([&] {
            static_cast<void>(
                vorna::roundToInt16(vorna::numberOfDecimalText(vorna::readingDigits(characters))));
        });
    }
    if (buffer.size() > vorna::readingCharacters + 1)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static_cast<void>(vorna::parseFtdiMemory({data, size}));

    // A byte of length and whether to read, then so many bytes of text.
    std::string text;
    vorna::ReadingBuffer buffer;
    std::size_t position = 1;
    for (std::size_t at = 0; at < size;) {
        const std::uint8_t piece = data[at++];
        const std::size_t length = std::min<std::size_t>(piece / 2, size - at);
        const std::string_view received(reinterpret_cast<const char*>(data) + at, length);
        at += length;
        text += received;
        buffer.append(received);
        if (piece % 2 == 1)
            readAll(buffer, text, position);
    }
    readAll(buffer, text, position);
    return 0;
}
