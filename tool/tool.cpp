#include "tool/tool.h"

#include "platform/encoding.h"
#include "platform/failure.h"
#include "tool/command.h"

#include <array>
#include <cmath>
#include <ostream>

namespace vorna {
namespace {

struct CommandEntry {
    const char* name;
    const char* description;
    CommandDeclaration declare;
};

constexpr std::array commands{
    CommandEntry{"session", "start-up: the session values, tabs and clients", &declareSession},
    CommandEntry{"configure", "the saves of the settings tab", &declareConfigure},
    CommandEntry{"clients", "the client list", &declareClients},
    CommandEntry{"client-save", "fills a client's card and saves it", &declareClientSave},
    CommandEntry{"client-delete", "removes a client, after a question", &declareClientDelete},
    CommandEntry{"measurements", "a client's measurement list", &declareMeasurements},
    CommandEntry{"read-daf", "one measurement file as label and values", &declareReadDaf},
    CommandEntry{"write-daf", "writes one measurement file", &declareWriteDaf},
    CommandEntry{"measure", "a guided run on a real serial line, then its save", &declareMeasure},
    CommandEntry{"evaluate", "a press of a chart button", &declareEvaluate},
    CommandEntry{"recommend", "the recommended solution for one problem row", &declareRecommend},
    CommandEntry{"report", "the main report of a client", &declareReport},
    CommandEntry{"export", "packs one client or all into an archive", &declareExport},
    CommandEntry{"import", "takes clients in from an archive or from folders", &declareImport},
    CommandEntry{"rtf-to-html", "converts a document as a report does", &declareRtfToHtml},
    CommandEntry{"draw", "draws one chart document", &declareDraw},
    CommandEntry{"check", "holds the installation's content against what the system asks of it",
                 &declareCheck},
};

// The options as they are typed; empty where not given.
struct TypedOptions {
    std::string appFolder;
    std::string commonData;
    std::string now;
};

void declareCommonOptions(CLI::App& subcommand, ToolOptions& options, TypedOptions& typed) {
    subcommand.add_option("--app-folder", typed.appFolder, "the installation folder");
    subcommand.add_option("--common-data", typed.commonData,
                          "the common application data folder; the data root is VORNA in it");
    subcommand.add_option("--locale", options.locale, "the user's locale, such as cs_CZ");
    subcommand.add_option("--now", typed.now, "the clock starts at YYYY-MM-DDTHH:MM:SS");
    subcommand
        .add_option("--speed", options.speed, "the clock runs this many times as fast as real time")
        ->check(CLI::PositiveNumber);
    subcommand
        .add_option("--answer", options.answers, "answers questions, in order; the last one stays")
        ->check(CLI::IsMember({"yes", "no", "ok", "cancel"}))
        ->allow_extra_args(false); // one answer each time it is given
    subcommand.add_flag("--pretty", options.pretty, "indents the answer");
}

void readTypedOptions(const TypedOptions& typed, ToolOptions& options) {
    options.appFolder = typed.appFolder;
    options.commonData = typed.commonData;
    if (!std::isfinite(options.speed))
        throw WrongUsage("--speed: not a number of times");
    if (typed.now.empty())
        return;
    options.now = parseTime(typed.now);
    if (!options.now)
        throw WrongUsage("--now: " + typed.now + " is no time of the form YYYY-MM-DDTHH:MM:SS");
}

// One line for what may have come in several.
std::string inOneLine(std::string text) {
    for (char& c : text)
        if (c == '\n' || c == '\r')
            c = ' ';
    return text;
}

int fail(std::ostream& err, const std::string& text, int exitStatus) {
    err << "vorna-tool: " << inOneLine(text) << '\n';
    return exitStatus;
}

int parseAndRun(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    CLI::App app("vorna-tool: the headless companion of VORNA. Answers with one JSON document.",
                 "vorna-tool");
    app.require_subcommand(1);
    ToolOptions options;
    TypedOptions typed;
    CommandBody chosen;
    for (const CommandEntry& command : commands) {
        CLI::App* const subcommand = app.add_subcommand(command.name, command.description);
        declareCommonOptions(*subcommand, options, typed);
        subcommand->callback([&chosen, body = command.declare(*subcommand)] { chosen = body; });
    }
    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::CallForHelp& help) {
        return app.exit(help, out, err);
    } catch (const CLI::ParseError& error) {
        return fail(err, error.what(), 2);
    }
    readTypedOptions(typed, options);
    const CommandResult result = chosen(options);
    using Json = nlohmann::ordered_json;
    out << result.answer.dump(options.pretty ? 2 : -1, ' ', false, Json::error_handler_t::replace)
        << '\n'
        << std::flush;
    if (!out)
        throw CannotRun("the answer cannot be written");
    if (!result.complaint.empty())
        return fail(err, result.complaint, result.exitStatus);
    return result.exitStatus;
}

} // namespace

int runTool(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    try {
        return parseAndRun(arguments, out, err);
    } catch (const WrongUsage& error) {
        return fail(err, error.what(), 2);
    } catch (const CannotRun& error) {
        return fail(err, error.what(), 1);
    } catch (const std::exception& error) { // a Failure, or what a library throws
        return fail(err, error.what(), 1);
    }
}

nlohmann::ordered_json messagesOf(const ToolProcess& process) {
    auto messages = nlohmann::ordered_json::array();
    for (const ShownMessage& shown : process.dialogs.shown()) {
        nlohmann::ordered_json message{{"kind", shown.kind}, {"text", jsonText(shown.text)}};
        message["answer"] = shown.answer ? nlohmann::ordered_json(*shown.answer) : nullptr;
        messages.push_back(message);
    }
    return messages;
}

std::string jsonText(std::string_view text) {
    return isUtf8(text) ? std::string(text) : decode(text, CodePage::Windows1250);
}

} // namespace vorna
