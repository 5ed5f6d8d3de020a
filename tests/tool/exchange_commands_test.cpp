// Export and import by the real tool: from one data root into another, into one that has the
// client already, and what comes from an older installation.
#include "core/file_names.h"
#include "core/settings_file.h"
#include "platform/database.h"
#include "tests/exchange/zip_maker.h"
#include "tests/support/test_installation.h"
#include "tests/tool/tool_fixture.h"

#include <map>

namespace vorna {
namespace {

using Json = nlohmann::ordered_json;
using Tree = std::map<std::string, std::string>;

Json message(const char* kind, const std::string& text) {
    return {{"kind", kind}, {"text", text}, {"answer", nullptr}};
}

Json question(const std::string& text, const char* answer) {
    return {{"kind", "question"}, {"text", text}, {"answer", answer}};
}

class ExchangeCommandsTest : public ToolTest {
protected:
    // Makes a client with a measurement, a document and a folder of his own.
    std::string makeClient(const std::string& surname, const std::string& now) {
        const Json made =
            Json::parse(runAt(now, {"client-save", "--new", "--set", "prijmeni=" + surname, "--set",
                                    "jmeno=Jana", "--set", "narozeni=01.02.1980", "--set", "stav=3",
                                    "--set", "adresa=Dlouhá 1, Brno", "--set", "pohlavi=1"}));
        const std::string intid = made.at("intid");
        const std::string own = "data/VORNA/data/" + intid + "/";
        folder.write(own + "250131143005_P_" + surname + "_Jana~Dvořák^T.daf",
                     std::string(300, '\x7F'));
        folder.write(own + "anamneza.rtf", "{\\rtf1 " + surname + "}");
        return intid;
    }

    std::string runAt(const std::string& now, std::vector<std::string> arguments) {
        for (const std::string& option :
             {std::string("--app-folder"), app.string(), std::string("--common-data"),
              dataRoot.parent_path().string(), std::string("--locale"), std::string("cs_CZ"),
              std::string("--now"), now})
            arguments.push_back(option);
        return runPlain(arguments).out;
    }

    // The rows of the table and the files of their folders, without what is made anew: the intid,
    // the founding moment, and the line of the intid in klient.dat.
    [[nodiscard]] Tree clientsIn(const fs::path& root) const {
        Tree clients;
        Database table(root / names::clients);
        Recordset rows = table.query(
            "select intid, prijmeni, prijmeni || '|' || jmeno || '|' || narozeni || '|' || stav ||"
            " '|' || adresa || '|' || coalesce(telefon, '') as facts from klienti");
        for (; !rows.atEnd(); rows.moveNext()) {
            const std::string surname = rows.text("prijmeni");
            clients[surname] = rows.text("facts");
            for (const auto& file : fs::directory_iterator(root / "data" / rows.text("intid"))) {
                std::string content = readWholeFile(file.path());
                const std::size_t line = content.find("intid=");
                if (file.path().filename() == "klient.dat" && line != std::string::npos)
                    content.erase(line, content.find('\n', line) - line);
                clients[surname + "/" + file.path().filename().string()] = content;
            }
        }
        return clients;
    }

    [[nodiscard]] std::string out(const std::string& name) const {
        return (folder / "out" / name).string();
    }

