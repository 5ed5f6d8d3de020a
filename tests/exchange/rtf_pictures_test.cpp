#include "exchange/rtf_to_html.h"
#include "platform/failure.h"
#include "tests/exchange/rtf_shown.h"
#include "tests/support/scratch_folder.h"

#include <cstdint>

namespace vorna {
namespace {

std::string number(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i, value >>= 8)
        text += static_cast<char>(value & 0xFF);
    return text;
}

std::string hex(std::string_view bytes) {
    std::string digits;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        digits += "0123456789abcdef"[byte >> 4];
        digits += "0123456789abcdef"[byte & 15];
    }
    return digits;
}

// As much of a PNG and of a JPEG as the reader looks at.
std::string png(std::uint32_t side = 2) {
    std::string bytes("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", 16);
    for (int i = 0; i < 2; ++i)
        bytes += {static_cast<char>(side >> 24), static_cast<char>(side >> 16 & 0xFF),
                  static_cast<char>(side >> 8 & 0xFF), static_cast<char>(side & 0xFF)};
    return bytes + std::string(60, 'p');
}
const std::string jpeg = "\xFF\xD8\xFF" + std::string(70, 'j');

// A bitmap of two by two pixels of 24 bits.
std::string bitmap(std::uint32_t width = 2, std::uint32_t height = 2, std::uint32_t bits = 24,
                   std::uint32_t colours = 0) {
    return number(40, 4) + number(width, 4) + number(height, 4) + number(1, 2) + number(bits, 2) +
           number(0, 4) + number(16, 4) + number(0, 8) + number(colours, 4) + number(0, 4) +
           std::string(16, 'b');
}

// Its file: the header of 14 bytes in front.
std::string bitmapFile(const std::string& dib, std::uint32_t pixels = 40) {
    return "BM" + number(static_cast<std::uint32_t>(dib.size()) + 14, 4) + number(0, 4) +
           number(14 + pixels, 4) + dib;
}

std::string record(std::uint32_t function, const std::string& parameters) {
    return number(static_cast<std::uint32_t>(parameters.size()) / 2 + 3, 4) + number(function, 2) +
           parameters;
}

std::string metafile(const std::string& records) {
    return number(1, 2) + number(9, 2) + number(0x300, 2) + std::string(12, '\0') + records +
           record(0, "");
}

std::vector<RtfPicture> pictures(const std::string& rtf) {
    return parseRtf("{\\rtf1 " + rtf + "}").pictures;
}

TEST(RtfPictures, AreWhatTheirBytesSay) {
    struct Case {
        const char *rule, *words;
        std::string data;
        const char* extension; // null: no picture
        std::string file;
    };
    const std::string dib = bitmap();
    const Case cases[] = {
        {"PNG", "\\pngblip", png(), "png", png()},
        {"JPEG", "\\jpegblip", jpeg, "jpg", jpeg},
        {"PNG by another name", "\\jpegblip", png(), "png", png()},
        {"JPEG as a metafile", "\\wmetafile8", jpeg, "jpg", jpeg},
        {"bitmap", "\\dibitmap0", dib, "bmp", bitmapFile(dib)},
        {"bitmap with a palette", "\\dibitmap0", bitmap(2, 2, 8, 2), "bmp",
         bitmapFile(bitmap(2, 2, 8, 2), 48)},
        {"bitmap from the top", "\\dibitmap0", bitmap(2, 0xFFFFFFFE), "bmp",
         bitmapFile(bitmap(2, 0xFFFFFFFE))},
        {"metafile that draws a bitmap", "\\wmetafile8",
         metafile(record(0x0103, number(8, 2)) + record(0x0F43, std::string(22, '\0') + dib)),
         "bmp", bitmapFile(dib)},
        {"metafile with a header to place it", "\\wmetafile8",
         number(0x9AC6CDD7, 4) + std::string(18, '\0') +
             metafile(record(0x0B41, std::string(20, '\0') + dib)),
         "bmp", bitmapFile(dib)},
        {"metafile of lines", "\\wmetafile8", metafile(record(0x0213, number(0, 4))), nullptr, ""},
        {"metafile whose record has no length", "\\wmetafile8", metafile(number(0, 8)), nullptr,
         ""},
        {"enhanced metafile", "\\emfblip", std::string(200, 'e'), nullptr, ""},
        {"a page", "\\pngblip", "<html><script>" + std::string(100, ' '), nullptr, ""},
        {"a bitmap that only says so", "\\pngblip", dib.substr(0, 20), nullptr, ""},
        {"no size", "\\dibitmap0", bitmap(0, 2), nullptr, ""},
        {"a size beyond reason", "\\dibitmap0", bitmap(2'000'000, 2), nullptr, ""},
        {"a PNG beyond reason", "\\pngblip", png(1U << 30), nullptr, ""},
        {"a palette longer than the data", "\\dibitmap0", bitmap(2, 2, 8, 0), nullptr, ""},
        {"nothing", "\\pngblip", "", nullptr, ""},
    };
    for (const Case& c : cases) {
        const auto found = pictures("{\\pict" + std::string(c.words) + "\n" + hex(c.data) + "}");
        const auto binary = pictures("{\\pict" + std::string(c.words) + "\\bin" +
                                     std::to_string(c.data.size()) + " " + c.data + "}");
        ASSERT_EQ(found.size(), c.extension != nullptr ? 1U : 0U) << c.rule;
        EXPECT_EQ(binary.size(), found.size()) << c.rule << ", as data";
        if (found.empty())
            continue;
        EXPECT_EQ(found[0].extension, c.extension) << c.rule;
        EXPECT_EQ(found[0].bytes, c.file) << c.rule;
        EXPECT_EQ(binary.at(0).bytes, c.file) << c.rule << ", as data";
    }
}

