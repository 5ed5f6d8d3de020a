#include "core/number.h"
#include "platform/failure.h"
#include "tool/command.h"

namespace vorna {
namespace {

using nlohmann::ordered_json;

// The reserve is kept as text and is a number where it reads as one.
ordered_json reserveValue(const ToolProcess& process) {
    ordered_json value = process.session.posunrez;
    attempt([&] {
        const double number = numberOfText(process.platform.locale, process.session.posunrez);
        value = number;
        if (const std::int32_t whole = roundToInt32(number); whole == number)
            value = whole;
    });
    return value;
}

ordered_json settingsOf(const ToolProcess& process) {
    const Session& session = process.session;
    return {{"posunrez", reserveValue(process)},
            {"maxhod", session.maxhod},
            {"koeflog", session.koeflog},
            {"dobamer", session.dobamer},
            {"koef", session.koef},
            {"sklon", session.sklon},
            {"odchylka", session.odchylka},
            {"rozstep", session.rozstep},
            {"posun", session.posun}};
}

ordered_json tabsOf(const MainWindow& window) {
    auto captions = ordered_json::array();
    for (const Tab& tab : window.tabs.tabs())
        captions.push_back(tab.caption);
    return captions;
}

ordered_json clientsOf(const MainWindow& window) {
    auto clients = ordered_json::array();
    for (const ListRow& row : window.clients.list.rows())
        clients.push_back(clientRowAnswer(row));
    return clients;
}

CommandResult printSession(const ToolOptions& options) {
    ToolProcess process(options);
    const bool firstRun = process.start();
    const Session& session = process.session;
    return {{{"messages", messagesOf(process)},
             {"language", session.language},
             {"mode", session.mode},
             {"title", process.window.caption()},
             {"dataRoot", jsonText(session.dataRoot.string())},
             {"modeFolder", jsonText(session.modeFolder.string())},
             {"firstRun", firstRun},
             {"settings", settingsOf(process)},
             {"userName", jsonText(session.userName)},
             {"tabs", tabsOf(process.window)},
             {"clients", clientsOf(process.window)}}};
}

} // namespace

CommandBody declareSession(CLI::App&) {
    return &printSession;
}

} // namespace vorna
