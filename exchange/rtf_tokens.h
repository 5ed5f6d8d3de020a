// The tokens of a rich-text file. The bytes are a run of
//   {  }                     begin and end of a group
//   \word12␣                 a control word with an optional number; one blank behind belongs to it
//   \~ \* \\ ...             a control symbol
//   \'e9                     one byte of text by its two hexadecimal digits
//   \bin3␣...                as many bytes of data, whatever they are
// and everything else is text; line ends mean nothing.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace vorna {

struct RtfToken {
    enum class Kind { End, GroupStart, GroupEnd, Word, Symbol, HexByte, Text, Binary };

    Kind kind = Kind::End;
    std::string_view text;     // the word, the symbol's character, the text or the data
    std::optional<int> number; // of a word; at most a thousand million either way
    char byte = '\0';          // of a HexByte

    [[nodiscard]] int numberOr(int otherwise) const { return number.value_or(otherwise); }
    // A switch is off by the number 0 and on by anything else.
    [[nodiscard]] bool isOn() const { return number != 0; }
};

// Cuts any bytes into tokens, which look into them: the bytes must outlive the tokens.
class RtfTokens {
public:
    explicit RtfTokens(std::string_view bytes) : bytes_(bytes) {}

    // The next token; End at the end and ever after.
    RtfToken next();

private:
    RtfToken control();
    RtfToken word();
    RtfToken hexByte();
    std::optional<int> number();

    std::string_view bytes_;
    std::size_t at_ = 0;
};

// The value of a hexadecimal digit, -1 for anything else.
int hexDigit(char c);

} // namespace vorna
