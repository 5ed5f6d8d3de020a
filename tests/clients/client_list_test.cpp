#include "clients/client_list.h"
#include "tests/clients/client_desk.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

// Types a filter.
const std::vector<ListRow>& rowsFor(ClientDesk& desk, const std::string& filter) {
    desk.tab.filter.text = filter;
    fillClientList(desk.place.session, desk.tab);
    return desk.tab.list.rows();
}

std::string surnames(ClientDesk& desk, const std::string& filter) {
    std::string joined;
    for (const ListRow& row : rowsFor(desk, filter))
        joined += (joined.empty() ? "" : " ") + row.text;
    return joined;
}

TEST(ClientList, TheFilterIsMatchedAnywhereInTheSurnameByTheAlphabet) {
    ClientDesk desk;
    Workplace& place = desk.place;
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
        EXPECT_EQ(surnames(desk, filter), expected) << filter;
    EXPECT_EQ(rowsFor(desk, "").size(), 6U) << "the table is still whole";
}

TEST(ClientList, ARowShowsTheClientAndTheNewestMeasurement) {
    ClientDesk desk;
    Workplace& place = desk.place;
    place.addClient("Žák", "a82654,5", "31.1.2025 14:30:05");
    for (const char* const name :
         {"250131143005_P_Z~D^A.daf", "241231235959_P_Z~D^A.daf", "zz.txt"})
        place.folder.write(std::string("VORNA/data/a82654,5/") + name, "");
    const std::vector<ListRow> rows = rowsFor(desk, "");
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
    ClientDesk desk;
    Workplace& place = desk.place;
    place.folder.write("VORNA/data/250131143005_P_Z.daf", "");
    place.folder.write("VORNA/other/250131143005_P_Z.daf", "");
    for (const Case& c : cases)
        place.addClient("Žák", c.intid, c.zalozeni);
    place.session.clientDb->execute("insert into klienti (prijmeni) values ('Žák')");
    const std::vector<ListRow> rows = rowsFor(desk, "žák");
    ASSERT_EQ(rows.size(), std::size(cases) + 1);
    for (const ListRow& row : rows) {
        if (row.sub[2].empty()) // the row that holds a surname alone
            continue;
        const Case& c = cases[std::stoul(row.sub[2])];
        EXPECT_EQ(row.sub[3], c.lastVisit) << c.rule;
        EXPECT_EQ(row.sub[4], c.founded) << c.rule;
    }
}

TEST(ClientList, SortsAndFiltersAsEachAlphabetDoes) {
    struct Case {
        std::int16_t language;
        Texts names;
        const char *sorted, *filter, *found;
    };
    const Case cases[] = {
        {languageCzech,
         {"Chalupa", "Šimek", "Hora", "Čáp", "Sova", "Žák", "Cibulka"},
         "Cibulka Čáp Hora Chalupa Sova Šimek Žák",
         "ŽÁ",
         "Žák"},
        {languageGerman,
         {"Zorn", "Öttinger", "Otto", "Müller", "Muster", "Strauß"},
         "Müller Muster Öttinger Otto Strauß Zorn",
         "ü",
         "Müller"},
        {languageRussian,
         {"Яковлев", "Ёлкин", "Жуков", "Егоров", "Novák"},
         "Егоров Ёлкин Жуков Яковлев Novák",
         "КОВ",
         "Жуков Яковлев"},
    };
    for (const Case& c : cases) {
        ClientDesk desk(c.language);
        for (const std::string& name : c.names)
            desk.place.addClient(name, "a1");
        EXPECT_EQ(surnames(desk, ""), c.sorted);
        EXPECT_EQ(surnames(desk, c.filter), c.found);
    }
}

TEST(ClientList, SeesWhatAnybodyChangedSinceTheLastKeyStroke) {
    ClientDesk desk;
    desk.place.addClient("Adam", "a1");
    EXPECT_EQ(surnames(desk, ""), "Adam");
    desk.place.addClient("Bára", "a2");
    EXPECT_EQ(surnames(desk, ""), "Adam Bára");
    Database(desk.place.session.dataRoot / names::clients)
        .execute("update klienti set prijmeni = 'Zora' where id = 1");
    EXPECT_EQ(surnames(desk, ""), "Bára Zora");
    Database(desk.place.session.dataRoot / names::clients).executeScript("drop table klienti");
    EXPECT_EQ(surnames(desk, ""), "");
    desk.place.session.clientDb.reset();
    EXPECT_EQ(surnames(desk, ""), "") << "no database";
}

TEST(ClientList, FoldersAreReadForTheRowsThatAreLookedAt) {
    ClientDesk desk;
    desk.place.addClient("Adam", "a1");
    fillClientList(desk.place.session, desk.tab);
    EXPECT_EQ(subItem(desk.tab.list.unfinishedRows()[0], ClientColumn::LastVisit), "");
    desk.place.folder.write("VORNA/data/a1/250131143005_P_x.daf", "");
    EXPECT_EQ(subItem(desk.tab.list.row(0), ClientColumn::LastVisit), "31.01.2025 14:30");
    desk.place.folder.write("VORNA/data/a1/250231143005_P_x.daf", "");
    EXPECT_EQ(subItem(desk.tab.list.row(0), ClientColumn::LastVisit), "31.01.2025 14:30");
}

} // namespace
} // namespace vorna