    const fs::path other = folder / "other/VORNA";
};

TEST_F(ExchangeCommandsTest, ClientsGoFromOneDataRootIntoAnother) {
    fs::create_directories(folder / "out");
    const std::string first = makeClient("Šťastná", "2025-01-31T14:30:05");
    makeClient("O''Hara & Čáp", "2025-01-31T14:30:06");
    const Tree before = clientsIn(dataRoot);
    ASSERT_EQ(before.size(), 8U);

    EXPECT_EQ(answer({"export", "--client", first, "--to", out("")}).dump(),
              Json({{"messages", {message("message", "t10 : " + out("Šťastná_Jana.zip"))}},
                    {"archive", out("Šťastná_Jana.zip")}})
                  .dump());
    EXPECT_EQ(answer({"export", "--all", "--to", out("")}).dump(),
              Json({{"messages", {message("message", "t139 : " + out("VornaExport.zip"))}},
                    {"archive", out("VornaExport.zip")}})
                  .dump());
    EXPECT_EQ(clientsIn(dataRoot), before);

    const fs::path from = std::exchange(dataRoot, other);
    app = folder / "other installation";
    copyInstallation(app);
    nameTextsByTheirKeys(app);
    const Json saved = message("notice", "t1");
    const Json came = message("notice", "t12");
    EXPECT_EQ(answer({"import", out("Šťastná_Jana.zip")}).dump(),
              Json({{"messages", {saved, came}},
                    {"clients", {{{"intid", "a79170121005"}, {"result", "new"}}}}})
                  .dump());
    EXPECT_EQ(answer({"import", "--group", out("VornaExport.zip")}).dump(),
              Json({{"messages", {question("t133Šťastná Jana", "no"), saved, came}},
                    {"clients",
                     {{{"intid", "a79170121005"}, {"result", "skipped"}},
                      {{"intid", "a79170121206"}, {"result", "new"}}}}})
                  .dump());
    EXPECT_EQ(clientsIn(other), before) << "in an empty data root";
    EXPECT_EQ(ReadIniValue(other / "data/a79170121206/klient.dat", "global", "intid"),
              "a79170121206");

    answer({"client-save", "--client", "a79170121005", "--set", "telefon=+420 123", "--set",
            "adresa=Jiná 2"});
    folder.write("other/VORNA/data/a79170121005/250201120000_P_x.daf", "kept");
    EXPECT_EQ(answer({"import", out("Šťastná_Jana.zip"), "--answer", "ok"}).dump(),
              Json({{"messages", {question("t133Šťastná Jana", "ok"), came}},
                    {"clients", {{{"intid", "a79170121005"}, {"result", "overwritten"}}}}})
                  .dump());
    Tree after = clientsIn(other);
    EXPECT_EQ(after["Šťastná/250201120000_P_x.daf"], "kept");
    after.erase("Šťastná/250201120000_P_x.daf");
    const std::string klientDat = "Šťastná/klient.dat"; // its founding moment is the import's
    const fs::path file = other / "data/a79170121005/klient.dat";
    EXPECT_EQ(ReadIniValue(file, "global", "zalozeni"), "31.01.2025 14:30");
    EXPECT_EQ(ReadIniValue(file, "global", "telefon"), "") << "the archive's, also empty ones";
    EXPECT_EQ(ReadIniValue(file, "global", "adresa"), "Dlouhá 1, Brno");
    after[klientDat] = before.at(klientDat);
    EXPECT_EQ(after, before) << "over the same client";
    EXPECT_FALSE(fs::exists(other / "data/TEMPImport"));
    EXPECT_TRUE(fs::exists(other / "backup/20250131-143005-import/klienti.mdb"));
    EXPECT_EQ(clientsIn(from), before);
}

// Names and klient.dat in Windows-1250, measurements without "~" and "^".
TEST_F(ExchangeCommandsTest, AnArchiveOfAnOlderInstallationComesIn) {
    const std::string name = "\xD8"
                             "eho\xF8"; // Řehoř
    const std::string klientDat =
        "[global]\r\nprijmeni=" + name + "\r\njmeno=\x8A\xE1rka\r\nintid=a9\r\nstav=1\r\n";
    folder.write("old.zip", zipOf({{.name = "klient.dat", .content = klientDat},
                                   {.name = "070131143005_P_" + name + ".daf", .content = "x"},
                                   {.name = "\x8A"
                                            "ablona.rtf",
                                    .content = "{\\rtf1}"}}));
    const Json answered = answer({"import", (folder / "old.zip").string()});
    ASSERT_EQ(answered.at("clients").size(), 1U);
    const std::string intid = answered.at("clients")[0].at("intid");
    EXPECT_EQ(
        answer({"clients"}).at("rows")[0].at("columns").dump(),
        Json({"Řehoř", "Šárka", "__.__.____", "", "31.01.2007 14:30", "31.1.2025 14:30", intid})
            .dump());
    EXPECT_EQ(answer({"measurements", "--client", intid}).at("rows").dump(),
              Json::parse(R"([{"columns": ["31.01.2007 14:30", "P", "", "A"],
                               "tag": "070131143005_P_Řehoř.daf"}])")
                  .dump());
    EXPECT_EQ(readWholeFile(dataRoot / "data" / intid / "070131143005_P_Řehoř.daf"), "x");
    EXPECT_TRUE(fs::exists(dataRoot / "data" / intid / "Šablona.rtf"));
    EXPECT_EQ(readWholeFile(dataRoot / "data" / intid / "klient.dat"),
              "[global]\r\nprijmeni=" + name + "\r\njmeno=\x8A\xE1rka\r\nintid=" + intid +
                  "\r\nstav=1\r\n")
        << "its letters as they were";
}

