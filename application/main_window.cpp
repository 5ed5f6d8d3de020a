#include "application/main_window.h"

#include "acquisition/measurement_saving.h"
#include "clients/client_deletion.h"
#include "clients/client_documents.h"
#include "core/file_names.h"
#include "core/number.h"
#include "core/settings_file.h"
#include "exchange/client_export.h"
#include "exchange/client_import.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "recommendation/recommendation_window.h"

#include <memory>

namespace vorna {

namespace {

using EndProcess = std::function<void()>;
using Clients = std::shared_ptr<ClientContext>;

void bindClientList(MainWindow& window, const Clients& clients) {
    ClientListTab& tab = window.clients;
    tab.filter.edited = [clients] { searchClients(*clients); };
    tab.search.clicked = [clients] { searchClients(*clients); };
    tab.list.clicked = [clients] { attempt([&] { nac_klientadb(*clients); }); };
    tab.list.doubleClicked = [&window] {
        window.tabs.select(static_cast<std::size_t>(MainTab::Card));
    };
    tab.newClient.clicked = [clients] { newClient(*clients); };
    tab.deleteClient.clicked = [clients] { deleteClient(*clients); };
}

void bindCard(MainWindow& window, const Clients& clients) {
    ClientCard& card = window.card;
    bindCardKeys(window, card);
    const Handler fill = [clients] { fillFromPersonalNumber(clients->session, clients->card); };
    card.fillFromNumber.clicked = fill;
    card.personalNumber.left = fill;
    card.save.clicked = [clients] { saveClient(*clients); };
    card.anamnesis.clicked = [clients] { openAnamnesis(clients->session, clients->platform); };
}

void bindMeasurements(MainWindow& window, const Clients& clients) {
    MeasurementTab& tab = window.measurements;
    tab.copyMeasurement.clicked = [clients] {
        attempt([&] {
            if (const ListRow* const row = clients->measurements.list.selectedRow())
                copyMeasurementToClipboard(clients->session, clients->platform, row->tag);
        });
    };
    tab.deleteMeasurement.clicked = [clients] { deleteMeasurement(*clients); };
    tab.todaysRecommendation.clicked = [clients] {
        openTodaysRecommendation(clients->session, clients->platform, clients->measurements);
    };
    tab.documents.doubleClicked = [clients] {
        openSelectedDocument(clients->session, clients->platform, clients->measurements);
    };
}

void bindCharts(MainWindow& window, EvaluationContext& context) {
    for (const auto& button : window.chartButtons.members)
        button->clicked = [&window, &context, index = button->index()] {
            pressChartButton(context, index, window.activeControl == &window.measurements.list);
        };
    context.recommend = [&context](ChartWindow& chart) { showRecommendation(context, chart); };
}

void bindReports(MainWindow& window, EvaluationContext& evaluation) {
    const auto context = std::make_shared<ReportContext>(ReportContext{
        .evaluation = evaluation,
        .measurements = window.measurements,
        .library = window.library,
        .panel = window.print,
        .pressChart = [&window](int button) { window.chartButtons.at(button)->click(); }});
    window.print.print.clicked = [&window, context] {
        window.focus(window.print.print); // the list that is active ends a report
        reportMain(*context);
    };
    window.library.printPictures.clicked = [context] { reportPictures(*context); };
}

void bindExchange(MainWindow& window, const Clients& clients) {
    const auto bind = [&](Button& button, const std::function<void(ExchangeContext&)>& operation) {
        button.clicked = [&window, &button, clients, operation] {
            if (window.work.running())
                return;
            applyLanguage(clients->session, window.work);
            window.work.follow(clients->platform.loop, button.caption, [&] {
                ExchangeContext context{.clients = *clients,
                                        .makeArchive = window.makeArchive,
                                        .progress = &window.work};
                attempt([&] { operation(context); });
            });
        };
    };
    bind(window.exportClient, [](ExchangeContext& context) { exportClient(context); });
    bind(window.exportGroup, [](ExchangeContext& context) { exportGroup(context); });
    bind(window.importClient, [](ExchangeContext& context) { importClient(context); });
    bind(window.importGroup, [](ExchangeContext& context) { importGroup(context); });
    bind(window.importFolders, [](ExchangeContext& context) { importFolders(context); });
}

void bindLibraryTab(MainWindow& window, EvaluationContext& evaluation) {
    LibraryTab& tab = window.library;
    const auto context = std::make_shared<LibraryContext>(LibraryContext{
        evaluation.session, evaluation.platform, evaluation.windows, window.library});
    tab.meridianGrid.rowChanged = [context] { changeMeridian(*context); };
    tab.pointGrid.rowChanged = [context] { changePoint(*context); };
    tab.pointGrid.buttonClicked = [context](int column) { pressPointButton(*context, column); };
    tab.showApm.clicked = [context] { showApmMeridian(*context); };
    tab.showTcm.clicked = [context] { showTcmMeridian(*context); };
    tab.star.clicked = [context] { showTeachingPicture(*context, "hvezdice"); };
    tab.yin.clicked = [context] { showTeachingPicture(*context, "tomek-jin"); };
    tab.yang.clicked = [context] { showTeachingPicture(*context, "tomek-jang"); };
    tab.pentagram.clicked = [context] { showPentagram(*context); };
    tab.printList.deletePressed = [context] { removeFromPrintList(*context); };
}

// The deletion of all clients shows how far it is, and cannot be cancelled.
DeletionRun deletionRun(MainWindow& window, const Clients& clients) {
    return [&window, clients](const std::function<void(const DeletionSteps&)>& deletion) {
        applyLanguage(clients->session, window.work);
        window.work.cancelButton.visible = false;
        window.work.follow(clients->platform.loop, window.deleteAllData.caption, [&] {
            deletion([&window](std::size_t done, std::size_t total) {
                window.work.goesOn({.done = done, .total = total, .name = {}});
            });
        });
        window.work.cancelButton.visible = true;
    };
}

void bindSettings(MainWindow& window, const Clients& clients, const EndProcess& endProcess) {
    window.settingsList.clicked = [&window, clients] {
        openSettingsRow(window, clients->session, window.settingsList.selected, window.showHelp);
    };
    for (const auto& option : window.languageOptions.members)
        option->clicked = [&window, index = option->index()] { window.clickedLanguage = index; };
    window.savePractitioner.clicked = [&window, clients] {
        savePractitioner(window, clients->session, clients->platform);
    };
    window.saveModeAndLanguage.clicked = [&window, clients, endProcess] {
        saveModeAndLanguage(window, clients->session, clients->platform);
        endProcess();
    };
    const auto openTemplate = [clients](std::string_view name) {
        return [clients, name] {
            openDocument(clients->platform, under(clients->session.dataRoot, name));
        };
    };
    window.anamnesisTemplate.clicked = openTemplate(names::anamnesis);
    window.recommendationTemplate.clicked = openTemplate(names::recommendation);
    window.deleteAllData.clicked = [&window, clients, endProcess] {
        if (!window.work.running() && deleteAllClients(*clients, deletionRun(window, clients)))
            endProcess();
    };
}

} // namespace

ClientContext clientContext(MainWindow& window, Session& session, Platform& platform) {
    return {.session = session,
            .platform = platform,
            .tabs = window.tabs,
            .clients = window.clients,
            .card = window.card,
            .measurements = window.measurements};
}

void bindMainWindow(MainWindow& window, EvaluationContext& context, const EndProcess& endProcess) {
    const Clients clients =
        std::make_shared<ClientContext>(clientContext(window, context.session, context.platform));
    bindClientList(window, clients);
    bindCard(window, clients);
    bindMeasurements(window, clients);
    bindCharts(window, context);
    bindReports(window, context);
    bindExchange(window, clients);
    bindLibraryTab(window, context);
    bindSettings(window, clients, endProcess);
    window.tabs.tabChanged = [&window, &session = context.session] { changeTab(window, session); };
}

void selectClientRow(MainWindow& window, int row) {
    static_cast<void>(window.clients.list.row(static_cast<std::size_t>(row)));
    window.clients.list.selected = row;
    call(window.clients.list.clicked);
}

void changeTab(MainWindow& window, Session& session) {
    const auto tab = static_cast<MainTab>(window.tabs.selected.get());
    if (tab == MainTab::Measurements)
        fillMeasurementList(session, window.measurements);
    if (tab == MainTab::Settings) {
        window.settingsList.clear();
        for (const char* const key : {"t122", "t123", "t124", "t125"})
            window.settingsList.add({.text = t(session, key)});
    }
    window.measureEnergy.visible = session.mode == modeTcm;
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
