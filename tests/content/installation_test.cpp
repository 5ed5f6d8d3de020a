// The real sources, laid down as the build does it.
#include "acquisition/measurement_name.h"
#include "acquisition/measurement_record.h"
#include "content/installation.h"
#include "content/proposal_table.h"
#include "content/sample_client.h"
#include "content/table_source.h"
#include "core/file_names.h"
#include "core/reference_database.h"
#include "core/settings_file.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace vorna {
namespace {

fs::path sources() {
    return fs::path(VORNA_TEST_SOURCE) / "installation";
}

std::int64_t count(Database& database, const std::string& from) {
    return database.query("select count(*) as n from " + from).number("n");
}

// Laid down once for all tests that only read it or copy it.
class Installation : public testing::Test {
protected:
    static void SetUpTestSuite() {
        scratch = std::make_unique<ScratchFolder>();
        layInstallation({.sources = sources(), .into = folder()});
    }
    static void TearDownTestSuite() { scratch.reset(); }
    static fs::path folder() { return scratch->path() / "installation"; }

    static inline std::unique_ptr<ScratchFolder> scratch;
};

TEST_F(Installation, HoldsAllThatStartUpTakesFromIt) {
    for (const char* name :
         {"vorna-apm.mdb", "vorna-tcm.mdb", "klienti.mdb", "anamneza.rtf", "doporuceni.rtf",
          "newk.ini", "setup.ini", "user.ini", "lang1.ini", "lang2.ini", "lang3.ini", "lang4.ini",
          "start.wav", "pip.wav", "dingdong.wav", "twinkles.wav", "HTML/css/text.css"})
        EXPECT_TRUE(fs::is_regular_file(folder() / name)) << name;
    for (const char* name : {"data", "rezim/tcm", "rezim/apm"})
        EXPECT_TRUE(fs::is_directory(folder() / name)) << name;
}

TEST_F(Installation, LaidAgainGivesTheSameBytes) {
    const ScratchFolder other;
    layInstallation({.sources = sources(), .into = other.path()});
    for (const std::string& name : listFiles(folder(), "*.mdb"))
        EXPECT_TRUE(readWholeFile(folder() / name) == readWholeFile(other.path() / name)) << name;
}

TEST_F(Installation, ThePageOfProposalsIsTheContents) {
    const ScratchFolder copy;
    fs::copy_file(folder() / names::referenceTcm, copy / "reference.mdb");
    Database reference(copy / "reference.mdb", referencePassword);
    nastavJazyk(reference, languageEnglish);
    const std::string page = proposalTable(reference);
    EXPECT_EQ(page, readWholeFile(fs::path(VORNA_TEST_SOURCE) / "docs" / "proposals.md"))
        << "vorna-content proposals writes it anew";
    // The lung below the level: its mother is the earth.
    EXPECT_NE(page.find("| Lung Meridian | LU 9 | SP 3 | LU 9 |"), std::string::npos);
}

TEST_F(Installation, ReferenceDatabasesAskForThePassword) {
    for (const std::string_view name : {names::referenceTcm, names::referenceApm}) {
        EXPECT_THROW(Database(folder() / name), Failure);
        EXPECT_THROW(Database(folder() / name, "dremoklat"), Failure);
        EXPECT_NO_THROW(Database(folder() / name, referencePassword));
    }
    EXPECT_NO_THROW(Database(folder() / names::clients));
}

TEST_F(Installation, EverySetAndChartIsWhole) {
    for (const std::string_view name : {names::referenceTcm, names::referenceApm}) {
        SCOPED_TRACE(name);
        Database database(folder() / name, referencePassword);
        EXPECT_EQ(count(database, "Points"), 361);
        for (const int sada : {1, 2, 3, 4}) {
            const std::string set = "sada = " + std::to_string(sada);
            EXPECT_EQ(count(database, "sadymereni join Points on pointLong = longpoint"
                                      " join Skelet on ID = misto where " +
                                          set),
                      24);
            for (const int graf : {1, 2, 18})
                EXPECT_EQ(count(database, "qporadigrafy where graf = " + std::to_string(graf) +
                                              " and " + set),
                          24);
        }
        EXPECT_EQ(count(database, "q6elements"), 12);
        EXPECT_EQ(count(database, "(select distinct PointType from Qtherapy_m)"), 19);
    }
}

// The texts that windows and charts show, after a switch to each language.
TEST_F(Installation, LanguageSwitchLeavesNoTextOut) {
    struct Case {
        std::int16_t language;
        const char* wood;
        const char* heart;
    };
    const Case cases[] = {{languageRussian, "Дерево", "C/HT "},
                          {languageGerman, "Holz", "He/HT "},
                          {languageEnglish, "Wood", "HT "},
                          {languageCzech, "Dřevo", "S/HT "}};
    const fs::path file = scratch->path() / "switched.mdb";
    copyFileOver(folder() / names::referenceTcm, file);
    Session session;
    session.referenceDb.emplace(file, referencePassword);
    Database& database = *session.referenceDb;
    for (const Case& words : cases) {
        SCOPED_TRACE(words.language);
        nastavJazyk(database, words.language);
        EXPECT_EQ(vratElement(session, 1), words.wood);
        EXPECT_EQ(database.query("select shortName from Meridians where meridian = '05'")
                      .text("shortName"),
                  words.heart);
        EXPECT_EQ(count(database, "qporadigrafy where shortName is null or descr is null"
                                  " or hodnota is null or elementname is null"),
                  0);
        EXPECT_EQ(count(database, "Meridians where meridianName is null or description is null"
                                  " or \"descr-short\" is null or china is null"),
                  0);
        EXPECT_EQ(count(database, "Points where descr is null or china is null"), 0);
        EXPECT_EQ(count(database, "Therapy_APM where text is null"), 0);
        EXPECT_EQ(count(database, "Therapy_e where therapyText is null"), 0);
        EXPECT_EQ(count(database, "Therapy_m where therapyText is null"), 0);
        for (const char* sister :
             {"_Meridians", "_elements", "_EnergyTypes", "_GrafyTypy", "_Points", "_pointTypes",
              "_ProblemTypes", "_skelet", "_Therapy_APM", "_Therapy_e", "_Therapy_m"})
            EXPECT_EQ(count(database, std::string(sister) +
                                          " where jazyk = " + std::to_string(words.language)),
                      count(database, sister + 1))
                << sister;
    }
}

TEST_F(Installation, SampleClientIsAddedOnceWithItsMeasurements) {
    const ScratchFolder root;
    fs::copy(folder(), root.path(), fs::copy_options::recursive);
    const SampleClientPlan plan{.sources = sources(), .dataRoot = root.path()};
    EXPECT_TRUE(addSampleClient(plan));
    EXPECT_FALSE(addSampleClient(plan));

    Database database(root.path() / names::clients);
    ASSERT_EQ(count(database, "klienti"), 1);
    const Recordset row = database.query("select * from klienti");
    const std::string intid = row.text("intid");
    const fs::path client = root.path() / names::data / intid;
    EXPECT_EQ(ReadIniValue(client / names::klientDat, "global", "prijmeni"), row.text("prijmeni"));
    EXPECT_EQ(ReadIniValue(client / names::klientDat, "global", "intid"), intid);
    EXPECT_EQ(ReadIniValue(client / names::klientDat, "global", "zalozeni") + ":26",
              row.text("zalozeni"));

    const TableSource table = readTable(sources() / "sample" / "measurements.tsv");
    const std::vector<std::string> files = listFiles(client, names::measurementPattern);
    ASSERT_EQ(files.size(), 5U);
    ASSERT_EQ(table.rows.size(), files.size());
    for (std::size_t i = 0; i < files.size(); ++i) {
        SCOPED_TRACE(files[i]);
        const SourceRow& expected = table.rows[i];
        EXPECT_EQ(vrattyp(files[i]), table.text(expected, "kind"));
        EXPECT_EQ(vratapmtcm(files[i]), table.text(expected, "mode"));
        EXPECT_EQ(vratuz(files[i]), table.text(expected, "practitioner"));
        const MeasurementRecord record = readMeasurement(client / files[i]);
        EXPECT_EQ(record.setLabel.substr(0, 1), table.text(expected, "kind"));
        for (std::size_t slot = 1; slot <= slotCount; ++slot)
            EXPECT_EQ(std::to_string(record.values[slot] / 30),
                      table.text(expected, "v" + std::to_string(slot)));
    }
}

// Sources and an installation of the test's own, for what changes between two runs.
class ChangingInstallation : public testing::Test {
protected:
    ChangingInstallation() {
        fs::copy(sources(), plan.sources, fs::copy_options::recursive);
        layInstallation(plan);
    }