TEST(RtfPictures, StandInTheTextInTheirSize) {
    const std::string data = "\\pngblip " + hex(png()) + "}";
    const auto img = [](const char* name, const char* size) {
        return "<img src=\"rtf1-" + std::string(name) +
               ".png\" alt=\"\" style=\"max-width:100%;height:auto" + size + "\"/>";
    };
    EXPECT_EQ(
        shownText("a{\\pict\\picwgoal1500\\pichgoal900\\picscalex50\\picscaley50" + data + "b"),
        "<p>a" + img("1", ";width:37.5pt;aspect-ratio:750/450") + "b</p>");
    EXPECT_EQ(shownText("{\\pict\\picw20\\pich10" + data),
              "<p>" + img("1", ";width:15pt;aspect-ratio:300/150") + "</p>");
    EXPECT_EQ(shownText("{\\pict\\picwgoal999999999\\picscalex-4" + data + "{\\pict" + data),
              "<p>" + img("1", ";width:1000pt") + img("2", "") + "</p>");
    EXPECT_EQ(shownText("{\\*\\shppict{\\pict" + data + "}{\\nonshppict{\\pict" + data + "}"),
              "<p>" + img("1", "") + "</p>")
        << "one of two forms";
    EXPECT_EQ(shownText("{\\*\\shppict{\\pict\\emfblip 00}}{\\nonshppict{\\pict" + data + "}"),
              "<p>" + img("1", "") + "</p>")
        << "the form that is understood";
    EXPECT_EQ(
        shownText("{\\shp{\\*\\shpinst{\\sp{\\sn pib}{\\sv {\\pict" + data + "}}}{\\shprslt x}}"),
        "<p>" + img("1", "") + "</p>")
        << "of a drawing";
    EXPECT_EQ(shownText("{\\object{\\*\\objdata 0102}{\\result{\\pict" + data + "}}"),
              "<p>" + img("1", "") + "</p>")
        << "of an object";
    EXPECT_EQ(shownText("{\\v{\\pict" + data + "}x"), "<p>x</p>") << "hidden";
}

TEST(RtfPictures, FilesAreReplacedAtTheNextConversion) {
    const ScratchFolder scratch;
    const fs::path folder = scratch / "HTML";
    fs::create_directories(folder);
    const auto picture = [](const std::string& data) {
        return "{\\pict\\pngblip " + hex(data) + "}";
    };
    const fs::path first =
        scratch.write("klient/anamneza.rtf", "{\\rtf1 " + picture(png()) + picture(jpeg) + "}");
    const fs::path second = scratch.write("klient/D250101.rtf", "{\\rtf1 " + picture(png()) + "}");
    const std::string page = rtfToHtml(first, folder);
    EXPECT_EQ(rtf_page::faultOf(page), "");
    EXPECT_NE(page.find("<title>Test Page</title>"), std::string::npos);
    rtfToHtml(second, folder);
    const std::vector<std::string> names = listFiles(folder, "*");
    ASSERT_EQ(names.size(), 3U) << "the pictures of two documents stand side by side";
    for (const std::string& name : names)
        EXPECT_TRUE(rtf_page::isPictureFile(name)) << name;
    EXPECT_NE(page.find("src=\"" + listFiles(folder, "*.jpg").at(0) + "\""), std::string::npos);

    scratch.write("klient/anamneza.rtf", "{\\rtf1 " + picture(jpeg) + "}");
    rtfToHtml(first, folder);
    EXPECT_EQ(listFiles(folder, "*").size(), 2U) << "those of the conversion before went";

    for (const char* other :
         {"HTML/graf10.bmp", "HTML/rtf.png", "HTML/rtf1-2.html", "HTML/rtfx-1.png"})
        scratch.write(other, "x");
    removeRtfPictures(folder);
    EXPECT_EQ(listFiles(folder, "*"),
              (std::vector<std::string>{"graf10.bmp", "rtf.png", "rtf1-2.html", "rtfx-1.png"}));
}

TEST(RtfPictures, WhatCannotBeReadFailsAndWhatCannotBeWrittenIsLeftOut) {
    const ScratchFolder scratch;
    EXPECT_THROW(rtfToHtml(scratch / "missing.rtf", scratch.path()), Failure);
    EXPECT_THROW(rtfToHtml(scratch.path(), scratch.path()), Failure);
    EXPECT_THROW(rtfToHtml(scratch.write("a.rtf", "no rich text"), scratch.path()), Failure);
    const fs::path file = scratch.write("b.rtf", "{\\rtf1 a{\\pict\\pngblip " + hex(png()) + "}b}");
    const std::string page = rtfToHtml(file, scratch / "no such folder");
    EXPECT_EQ(page.find("<img"), std::string::npos);
    EXPECT_NE(page.find(">ab</p>"), std::string::npos);
}

} // namespace
} // namespace vorna
