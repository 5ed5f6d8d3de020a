#include "application/main_window.h"

#include "acquisition/measurement_saving.h"
#include "clients/client_list.h"
#include "clients/measurement_list.h"
#include "core/file_names.h"
#include "core/number.h"
#include "core/settings_file.h"
#include "platform/failure.h"
#include "platform/files.h"

namespace vorna {

void bindMainWindow(MainWindow& window, EvaluationContext& context,
                    const std::function<void()>& endProcess) {
    Session& session = context.session;
    Platform& platform = context.platform;
    for (const auto& button : window.chartButtons.members)
        button->clicked = [&window, &context, index = button->index()] {
            pressChartButton(context, index, window.activeControl == &window.measurementList);
        };
    window.copyMeasurement.clicked = [&window, &session, &platform] {
        attempt([&] {
            if (const ListRow* const row = window.measurementList.selectedRow())
                copyMeasurementToClipboard(session, platform, row->tag);
        });
    };
    window.clientList.clicked = [&window, &session] {
        attempt([&] { selectClientRow(window, session, window.clientList.selected); });
    };
    for (const auto& option : window.languageOptions.members)
        option->clicked = [&window, index = option->index()] { window.clickedLanguage = index; };
    window.savePractitioner.clicked = [&window, &session, &platform] {
        savePractitioner(window, session, platform);
    };
    window.saveModeAndLanguage.clicked = [&window, &session, &platform, endProcess] {
        saveModeAndLanguage(window, session, platform);
        endProcess();
    };
}

void selectClientRow(MainWindow& window, Session& session, int row) {
    window.clientList.selected = row;
    const ListRow* const client = window.clientList.selectedRow();
    if (client == nullptr)
        throw Failure("the client list has no such row");
    selectClient(session, *client);
    window.tabs.change(static_cast<std::size_t>(MainTab::Measurements),
                       [](Tab& tab) { tab.enabled = true; });
    window.measurementList.setRows(measurementRows(session));
}

void savePractitioner(MainWindow& window, Session& session, Platform& platform) {
    const auto write = [&](std::string_view key, const std::string& value) {
        attempt([&] { WriteIniValue(under(session.dataRoot, names::user), "global", key, value); });
    };
    write("name", window.practitionerName.text);
    write("kontakt", window.practitionerContact.text);
    write("adresa", window.practitionerAddress.text);
    session.userName = window.practitionerName.text;
    session.userContact = window.practitionerContact.text;
    platform.dialogs.notice(t(session, "t8"));
}

void saveModeAndLanguage(MainWindow& window, Session& session, Platform& platform) {
    const auto write = [&](std::string_view key, const std::string& value) {
        attempt(
            [&] { WriteIniValue(under(session.dataRoot, names::setup), "global", key, value); });
    };
    if (window.apmOption.checked)
        write("ModFunkce", "0");
    if (window.tcmOption.checked)
        write("ModFunkce", "1");
    if (window.clickedLanguage >= 0)
        write("Jazyk", decimalText(std::int64_t{window.clickedLanguage} + 1));
    platform.dialogs.message(t(session, "t17"));
}

} // namespace vorna
