#include "platform/failure.h"
#include "platform/files.h"
#include "tool/command.h"

#include <charconv>

namespace vorna {
namespace {

using nlohmann::ordered_json;

struct DrawArguments {
    std::string document;
    int type = 0;
    std::string picture;
    std::string size = "745x320";
};

PictureSize parseSize(const std::string& text) {
    PictureSize size;
    const char* const end = text.data() + text.size();
    const auto width = std::from_chars(text.data(), end, size.width);
    if (width.ec == std::errc{} && width.ptr != end && *width.ptr == 'x') {
        const auto height = std::from_chars(width.ptr + 1, end, size.height);
        if (height.ec == std::errc{} && height.ptr == end && size.width > 0 && size.height > 0)
            return size;
    }
    throw WrongUsage("--size: \"" + text + "\" is not of the form WIDTHxHEIGHT");
}

CommandResult run(const DrawArguments& arguments) {
    const PictureSize size = parseSize(arguments.size);
    std::string document;
    if (!attempt([&] { document = readWholeFile(arguments.document); }))
        throw CannotRun("the document " + arguments.document + " cannot be read");
    OffscreenDrawing drawing;
    try {
        drawing.draw(document, arguments.type, size, arguments.picture);
    } catch (const Failure& failure) {
        throw CannotRun("the picture " + arguments.picture + " cannot be drawn: " + failure.what());
    }
    return {{{"messages", ordered_json::array()}, {"picture", jsonText(arguments.picture)}}};
}

} // namespace

CommandBody declareDraw(CLI::App& subcommand) {
    const auto arguments = std::make_shared<DrawArguments>();
    subcommand.add_option("--document", arguments->document, "the chart document")->required();
    subcommand.add_option("--type", arguments->type, "11 columns, 4 pie")
        ->required()
        ->check(CLI::IsMember({11, 4}));
    subcommand.add_option("--picture", arguments->picture, "the .bmp, .png or .svg to write")
        ->required();
    subcommand.add_option("--size", arguments->size, "WIDTHxHEIGHT in pixels, default 745x320");
    return [arguments](const ToolOptions&) { return run(*arguments); };
}

} // namespace vorna
