#include "tests/tool/tool_fixture.h"

namespace vorna {
namespace {

class DrawCommandTest : public ToolTest {
protected:
    ToolOutcome draw(const std::string& picture, const std::string& type,
                     const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments{"draw", "--document", document, "--type",
                                           type,   "--picture",  picture};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return runPlain(arguments);
    }

    std::string document = pathText(folder.write("chart.xml", R"(<chart caption='Žlučník'>
        <set label="a" value='1'/><set label="b" value='2'/></chart>)"));
};

// A whole number of a picture's head.
std::uint32_t numberAt(const std::string& bytes, std::size_t offset, bool bigEndian) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i)
        number =
            number << 8 | static_cast<unsigned char>(bytes.at(offset + (bigEndian ? i : 3 - i)));
    return number;
}

TEST_F(DrawCommandTest, WritesThePictureThatTheExtensionNames) {
    struct Case {
        const char* picture;
        std::vector<std::string> size;
        const char* begin;
        std::size_t widthAt; // 0: the size is not looked at
        bool bigEndian;
        std::uint32_t width;
        std::uint32_t height;
    };
    const Case cases[] = {
        {"a.bmp", {}, "BM", 18, false, 745, 320},
        {"b.PNG", {"--size", "300x200"}, "\x89PNG", 16, true, 300, 200},
        {"č.svg", {"--size", "1x1"}, "<?xml", 0, false, 1, 1},
    };
    for (const Case& picture : cases) {
        const std::string path = pathText(folder / picture.picture);
        const ToolOutcome outcome = draw(path, "4", picture.size);
        EXPECT_EQ(outcome.exitStatus, 0) << picture.picture;
        EXPECT_EQ(outcome.err, "") << picture.picture;
        EXPECT_EQ(outcome.out, printed(R"({"messages": [], "picture": ")" + path + "\"}"));
        const std::string bytes = readWholeFile(path);
        EXPECT_TRUE(bytes.starts_with(picture.begin)) << picture.picture;
        if (picture.widthAt != 0) {
            EXPECT_EQ(numberAt(bytes, picture.widthAt, picture.bigEndian), picture.width);
            EXPECT_EQ(numberAt(bytes, picture.widthAt + 4, picture.bigEndian), picture.height);
        }
    }
}

TEST_F(DrawCommandTest, SaysWhatCannotBeDrawn) {
    struct Case {
        const char* what;
        const char* picture;
        std::vector<std::string> more;
        int exitStatus;
    };
    const Case cases[] = {
        {"no size", "a.bmp", {"--size", "745"}, 2},
        {"an empty size", "a.bmp", {"--size", ""}, 2},
        {"a size in three", "a.bmp", {"--size", "7x4x5"}, 2},
        {"a negative size", "a.bmp", {"--size", "-7x4"}, 2},
        {"no width", "a.bmp", {"--size", "0x4"}, 2},
        {"no numbers", "a.bmp", {"--size", "axb"}, 2},
        {"beyond an int", "a.bmp", {"--size", "99999999999x1"}, 2},
        {"too large to draw", "a.bmp", {"--size", "16384x16384"}, 1},
        {"another picture", "a.jpg", {}, 1},
        {"no extension", "bmp", {}, 1},
        {"no such folder", "missing/a.bmp", {}, 1},
    };
    for (const Case& picture : cases) {
        const std::string path = pathText(folder / picture.picture);
        const ToolOutcome outcome = draw(path, "11", picture.more);
        EXPECT_EQ(outcome.exitStatus, picture.exitStatus) << picture.what;
        EXPECT_EQ(outcome.out, "") << picture.what;
        const std::string named = picture.exitStatus == 2 ? "--size" : path;
        EXPECT_NE(outcome.err.find(named), std::string::npos) << picture.what << outcome.err;
        EXPECT_EQ(outcome.err.find('\n'), outcome.err.size() - 1) << picture.what;
        EXPECT_FALSE(fs::exists(path)) << picture.what;
    }
    fs::remove(document);
    const ToolOutcome outcome = draw("a.bmp", "4");
    EXPECT_EQ(outcome.exitStatus, 1);
    EXPECT_EQ(outcome.err, "vorna-tool: the document " + document + " cannot be read\n");
}

} // namespace
} // namespace vorna
