// The bytes of text files and UTF-8: the code pages that files of older installations are in.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vorna {

enum class CodePage { Windows1250, Windows1251, Cp437 };

bool isUtf8(std::string_view bytes);

// Never fails: a byte that the code page does not define becomes a control character that is
// encoded to the same byte again.
std::string decode(std::string_view bytes, CodePage codePage);

// Nothing when a character is not in the code page.
std::optional<std::string> encode(std::string_view utf8, CodePage codePage);

// How a text file's bytes are to be read, and in what they must be written back.
struct DecodedText {
    enum class Form { Ascii, Utf8, Utf8WithMark, CodePage };
    std::string text; // UTF-8, without byte order mark
    Form form = Form::Ascii;
};

// UTF-8, with or without byte order mark, when the bytes are valid UTF-8; otherwise the code page.
DecodedText decodeTextFile(std::string_view bytes, CodePage otherwise = CodePage::Windows1250);

// In the form the file had. A new or pure ASCII file becomes the code page as long as every
// character fits, so that older installations can read it, and UTF-8 as soon as one does not.
std::string encodeTextFile(const DecodedText& content, CodePage otherwise = CodePage::Windows1250);

} // namespace vorna
