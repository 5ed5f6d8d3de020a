#include "core/file_names.h"
#include "core/reference_database.h"
#include "tests/support/workplace.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

class ReferenceDatabaseTest : public ::testing::Test {
protected:
    void SetUp() override { place.openReference(); }

    std::string first(std::string_view statement) {
        return referenceDatabase(session).query(statement).text("x");
    }

    Workplace place;
    Session& session = place.session;
};

TEST_F(ReferenceDatabaseTest, TheShortNameIsExtendedOnceHoweverOftenItIsSwitched) {
    struct Case {
        const char* rule;
        std::int16_t language;
        const char* lung;  // has a German row
        const char* colon; // has none
    };
    const Case starts[] = {
        {"Czech", languageCzech, "P/LU ", "TS/LI "},
        {"Czech again", languageCzech, "P/LU ", "TS/LI "},
        {"English has no slash", languageEnglish, "LU ", "LI "},
        {"English again", languageEnglish, "LU ", "LI "},
        {"German: the row without a text piles up", languageGerman, "Lu/LU ", "LI /LI "},
        {"no rows at all: every name piles up", 9, "Lu/LU /LU ", "LI /LI /LI "},
        {"and once more", 9, "Lu/LU /LU /LU ", "LI /LI /LI /LI "},
        {"Czech mends it", languageCzech, "P/LU ", "TS/LI "},
    };
    for (const Case& start : starts) {
        nastavJazyk(referenceDatabase(session), start.language);
        EXPECT_EQ(first("select shortName x from Meridians where meridian = '01'"), start.lung)
            << start.rule;
        EXPECT_EQ(first("select shortName x from Meridians where meridian = '02'"), start.colon)
            << start.rule;
    }
}

TEST_F(ReferenceDatabaseTest, TheSwitchReachesEveryTableAndKeepsWhatHasNoText) {
    nastavJazyk(referenceDatabase(session), languageEnglish);
    const std::pair<const char*, const char*> cases[] = {
        {"meridianName || description || \"descr-short\" x from Meridians",
         "Lung Meridiandescriptionin short"},
        {"elementname || elementcolor x from Elements where id = 1", "woodgreen"},
        {"elementname x from Elements where id = 2", "kov"},
        {"energy x from EnergyTypes", "yin"},
        {"nazevGrafu || nazevSloupce x from GrafyTypy", "MeridiansLung"},
        {"descr x from Points where pointLong = '0109'", "On the wrist"},
        {"descr x from Points where pointLong = '0111'", "U nehtu"},
        {"type x from PointTypes", "Well"},
        {"descr x from ProblemTypes", "Sides differ"},
        {"problem x from ProblemTypes", "1"},
        {"hodnota x from Skelet where ID = 10", "hand"},
        {"text x from Therapy_APM", "More yin"},
        {"therapyText x from Therapy_e", "Strengthen"},
        {"therapyText || adTherapyText x from Therapy_m", "BalanceAlso"},
    };
    for (const auto& [query, expected] : cases)
        EXPECT_EQ(first(std::string("select ") + query), expected) << query;
}

TEST_F(ReferenceDatabaseTest, ASwitchToTheLanguageThatIsThereWritesNothing) {
    Database& database = referenceDatabase(session);
    for (const std::int16_t language : {languageCzech, languageEnglish}) {
        nastavJazyk(database, language);
        const DatabaseVersion switched = database.version();
        nastavJazyk(database, language);
        EXPECT_EQ(database.version(), switched) << language;
    }
    nastavJazyk(database, languageCzech);
    database.execute("update Meridians set shortName = 'x' where meridian = '01'");
    database.execute("update Skelet set hodnota = 'x' where ID = 10");
    nastavJazyk(database, languageCzech);
    EXPECT_EQ(first("select shortName x from Meridians where meridian = '01'"), "P/LU ");
    EXPECT_NE(first("select hodnota x from Skelet where ID = 10"), "x") << "what differs is mended";
}