TEST_F(ExchangeCommandsTest, FoldersComeInAndAreLeftAsTheyAre) {
    folder.write("from/1/klient.dat", "[global]\r\nprijmeni=Adam\r\njmeno=Jan\r\n");
    folder.write("from/2/klient.dat", "[global]\r\nprijmeni=ADAM\r\njmeno=JAN\r\n");
    const Json came = answer({"import", "--folder", (folder / "from").string(), "--answer", "yes"});
    EXPECT_EQ(came.at("messages")[2], question("t133ADAM JAN", "yes"));
    EXPECT_EQ(came.at("clients")[0].at("result"), "new");
    EXPECT_EQ(came.at("clients")[1].at("result"), "new") << "this form never overwrites";
    EXPECT_EQ(answer({"clients"}).at("rows").size(), 2U);
    EXPECT_EQ(listFiles(folder / "from/1", "*"), std::vector<std::string>{"klient.dat"});
}

TEST_F(ExchangeCommandsTest, WhatCannotRunSaysWhyAndWhatTheUserIsToldIsAnAnswer) {
    addClient();
    const std::string to = folder.path().string();
    folder.write("a.txt", "no archive");
    const std::string text = (folder / "a.txt").string();
    struct Case {
        std::vector<std::string> arguments;
        int exitStatus;
        std::string names; // in the line on standard error
    };
    const Case cases[] = {
        {{"export", "--to", to}, 2, "--all"},
        {{"export", "--all", "--client", "a826541203", "--to", to}, 2, "--client"},
        {{"export", "--all"}, 2, "--to"},
        {{"export", "--all", "--to", to + "/none"}, 1, "/none"},
        {{"export", "--client", "a1", "--to", to}, 1, "a1"},
        {{"import"}, 2, "--group"},
        {{"import", text, "--group", text}, 2, "--group"},
        {{"import", to + "/none.zip"}, 1, "none.zip"},
        {{"import", "--folder", text}, 1, "a.txt"},
    };
    for (const Case& c : cases) {
        const ToolOutcome outcome = run(c.arguments);
        EXPECT_EQ(outcome.exitStatus, c.exitStatus) << outcome.err;
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err.find(c.names), std::string::npos) << outcome.err;
    }
    const Json refused = answer({"import", "--group", text});
    EXPECT_TRUE(refused.at("clients").empty());
    EXPECT_EQ(refused.at("messages").size(), 1U);
    folder.write("group.zip", zipOf({{.name = "a1/klient.dat"}}));
    EXPECT_EQ(answer({"import", (folder / "group.zip").string()}).at("messages").dump(),
              Json({message("message", "Toto není soubor individuálního exportu")}).dump());
    const Json empty = answer({"export", "--all", "--to", to});
    EXPECT_TRUE(empty.at("archive").is_null()) << "a client's folder without a file";
    EXPECT_TRUE(empty.at("messages").empty());
}

TEST_F(ExchangeCommandsTest, AReportNamesItsPicturesWhereverTheyLie) {
    const fs::path moved = folder / "žluť 世" / "installation";
    fs::create_directories(moved.parent_path());
    fs::rename(app, moved);
    app = moved;
    const Json told = answer({"report", "--client", addClient(), "--point", "0101"});
    const Json& pictures = told.at("pictures");
    ASSERT_FALSE(pictures.empty()) << told;
    for (const Json& picture : pictures)
        EXPECT_TRUE(fs::is_regular_file(picture.get<std::string>())) << picture;
}

} // namespace
} // namespace vorna
