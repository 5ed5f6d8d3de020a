#include "application/installation_check.h"
#include "platform/program_folders.h"
#include "tool/command.h"

#include <cstdlib>

namespace vorna {
namespace {

// A folder that goes with all in it.
class ScratchFolder {
public:
    ScratchFolder() {
        std::error_code error;
        const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
        std::string pattern = (folder / "vorna-check-XXXXXX").string();
        if (error || mkdtemp(pattern.data()) == nullptr)
            throw CannotRun("no scratch folder can be made for temporary files");
        path_ = pattern;
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() {
        std::error_code error; // what stays in the temporary folder harms nobody
        std::filesystem::remove_all(path_, error);
    }
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

CommandResult run(const ToolOptions& options) {
    ToolProcess process(options);
    const std::filesystem::path appFolder =
        options.appFolder.empty() ? executableFolder() : options.appFolder;
    std::error_code error;
    if (!std::filesystem::is_directory(appFolder, error))
        throw CannotRun("the installation folder " + appFolder.string() + " does not exist");
    const ScratchFolder scratch;
    const std::vector<std::string> faults =
        checkInstallation(process.context, appFolder, scratch.path());
    nlohmann::ordered_json answer{{"messages", messagesOf(process)}, {"faults", faults}};
    if (faults.empty())
        return {answer};
    return {answer, 1,
            "the installation " + appFolder.string() + " has " + std::to_string(faults.size()) +
                " faults"};
}

} // namespace

CommandBody declareCheck(CLI::App&) {
    return &run;
}

} // namespace vorna
