#include "tests/reliability/operations.h"

#include "acquisition/measurement_saving.h"
#include "core/file_names.h"
#include "core/settings_file.h"
#include "exchange/client_export.h"
#include "exchange/client_import.h"
#include "exchange/exchange_names.h"

namespace vorna {
namespace {

// ---- Machines

void used(const Machine& machine) {
    install(machine);
    settleIn(machine);
}

// The report folder went: the next start is a first run over a data root with clients.
void older(const Machine& machine) {
    used(machine);
    const fs::path app = machine.installation();
    fs::rename(app / names::htmlMovedAside, app / names::html);
    fs::remove_all(machine.dataRoot() / names::html);
    writeFileAtomically(machine.dataRoot() / names::anamnesis, "{\\rtf1 mine}");
    WriteIniValue(machine.dataRoot() / names::user, "Global", "name", "Mine");
}

void otherLanguage(const Machine& machine) {
    used(machine);
    WriteIniValue(machine.dataRoot() / names::setup, "Global", "Jazyk", "2");
}

void exportTo(const Machine& machine, const fs::path& folder, std::string_view intid) {
    Program program(machine);
    program.start();
    program.seams.dialogs.paths = {folder};
    if (!intid.empty())
        program.select(intid);
    intid.empty() ? exportGroup(program.exchange) : exportClient(program.exchange);
}

// Archives of both and of each: Novák is Xaver there, and Adam and what he has is another's.
void withArchives(const Machine& machine) {
    const Machine other{machine.folder / "other"};
    used(other);
    const fs::path data = other.dataRoot() / names::data;
    fs::remove_all(data / "starter");
    WriteIniValue(data / "a2" / names::klientDat, "global", "prijmeni", "Xaver");
    WriteIniValue(data / "a1" / names::klientDat, "global", "telefon", "2");
    for (const auto& file : fs::directory_iterator(data / "a1"))
        if (file.path().extension() != ".dat")
            writeFileAtomically(file.path(), "another's");
    // Who is there already comes last.
    fs::rename(data / "a1", data / "a9");
    Database(other.dataRoot() / names::clients)
        .execute("update klienti set intid = iif(intid = 'a1', 'a9', intid)");
    used(machine);
    exportTo(other, machine.archives(), "");
    exportTo(other, machine.archives(), "a9");
    exportTo(other, machine.archives(), "a2");
    fs::remove_all(other.folder);
}

// ---- What is done

void save(Program& program, const std::string& surname) {
    program.window.card.surname.text = surname;
    program.window.card.address.text = "Plzeň";
    program.window.card.save.click();
}

void saveMeasurement(Program& program) {
    program.select("a1");
    FinishedMeasurement measurement{
        .setLabel = "set", .sada = 1, .kindIndex = 0, .clientLabel = "Adam_Jan"};
    measurement.boxTexts.fill("50");
    writeMeasurement(program.session, measurement, program.seams.clock.now());
}

void saveSettings(Program& program) {
    program.window.practitionerName.text = "Nová";
    program.window.practitionerAddress.text = "Brno";
    program.window.savePractitioner.click();
    program.window.apmOption.checked = true;
    program.window.tcmOption.checked = false;
    call(program.window.languageOptions.at(1)->clicked);
    program.window.saveModeAndLanguage.click();
    program.window.place = {15, 30, 15000, 12000};
    shutDown(program.session, program.window, program.seams.platform);
}

void report(Program& program) {
    program.select("a1");
    program.window.print.history.checked = true;
    program.window.print.recommendation.checked = true;
    program.window.print.print.click();
}

std::function<void(Program&)> exporting(const char* intid) {
    return [intid](Program& program) {
        program.seams.dialogs.paths = {program.machine.archives()};
        if (*intid != '\0')
            program.select(intid);
        *intid == '\0' ? exportGroup(program.exchange) : exportClient(program.exchange);
    };
}

std::function<void(Program&)> importing(const char* archive) {
    return [archive](Program& program) {
        program.seams.dialogs.paths = {program.machine.archives() / archive};
        program.seams.dialogs.answers = {true};
        std::string_view(archive) == names::groupArchive ? importGroup(program.exchange)
                                                         : importClient(program.exchange);
    };
}

void importingAll(Program& program) {
    importing(names::groupArchive.data())(program);
}

} // namespace

const std::vector<Operation>& operations() {
    const auto newClientSaved = [](Program& program) {
        program.window.clients.newClient.click();
        save(program, "Nová");
    };
    const auto changedClientSaved = [](Program& program) {
        program.select("a1");
        save(program, "Adamová");
    };
    const auto nothing = [](Program&) {};
    static const std::vector<Operation> all{
        {.name = "FirstRun", .prepare = install, .isStart = true, .run = nothing},
        {.name = "FirstRunOnAnOlderDataRoot",
         .prepare = older,
         .isStart = true,
         .run = nothing,
         .replaces = true},
        {.name = "StartInAnotherLanguage",
         .prepare = otherLanguage,
         .isStart = true,
         .run = nothing},
        {.name = "SaveOfANewClient", .prepare = used, .run = newClientSaved},
        {.name = "SaveOfAChangedClient", .prepare = used, .run = changedClientSaved},
        {.name = "SaveOfAMeasurement", .prepare = used, .run = saveMeasurement},
        {.name = "SaveOfSettings", .prepare = used, .run = saveSettings},
        {.name = "ExportOfOne", .prepare = withArchives, .run = exporting("a1")},
        {.name = "ExportOfAll", .prepare = withArchives, .run = exporting("")},
        {.name = "ImportOfANewOne", .prepare = withArchives, .run = importing("Novák_Jan.zip")},
        {.name = "ImportOverAnother",
         .prepare = withArchives,
         .run = importing("Adam_Jan.zip"),
         .replaces = true},
        {.name = "ImportOfMany", .prepare = withArchives, .run = importingAll, .replaces = true},
        {.name = "Report", .prepare = used, .run = report, .mayFail = true},
    };
    return all;
}

} // namespace vorna
