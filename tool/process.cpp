#include "tool/process.h"

#include "clients/client_list.h"
#include "clients/measurement_tab.h"
#include "platform/program_folders.h"
#include "tool/command.h"

#include <algorithm>

namespace vorna {

ToolProcess::ToolProcess(const ToolOptions& options)
    : clock(options.now.value_or(SystemClock{}.now())), loop(clock),
      dialogs(loop, options.answers), platform{.loop = loop,
                                               .clock = clock,
                                               .locale = localeByName(options.locale),
                                               .dialogs = dialogs,
                                               .clipboard = clipboard,
                                               .opener = opener,
                                               .sound = sound,
                                               .drawing = drawing},
      windows(loop, [this](const Window&) { return state.ReportChartIndex > 0; }),
      context{.session = session,
              .state = state,
              .platform = platform,
              .windows = windows,
              .clientList = window.clients.list,
              .measurementList = window.measurements.list,
              .recommend = {}},
      folders_{options.appFolder.empty() ? executableFolder() : options.appFolder,
               options.commonData.empty() ? commonDataFolder() : options.commonData} {
    if (options.speed > 0)
        loop.setPace(options.speed);
    bindMainWindow(window, context, [this] { ended = true; });
}

bool ToolProcess::start() {
    std::error_code error;
    if (!std::filesystem::is_directory(folders_.appFolder, error))
        throw CannotRun("the installation folder " + folders_.appFolder.string() +
                        " does not exist");
    std::filesystem::create_directories(folders_.commonData, error);
    if (error)
        throw CannotRun("the folder " + folders_.commonData.string() + " cannot be made");
    return startUp(folders_, session, window, platform);
}

void ToolProcess::selectClient(const std::string& intid) {
    const auto& rows = window.clients.list.unfinishedRows();
    const auto at = std::find_if(rows.begin(), rows.end(), [&](const ListRow& row) {
        return row.subItem(static_cast<std::size_t>(ClientColumn::Intid)) == intid;
    });
    if (at == rows.end())
        throw CannotRun("--client: there is no client " + intid);
    selectClientRow(window, static_cast<int>(at - rows.begin()));
}

void ToolProcess::selectMeasurement(const std::string& name) {
    const auto& rows = window.measurements.list.rows();
    const auto at =
        std::find_if(rows.begin(), rows.end(), [&](const ListRow& row) { return row.tag == name; });
    const auto index = at - rows.begin();
    if (at == rows.end())
        window.measurements.list.add(measurementRow(name));
    window.measurements.list.selected = static_cast<int>(index);
    window.activeControl = &window.measurements.list; // as a click on the row
}

} // namespace vorna