    // What the program does at its first start.
    void startForTheFirstTime() const {
        fs::rename(plan.into / "HTML", plan.into / "CANDELETEHTML");
        fs::rename(plan.into / "data", plan.into / "CANDELETEDATA");
    }
    [[nodiscard]] std::vector<std::string> starterFolders() const {
        std::vector<std::string> found;
        for (const char* name : {"HTML", "data", "CANDELETEHTML", "CANDELETEDATA"})
            if (fs::exists(plan.into / name))
                found.emplace_back(name);
        return found;
    }

    ScratchFolder scratch;
    InstallationPlan plan{.sources = scratch.path() / "sources",
                          .into = scratch.path() / "installation",
                          .list = scratch.path() / "list"};
    using Folders = std::vector<std::string>;
};

TEST_F(ChangingInstallation, UsedOneGetsStarterFoldersBackOnlyWithReason) {
    startForTheFirstTime();
    layInstallation(plan);
    EXPECT_EQ(starterFolders(), (Folders{"CANDELETEHTML", "CANDELETEDATA"}));

    scratch.write("sources/HTML/css/text.css", "p { color: black }\n");
    layInstallation(plan);
    EXPECT_EQ(starterFolders(), (Folders{"HTML", "CANDELETEDATA"}));
    EXPECT_EQ(readWholeFile(plan.into / "HTML/css/text.css"), "p { color: black }\n");

    fs::rename(plan.into / "HTML", plan.into / "CANDELETEHTML");
    plan.asNew = true;
    layInstallation(plan);
    EXPECT_EQ(starterFolders(), (Folders{"HTML", "data"}));
}

TEST_F(ChangingInstallation, FileWithoutSourceGoesAndWhatOthersPutThereStays) {
    scratch.write("sources/HTML/old/extra.css", "");
    scratch.write("installation/vorna-tool", "a program");
    layInstallation(plan);
    ASSERT_TRUE(fs::exists(plan.into / "HTML/old/extra.css"));
    fs::remove_all(plan.sources / "HTML/old");
    layInstallation(plan);
    EXPECT_FALSE(fs::exists(plan.into / "HTML/old"));
    EXPECT_TRUE(fs::exists(plan.into / "HTML/css/text.css"));
    EXPECT_TRUE(fs::exists(plan.into / "vorna-tool"));
}

TEST_F(ChangingInstallation, FaultyOrMissingSourceIsNamed) {
    scratch.write("sources/tables/Elements.tsv", "id\tfault\n");
    EXPECT_THROW(layInstallation(plan), Failure);
    copyFileOver(sources() / "tables/Elements.tsv", plan.sources / "tables/Elements.tsv");
    fs::remove(plan.sources / "lang/lang3.ini");
    try {
        layInstallation(plan);
        ADD_FAILURE() << "no Failure";
    } catch (const Failure& failure) {
        EXPECT_NE(std::string(failure.what()).find("lang3.ini: "), std::string::npos);
    }
}

} // namespace
} // namespace vorna
