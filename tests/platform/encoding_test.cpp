#include "platform/encoding.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

using Form = DecodedText::Form;

TEST(Encoding, EveryByteOfACodePageComesBack) {
    for (const CodePage page : {CodePage::Windows1250, CodePage::Windows1251, CodePage::Cp437}) {
        std::string bytes;
        for (int byte = 0; byte < 256; ++byte)
            bytes += static_cast<char>(byte);
        const std::string text = decode(bytes, page);
        EXPECT_TRUE(isUtf8(text));
        EXPECT_EQ(encode(text, page), bytes) << "code page " << static_cast<int>(page);
    }
    EXPECT_EQ(decode("\x8E\xEC\x80", CodePage::Windows1250), "Žě€");
    EXPECT_EQ(decode("\xC6\xB8", CodePage::Windows1251), "Жё");
    EXPECT_EQ(decode("\x80\xE1", CodePage::Cp437), "Çß");
}

TEST(Encoding, OnlyWellFormedBytesAreUtf8) {
    struct Case {
        const char* rule;
        std::string bytes;
        bool utf8;
    };
    const Case cases[] = {
        {"empty", "", true},
        {"four bytes", "\xF0\x9F\x8E\xB5", true},
        {"a zero byte", std::string("a\0\xC4\x8D", 4), true},
        {"cut behind the first byte", "abc\xC4", false},
        {"a lone continuation", "\x8D", false},
        {"longer than needed", "\xC0\xAF", false},
        {"half a surrogate pair", "\xED\xA0\x80", false},
        {"beyond Unicode", "\xF4\x90\x80\x80", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(isUtf8(c.bytes), c.utf8) << c.rule;
}

TEST(Encoding, TextFilesAreReadInTheFormTheyHave) {
    struct Case {
        const char *rule, *bytes, *text;
        Form form;
    };
    const Case cases[] = {
        {"ASCII", "a=1", "a=1", Form::Ascii},
        {"UTF-8", "a=č", "a=č", Form::Utf8},
        {"UTF-8 with its mark", "\xEF\xBB\xBF[a]", "[a]", Form::Utf8WithMark},
        {"the code page", "a=\xE8", "a=č", Form::CodePage},
        {"UTF-8 that was cut is the code page", "\xC4\x8D\xC4", "ÄŤÄ", Form::CodePage},
    };
    for (const Case& c : cases) {
        const DecodedText content = decodeTextFile(c.bytes);
        EXPECT_EQ(content.text, c.text) << c.rule;
        EXPECT_EQ(content.form, c.form) << c.rule;
        EXPECT_EQ(encodeTextFile(content), c.bytes) << c.rule << ", written back";
    }
    EXPECT_EQ(decodeTextFile("\xCF\xEE\xEB", CodePage::Windows1251).text, "Пол");
}

TEST(Encoding, TextFilesAreWrittenSoThatTheyReadBack) {
    struct Case {
        const char* rule;
        Form form;
        const char* text;
        const char* bytes; // null: any, as long as it reads back
    };
    const Case cases[] = {
        {"a new file is in the code page", Form::Ascii, "Žák", "\x8E\xE1k"},
        {"a code page file stays one", Form::CodePage, "Žák", "\x8E\xE1k"},
        {"what does not fit makes it UTF-8", Form::CodePage, "Žák Ж", "Žák Ж"},
        {"likewise for a new file", Form::Ascii, "ñ", "ñ"},
        {"UTF-8 stays", Form::Utf8, "Žák", "Žák"},
        {"so does its mark", Form::Utf8WithMark, "a",
         "\xEF\xBB\xBF"
         "a"},
        // The bytes CD 8A of the code page are a character of UTF-8 as well.
        {"code page bytes that look like UTF-8", Form::Ascii, "MÍŠEK", nullptr},
        {"likewise at the end of a line", Form::CodePage, "prijmeni=NŮŽ\r\n", nullptr},
    };
    for (const Case& c : cases) {
        const std::string bytes = encodeTextFile({c.text, c.form});
        EXPECT_EQ(decodeTextFile(bytes).text, c.text) << c.rule;
        if (c.bytes != nullptr) {
            EXPECT_EQ(bytes, c.bytes) << c.rule;
        }
    }
}

} // namespace
} // namespace vorna
