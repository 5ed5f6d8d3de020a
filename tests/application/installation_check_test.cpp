#include "application/installation_check.h"
#include "core/file_names.h"
#include "core/reference_database.h"
#include "core/settings_file.h"
#include "tests/support/no_windows.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/test_installation.h"
#include "tests/support/test_platform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vorna {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

class InstallationCheckTest : public ::testing::Test {
protected:
    InstallationCheckTest() { copyInstallation(app); }

    [[nodiscard]] std::vector<std::string> check() {
        TestPlatform seams;
        NoWindows windows;
        Session session;
        EvaluationState state;
        Window window("Form1");
        const ListView list(window, "ListView1");
        EvaluationContext context{.session = session,
                                  .state = state,
                                  .platform = seams.platform,
                                  .windows = windows,
                                  .clientList = list,
                                  .measurementList = list,
                                  .recommend = {}};
        const ScratchFolder scratch;
        return checkInstallation(context, app, scratch.path());
    }

    void change(std::string_view database, const std::string& script) const {
        Database(app / database, referencePassword).executeScript(script);
    }
    // Takes a line out of a text file.
    void removeLine(std::string_view name, const std::string& start) const {
        std::string text = readWholeFile(app / name);
        const std::size_t from = text.find("\n" + start);
        ASSERT_NE(from, std::string::npos) << start;
        text.erase(from, text.find('\n', from + 1) - from);
        writeFileAtomically(app / name, text);
    }

    ScratchFolder folder;
    fs::path app = folder / "installation";
};

TEST_F(InstallationCheckTest, TheShippedOneHasNoFault) {
    EXPECT_EQ(check(), std::vector<std::string>{});
}

TEST_F(InstallationCheckTest, PlantedFaultsAreFound) {
    fs::remove(app / names::pipSound);
    fs::remove_all(app / names::html);
    removeLine("lang2.ini", "t48=");
    removeLine("lang3.ini", "100=");
    removeLine("lang4.ini", "Command37.caption=");
    WriteIniValue(app / "lang1.ini", "other", "t49", "");
    WriteIniValue(app / "lang1.ini", "other", "t101", std::string(255, 'x'));
    WriteIniValue(app / "lang2.ini", "other", "t50", "Mess (und) Punkt");
    WriteIniValue(app / "lang4.ini", "other", "t50", "The device is missing");
    change(names::referenceTcm, R"(
        create table rows as select * from sadymereni;
        drop table sadymereni;
        create table sadymereni as select * from rows; -- which asks for nothing to be unique
        create index bySlot on sadymereni (sada, cisloulozeni);
        create index byPlace on sadymereni (sada, poradimereni);
        delete from sadymereni where sada = 2 and cisloulozeni = 5;
        update sadymereni set extIndex = (select extIndex from sadymereni
            where sada = 3 and poradimereni = 1) where sada = 3 and poradimereni = 2;
        update poradigrafy set cisloulozeni = 10 where sada = 1 and graf = 18 and sl24 = 2;
        update _Therapy_APM set "j-text" = '' where "j-graf" = 6 and "j-column" = 3 and jazyk = 2;
        delete from GrafyTypy where id = 14;
        update _Therapy_m set "j-therapytext" = '' where jazyk = 3 and "j-therapy" = 12;
        delete from SpecPoints where pkMeridian = '01' and PointType = 8;
        update Points set Povel = 0 where pointLong in ('0105', '0810');
        update _Elements set "j-elementname" = 'Дерево' where "j-id" = 1 and jazyk = 1;
        update _ProblemTypes set "j-descr" = 'Eine Differenz zwischen zwei Seiten'
            where "j-problem" = 1 and jazyk = 3)");
    writeFileAtomically(app / names::referenceApm, "no database");

    const std::vector<std::string> faults = check();
    const char* const expected[] = {
        "the file pip.wav is missing",
        "the folder HTML is missing",
        "lang2.ini: the key other t48 is missing",
        "lang3.ini: the key other 100 is missing",
        "lang4.ini: the key graffrm Command37.caption is missing",
        "lang1.ini: the key other t49 is empty",
        "lang1.ini: the key other t101 is longer than a read shows",
        "lang2.ini: the key other t50 is in another language: und",
        "lang4.ini: the key other t50 is in another language: The",
        "vorna-tcm.mdb, language 1: set 2, run place 1, field 1 is missing or empty",
        "vorna-tcm.mdb, language 4: set 3, run place 2: the extIndex stands twice in the set",
        "vorna-tcm.mdb, language 1: chart 18, set 1, place 2: the slot stands twice",
        "vorna-tcm.mdb, language 2: evaluation text 6/3 is missing or empty",
        "vorna-tcm.mdb, language 3: chart name 14 is missing or empty",
        "vorna-tcm.mdb, language 1: the proposals for problem 2 of slot 5 in set 1 end at a point "
        "that is not there",
        "vorna-tcm.mdb, language 3: Therapy_m: 1 texts are missing or empty",
        "vorna-tcm.mdb, language 1: Elements: in another language (дерево): \"Дерево\"",
        "vorna-tcm.mdb, language 3: ProblemTypes: longer than 30 characters: \"Eine Differenz "
        "zwischen zwei Seiten\"",
        "vorna-tcm.mdb, language 4: no energy proposal for problem 3 of meridian 01",
        "vorna-apm.mdb does not open",
    };
    for (const char* const fault : expected)
        EXPECT_THAT(faults, Contains(fault));
    EXPECT_THAT(faults, Contains(HasSubstr("vorna-tcm.mdb, language 1: chart 1, set 2, place")))
        << "the slot's place on the charts";
    EXPECT_THAT(faults, Not(Contains("vorna-tcm.mdb, language 1: evaluation text 6/3 is missing or "
                                     "empty")));
}

