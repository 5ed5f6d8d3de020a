#include "exchange/client_export.h"
#include "exchange/client_import.h"
#include "exchange/zip/zip_archive.h"
#include "platform/files.h"
#include "tool/command.h"

namespace vorna {
namespace {

using nlohmann::ordered_json;

struct ExportArguments {
    std::string client;
    bool all = false;
    std::string to;
};

struct ImportArguments {
    std::string file; // of one client
    std::string group;
    std::string folder;
};

// The path as a chooser gives it. CannotRun when nothing of the kind stands there.
fs::path chosenFolder(const std::string& option, const std::string& path) {
    std::error_code error;
    if (!fs::is_directory(path, error))
        throw CannotRun(option + ": " + path + " is no folder");
    return fs::absolute(path);
}

fs::path chosenFile(const std::string& option, const std::string& path) {
    std::error_code error;
    if (!fs::exists(path, error))
        throw CannotRun(option + ": the file " + path + " does not exist");
    return fs::absolute(path);
}

CommandResult exportClients(const ExportArguments& arguments, const ToolOptions& options) {
    if (arguments.all == !arguments.client.empty())
        throw WrongUsage("export: needs one of --client and --all");
    const fs::path folder = chosenFolder("--to", arguments.to);
    ToolProcess process(options);
    process.start();
    if (!arguments.all)
        process.selectClient(arguments.client);
    process.dialogs.chosenPath = folder;
    ClientContext clients = clientContext(process.window, process.session, process.platform);
    ExchangeContext context{.clients = clients, .makeArchive = makeZipArchive};
    const fs::path archive = arguments.all ? exportGroup(context) : exportClient(context);
    const ordered_json written =
        archive.empty() ? ordered_json(nullptr) : ordered_json(jsonText(pathText(archive)));
    return {{{"messages", messagesOf(process)}, {"archive", written}}};
}

// What an import is to choose, and what it is done by.
struct Import {
    fs::path chosen;
    ImportedClients (*run)(ExchangeContext& context);
};

Import importOf(const ImportArguments& arguments) {
    const int given = static_cast<int>(!arguments.file.empty()) +
                      static_cast<int>(!arguments.group.empty()) +
                      static_cast<int>(!arguments.folder.empty());
    if (given != 1)
        throw WrongUsage("import: needs one of FILE, --group and --folder");
    if (!arguments.file.empty())
        return {.chosen = chosenFile("FILE", arguments.file), .run = &importClient};
    if (!arguments.group.empty())
        return {.chosen = chosenFile("--group", arguments.group), .run = &importGroup};
    return {.chosen = chosenFolder("--folder", arguments.folder), .run = &importFolders};
}

const char* wordOf(ImportResult result) {
    switch (result) {
    case ImportResult::New:
        return "new";
    case ImportResult::Overwritten:
        return "overwritten";
    case ImportResult::Skipped:
        break;
    }
    return "skipped";
}

CommandResult importClients(const ImportArguments& arguments, const ToolOptions& options) {
    const Import import = importOf(arguments);
    ToolProcess process(options);
    process.start();
    process.dialogs.chosenPath = import.chosen;
    ClientContext clients = clientContext(process.window, process.session, process.platform);
    ExchangeContext context{.clients = clients, .makeArchive = makeZipArchive};
    auto came = ordered_json::array();
    for (const ImportedClient& client : import.run(context))
        came.push_back({{"intid", jsonText(client.intid)}, {"result", wordOf(client.result)}});
    return {{{"messages", messagesOf(process)}, {"clients", came}}};
}

} // namespace

CommandBody declareExport(CLI::App& subcommand) {
    const auto arguments = std::make_shared<ExportArguments>();
    subcommand.add_option("--client", arguments->client, "the client's intid");
    subcommand.add_flag("--all", arguments->all, "all clients");
    subcommand.add_option("--to", arguments->to, "the folder that gets the archive")->required();
    return [arguments](const ToolOptions& options) { return exportClients(*arguments, options); };
}

CommandBody declareImport(CLI::App& subcommand) {
    const auto arguments = std::make_shared<ImportArguments>();
    subcommand.add_option("FILE", arguments->file, "the archive of one client");
    subcommand.add_option("--group", arguments->group, "the archive of many clients");
    subcommand.add_option("--folder", arguments->folder, "the folder of client folders");
    return [arguments](const ToolOptions& options) { return importClients(*arguments, options); };
}

} // namespace vorna
