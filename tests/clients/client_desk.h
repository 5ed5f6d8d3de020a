// The first three tabs of the main window and the library over a workplace, without the window's
// other parts.
#pragma once

#include "clients/client_operations.h"
#include "core/file_names.h"
#include "core/main_tabs.h"
#include "core/settings_file.h"
#include "tests/support/test_platform.h"
#include "tests/support/workplace.h"

namespace vorna {

using Texts = std::vector<std::string>;

struct ClientDesk {
    explicit ClientDesk(std::int16_t language = languageCzech) {
        place.session.language = language;
        place.openClients();
        place.folder.write("installation/lang1.ini",
                           "[other]\nT1=saved\nt19=\"delete \"\nt20=deleted\nt144=full\n");
        place.folder.write("VORNA/user.ini", "[Global]\nname=Dvořák\npozx=15\n");
        card.gender.rows = Texts{"man", "woman"};
        card.maritalStatus.rows = Texts{"single", "married", "divorced", "widowed"};
    }

    // Clicks on a row of the list.
    void select(int row) {
        tab.list.selected = row;
        nac_klientadb(context);
    }
    [[nodiscard]] std::string klientDat(std::string_view key) const {
        return ReadIniValue(place.session.klientDatPath, "global", key);
    }
    // A column of the rows of a surname, in the order of their ids, joined by "|".
    std::string column(const std::string& surname, const std::string& column) {
        std::string joined;
        Recordset rows = place.session.clientDb->query(
            "select coalesce(" + column + ", 'null') as c from klienti where prijmeni = ?",
            {surname});
        for (; !rows.atEnd(); rows.moveNext())
            joined += (joined.empty() ? "" : "|") + rows.text("c");
        return joined;
    }
    [[nodiscard]] fs::path folderOf(const std::string& intid) const {
        return place.session.clientsFolder / intid;
    }

    Workplace place;
    TestPlatform seams;
    Window window{"Form1"};
    TabStrip tabs{window, "SSTab1", mainTabCount};
    ClientListTab tab{window};
    ClientCard card{window};
    MeasurementTab measurements{window};
    ClientContext context{.session = place.session,
                          .platform = seams.platform,
                          .tabs = tabs,
                          .clients = tab,
                          .card = card,
                          .measurements = measurements};
};

} // namespace vorna