TEST_F(InstallationCheckTest, FaultyPicturesAreFound) {
    // The copy's pictures are a link to those of the build.
    const fs::path shipped = fs::canonical(app / "rezim");
    fs::remove(app / "rezim");
    fs::copy(shipped, app / "rezim",
             fs::copy_options::recursive | fs::copy_options::create_hard_links);
    const auto replace = [&](const char* name, const std::string& bytes) {
        fs::remove(app / "rezim" / name);
        if (!bytes.empty())
            writeFileAtomically(app / "rezim" / name, bytes);
    };
    const std::string whole = readWholeFile(shipped / "tcm/obr2/01090F.jpg");
    std::string small = whole;
    const std::size_t frame = small.find("\xFF\xC0");
    ASSERT_NE(frame, std::string::npos);
    small.replace(frame + 5, 4, std::string("\x00\x10\x00\x10", 4));
    replace("tcm/obr2/01091K.jpg", "");
    replace("tcm/obr2/01100F.jpg", whole.substr(0, whole.size() / 2));
    replace("apm/obr2/M05apm-0.jpg", "no picture");
    replace("apm/obr2/lang/tomek-jang4.jpg", small);
    replace("tcm/sady/1/pic/3/01110109.jpg", "");
    replace("apm/sady/4/pic/1/01410101.jpg", "");
    fs::remove(app / "obr/flag3.png");
    std::vector<std::string> faults = check();
    std::erase_if(faults, [](const std::string& fault) { return !fault.starts_with("the "); });
    EXPECT_THAT(faults, ::testing::UnorderedElementsAre(
                            "the file obr\\flag3.png is missing",
                            "the picture tcm\\obr2\\01091K*.jpg is missing",
                            "the picture tcm\\obr2\\01100F.jpg has 0 by 0 pixels",
                            "the picture tcm\\sady\\1\\pic\\3\\01110109.jpg is missing",
                            "the picture apm\\obr2\\M05apm-0.jpg has 0 by 0 pixels",
                            "the picture apm\\sady\\4\\pic\\1\\0141* is missing",
                            "the picture apm\\obr2\\lang\\tomek-jang4.jpg has 16 by 16 pixels"));
}

TEST_F(InstallationCheckTest, AnEmptyFolderIsOneLongListOfFaults) {
    fs::remove_all(app);
    fs::create_directories(app);
    const std::vector<std::string> faults = check();
    EXPECT_THAT(faults, Contains("the file lang1.ini is missing"));
    EXPECT_THAT(faults, Contains("vorna-tcm.mdb does not open"));
    EXPECT_GT(faults.size(), 100U) << "every text";
}

} // namespace
} // namespace vorna
