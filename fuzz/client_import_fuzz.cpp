// Any bytes as the klient.dat of a client who comes in: from a folder as a new client, and from an
// archive over the client that the first import made. Nothing is written but the client's folder,
// its row and the backup.
#include "fuzz/support.h"
#include "tests/exchange/import_desk.h"

#include <algorithm>

namespace {

using namespace vorna;
using fuzz::require;

struct Desk : ImportDesk {
    Desk() {
        place.folder.write(std::string("coming/") + measurement, std::string(300, '\1'));
        rootNames = listFiles(place.session.dataRoot, "*");
        folderNames = listFiles(place.folder.path(), "*");
    }

    // Back to the empty data root, at the time of the beginning.
    void reset() {
        place.session.clientDb->execute("delete from klienti");
        for (const std::string& name : listFiles(place.session.clientsFolder, "*"))
            removeTree(place.session.clientsFolder / name);
        for (const std::string& name : listFiles(place.session.dataRoot, "*"))
            if (std::find(rootNames.begin(), rootNames.end(), name) == rootNames.end())
                removeTree(place.session.dataRoot / name);
        place.session.newClientPending = false;
        searchClients(context);
        seams.clock.moveTo(begin);
        seams.dialogs.shown.clear();
    }

    LocalTime begin = seams.clock.now();
    std::vector<std::string> rootNames;   // of the data root
    std::vector<std::string> folderNames; // of what is around it
};

// What is around the client's folder is what was there before.
void checkPlaces(const Desk& desk, const std::string& intid, bool hasBackup) {
    std::vector<std::string> rootNames = listFiles(desk.place.session.dataRoot, "*");
    require(std::erase(rootNames, "backup") == (hasBackup ? 1 : 0));
    require(rootNames == desk.rootNames);
    require(listFiles(desk.place.folder.path(), "*") == desk.folderNames);
    require(listFiles(desk.place.session.clientsFolder, "*") == std::vector{intid});
    require(desk.namesOf(intid) == std::string(measurement) + ",klient.dat");
}

// The row has the card's surname; a value with an unpaired apostrophe makes none.
void checkRow(Desk& desk, const KlientDat& card) {
    Recordset rows = desk.place.session.clientDb->query("select prijmeni, intid from klienti");
    if (rows.atEnd())
        return;
    require(rows.text("prijmeni") == quotedText(card.value("prijmeni")));
    require(rows.text("intid") == firstIntid);
    rows.moveNext();
    require(rows.atEnd());
}

void importFolder(Desk& desk, std::string_view klientDat) {
    const fs::path source = desk.place.folder / "coming";
    fuzz::writeScratch(source / "klient.dat", klientDat);
    const Tree before = treeOf(source);
    require(told(vlozK(desk.exchange, source)) == Texts{std::string(firstIntid) + " new"});
    require(treeOf(source) == before);
    checkPlaces(desk, firstIntid, false);
    checkRow(desk, KlientDat(source));
}

void importArchive(Desk& desk, std::string_view klientDat) {
    const fs::path file = desk.place.folder / "out/offered.zip";
    fuzz::writeScratch(file, zipOf({{.name = "klient.dat", .content = std::string(klientDat)}}));
    desk.seams.dialogs.paths = {file};
    desk.seams.dialogs.answers = {true};
    require(told(importClient(desk.exchange)) == Texts{std::string(firstIntid) + " overwritten"});
    checkPlaces(desk, firstIntid, true);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Desk desk;
    importFolder(desk, fuzz::textOf(data, size));
    importArchive(desk, fuzz::textOf(data, size));
    desk.reset();
    return 0;
}
