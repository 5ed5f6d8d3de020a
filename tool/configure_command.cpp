#include "tool/command.h"

namespace vorna {
namespace {

struct SettingsArguments {
    std::string mode;
    std::optional<int> language;
    std::optional<std::string> name;
    std::optional<std::string> contact;
    std::optional<std::string> address;
};

void savePractitioner(const SettingsArguments& arguments, MainWindow& window) {
    if (arguments.name)
        window.practitionerName.text = *arguments.name;
    if (arguments.contact)
        window.practitionerContact.text = *arguments.contact;
    if (arguments.address)
        window.practitionerAddress.text = *arguments.address;
    if (arguments.name || arguments.contact || arguments.address)
        window.savePractitioner.click();
}

void saveModeAndLanguage(const SettingsArguments& arguments, MainWindow& window) {
    if (!arguments.mode.empty()) {
        window.apmOption.checked = arguments.mode == "apm";
        window.tcmOption.checked = arguments.mode == "tcm";
    }
    if (arguments.language)
        call(window.languageOptions.at(*arguments.language - 1)->clicked);
    if (!arguments.mode.empty() || arguments.language)
        window.saveModeAndLanguage.click();
}

} // namespace

CommandBody declareConfigure(CLI::App& subcommand) {
    const auto arguments = std::make_shared<SettingsArguments>();
    subcommand.add_option("--mode", arguments->mode, "the mode of evaluation")
        ->check(CLI::IsMember({"apm", "tcm"}));
    subcommand
        .add_option("--language", arguments->language, "1 Czech, 2 English, 3 German, 4 Russian")
        ->check(CLI::Range(1, languageCount));
    subcommand.add_option("--name", arguments->name, "the practitioner's name");
    subcommand.add_option("--contact", arguments->contact, "the practitioner's contact line");
    subcommand.add_option("--address", arguments->address, "the practitioner's address line");
    return [arguments](const ToolOptions& options) -> CommandResult {
        ToolProcess process(options);
        process.start();
        savePractitioner(*arguments, process.window);
        saveModeAndLanguage(*arguments, process.window);
        return {{{"messages", messagesOf(process)}, {"ended", process.ended}}};
    };
}

} // namespace vorna
