#include "clients/client_list.h"
#include "tests/support/workplace.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

std::string surnames(const std::vector<ListRow>& rows) {
    std::string joined;
    for (const ListRow& row : rows)
        joined += (joined.empty() ? "" : " ") + row.text;
    return joined;
}

TEST(ClientList, TheFilterIsMatchedAnywhereInTheSurnameByTheAlphabet) {
    Workplace place;
    EXPECT_EQ(surnames(readClientRows(place.session, "")), "") << "no database";
    place.openClients();
    place.session.clientDb->setAlphabet("cs");
    for (const char* const name : {"Chalupa", "Hora", "Čáp", "Cibulka", "O'Neil", "50%"})
        place.addClient(name, "a1");
    place.session.clientDb->execute("insert into klienti (jmeno) values ('Jan')");
    const std::pair<const char*, const char*> cases[] = {
        {"", "50% Cibulka Čáp Hora Chalupa O'Neil"},
        {"ČÁ", "Čáp"},
        {"ch", "Chalupa"},
        {"jan", ""},
        {"c%a", "Cibulka Chalupa"},
        {"_á_", "Čáp"},
        {"*", ""},
        {"O''N", "O'Neil"},
        {"O'N", ""},
        {"' or '1'='1", ""},
        {"'; drop table klienti; --", ""},
    };
    for (const auto& [filter, expected] : cases)
        EXPECT_EQ(surnames(readClientRows(place.session, filter)), expected) << filter;
    EXPECT_EQ(readClientRows(place.session, "").size(), 6U) << "the table is still whole";
}

TEST(ClientList, ARowShowsTheClientAndTheNewestMeasurement) {
    Workplace place;
    place.openClients();
    place.addClient("Žák", "a82654,5", "31.1.2025 14:30:05");
    for (const char* const name :
         {"250131143005_P_Z~D^A.daf", "241231235959_P_Z~D^A.daf", "zz.txt"})
        place.folder.write(std::string("VORNA/data/a82654,5/") + name, "");
    const std::vector<ListRow> rows = readClientRows(place.session, "");
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].text, "Žák");
    EXPECT_EQ(rows[0].tag, "1");
    EXPECT_EQ(rows[0].sub, (std::vector<std::string>{"Jan", "01.02.1980", "0", "31.01.2025 14:30",
                                                     "31.1.2025 14:30", "a82654,5"}));
}

TEST(ClientList, OddRowsLoseNoOthers) {
    struct Case {
        const char *rule, *intid, *zalozeni, *lastVisit, *founded;
    };
    const Case cases[] = {
        {"no folder", "b1", "1.1.2025 9:05", "", "1.1.2025 9:05"},
        {"a time with a day's half", "b2", "1/2/2025 9:05:07 AM", "", "1/2/2025 9:05:07"},
        {"more colons than a time has", "b3", "1:2:3:4", "", "1:2:3:4"},
        {"a name outside of the clients' folder", "../other", "", "", ""},
        {"no name: not the clients' folder itself", "", "", "", ""},
    };
    Workplace place;
    place.openClients();
    place.folder.write("VORNA/data/250131143005_P_Z.daf", "");
    place.folder.write("VORNA/other/250131143005_P_Z.daf", "");
    for (const Case& c : cases)
        place.addClient("Žák", c.intid, c.zalozeni);
    place.session.clientDb->execute("insert into klienti (prijmeni) values ('Žák')");
    const std::vector<ListRow> rows = readClientRows(place.session, "žák");
    ASSERT_EQ(rows.size(), std::size(cases) + 1);
    for (const ListRow& row : rows) {
        if (row.sub[2].empty()) // the row that holds a surname alone
            continue;
        const Case& c = cases[std::stoul(row.sub[2])];
        EXPECT_EQ(row.sub[3], c.lastVisit) << c.rule;
        EXPECT_EQ(row.sub[4], c.founded) << c.rule;
    }
}

TEST(ClientList, ASelectionMakesTheClientCurrent) {
    Workplace place;
    place.session.newClientPending = true;
    selectClient(place.session, {.text = "Žák", .sub = {"", "", "", "", "", "a82654,5"}});
    EXPECT_EQ(place.session.currentClientFolder, "a82654,5");
    EXPECT_EQ(place.session.klientDatPath, place.session.clientsFolder / "a82654,5" / "klient.dat");
    EXPECT_FALSE(place.session.newClientPending);
}

} // namespace
} // namespace vorna