TEST_F(ReferenceDatabaseTest, ANameWithoutAnEnglishOneIsTheLanguagesOwn) {
    Database& database = referenceDatabase(session);
    database.execute("delete from _Meridians where jazyk = 2");
    database.execute("update Meridians set shortName = null");
    for (int start = 0; start < 2; ++start) {
        nastavJazyk(database, languageCzech);
        EXPECT_EQ(first("select shortName x from Meridians where meridian = '01'"), "P");
    }
    const DatabaseVersion switched = database.version();
    nastavJazyk(database, languageCzech);
    EXPECT_EQ(database.version(), switched);
}

TEST_F(ReferenceDatabaseTest, WithoutTheFirstStepNamesPileUp) {
    Database& database = referenceDatabase(session);
    nastavJazyk(database, languageCzech);
    database.executeScript("alter table Meridians drop column description");
    nastavJazyk(database, languageCzech);
    EXPECT_EQ(first("select shortName x from Meridians where meridian = '01'"), "P/LU /LU ");
}

TEST_F(ReferenceDatabaseTest, AFailingStepOfTheSwitchIsPassedOver) {
    referenceDatabase(session).executeScript("drop table _elements; drop table _skelet");
    nastavJazyk(referenceDatabase(session), languageEnglish);
    EXPECT_EQ(vratElement(session, 1), "dřevo");
    EXPECT_EQ(vratProblem(session, 1), "Sides differ");
    EXPECT_EQ(first("select therapyText x from Therapy_m"), "Balance");
}

TEST_F(ReferenceDatabaseTest, LookupsReadOneColumnOfTheFirstRow) {
    EXPECT_EQ(vratSkelet(session, 1), "vlevo");
    EXPECT_EQ(vratTherapyApm(session, 5, 1), "Více jin");
    EXPECT_EQ(vratNazevGrafu(session, 1), "DRÁHY ŘÍZENÉ");
    EXPECT_EQ(vratPopisBodu(session, "0109.jpg"), "Na zápěstí") << "the first four characters";
    EXPECT_EQ(vratChinaBodu(session, "0204'"), "合谷");
    EXPECT_EQ(vratTypBodu(session, "0111"), "Studna, Pramen");
    EXPECT_EQ(vratTypBodu(session, "0109"), "") << "a point without special types";
}

TEST_F(ReferenceDatabaseTest, ALookupWithoutAResultFails) {
    EXPECT_THROW(vratSkelet(session, 99), Failure) << "no row";
    EXPECT_THROW(vratSkelet(session, 11), Failure) << "NULL";
    EXPECT_THROW(vratTherapyApm(session, 5, 9), Failure);
    EXPECT_THROW(vratPopisBodu(session, "01'9"), Failure) << "an unpaired apostrophe";
    EXPECT_THROW(vratTypBodu(session, "0'"), Failure) << "an unpaired apostrophe";
    EXPECT_THROW(vratIdKlienta(session, "a1"), Failure) << "the client database is not open";
    EXPECT_EQ(orEmpty([&] { return vratElement(session, 99); }), "");
    session.referenceDb.reset();
    EXPECT_THROW(vratElement(session, 1), Failure) << "no database";
    EXPECT_FALSE(attempt([&] { Database(session.dataRoot / names::referenceTcm); }));
}

TEST_F(ReferenceDatabaseTest, AClientIsFoundByItsFolder) {
    place.openClients();
    place.addClient("Žák", "a826541203,5");
    place.addClient("O'Neil", "b2");
    EXPECT_EQ(vratIdKlienta(session, "a826541203,5"), 1);
    EXPECT_EQ(vratIdKlienta(session, "b2"), 2);
    EXPECT_THROW(vratIdKlienta(session, "b'2"), Failure);
    EXPECT_THROW(vratIdKlienta(session, "c3"), Failure);
}

} // namespace
} // namespace vorna
