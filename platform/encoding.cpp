#include "platform/encoding.h"

#include "platform/failure.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <memory>

namespace vorna {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

using Converter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

Converter openConverter(CodePage codePage) {
    const char* name = codePage == CodePage::Windows1250   ? "windows-1250"
                       : codePage == CodePage::Windows1251 ? "windows-1251"
                                                           : "ibm-437";
    UErrorCode error = U_ZERO_ERROR;
    Converter converter(ucnv_open(name, &error), &ucnv_close);
    if (U_FAILURE(error))
        throw Failure("a code page is not at hand");
    return converter;
}

} // namespace

bool isUtf8(std::string_view bytes) {
    UErrorCode error = U_ZERO_ERROR;
    std::int32_t length = 0;
    u_strFromUTF8(nullptr, 0, &length, bytes.data(), static_cast<std::int32_t>(bytes.size()),
                  &error);
    return error == U_BUFFER_OVERFLOW_ERROR || U_SUCCESS(error);
}

std::string decode(std::string_view bytes, CodePage codePage) {
    const Converter converter = openConverter(codePage);
    UErrorCode error = U_ZERO_ERROR;
    const icu::UnicodeString text(bytes.data(), static_cast<std::int32_t>(bytes.size()),
                                  converter.get(), error);
    std::string result;
    text.toUTF8String(result);
    return result;
}

std::optional<std::string> encode(std::string_view utf8, CodePage codePage) {
    const Converter converter = openConverter(codePage);
    UErrorCode error = U_ZERO_ERROR;
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                          &error);
    ucnv_setFallback(converter.get(), false);
    const auto text = icu::UnicodeString::fromUTF8(
        icu::StringPiece(utf8.data(), static_cast<std::int32_t>(utf8.size())));
    std::string bytes(static_cast<std::size_t>(text.length()) * 2 + 4, '\0');
    const std::int32_t length =
        text.extract(bytes.data(), static_cast<std::int32_t>(bytes.size()), converter.get(), error);
    if (U_FAILURE(error))
        return std::nullopt;
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

DecodedText decodeTextFile(std::string_view bytes, CodePage otherwise) {
    using Form = DecodedText::Form;
    if (bytes.starts_with(byteOrderMark) && isUtf8(bytes))
        return {std::string(bytes.substr(byteOrderMark.size())), Form::Utf8WithMark};
    const auto beyondAscii = [](char c) { return static_cast<unsigned char>(c) >= 0x80; };
    if (std::none_of(bytes.begin(), bytes.end(), beyondAscii))
        return {std::string(bytes), Form::Ascii};
    if (isUtf8(bytes))
        return {std::string(bytes), Form::Utf8};
    return {decode(bytes, otherwise), Form::CodePage};
}

std::string encodeTextFile(const DecodedText& content, CodePage otherwise) {
    using Form = DecodedText::Form;
    if (content.form == Form::Utf8WithMark)
        return std::string(byteOrderMark) + content.text;
    if (content.form == Form::Utf8)
        return content.text;
    // Bytes of the code page that happen to be UTF-8 as well would read back as another text.
    const std::optional<std::string> bytes = encode(content.text, otherwise);
    return bytes && decodeTextFile(*bytes, otherwise).text == content.text ? *bytes : content.text;
}

} // namespace vorna
