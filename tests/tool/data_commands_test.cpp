// The commands on settings, clients' lists and measurement files, each compared whole.
#include "core/file_names.h"
#include "core/settings_file.h"
#include "tests/support/test_installation.h"
#include "tests/tool/tool_fixture.h"

namespace vorna {
namespace {

using Arguments = std::vector<std::string>;

std::string replaced(std::string text, const std::string& what, const std::string& by) {
    for (std::size_t at = text.find(what); at != std::string::npos;
         at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
    return text;
}

class DataCommandsTest : public ToolTest {};

TEST_F(DataCommandsTest, SessionTellsWhatStartUpSets) {
    const std::string expected = R"({
        "messages": [], "language": 2, "mode": 1, "title": "VORNA - t24",
        "dataRoot": "DATA", "modeFolder": "APP/rezim/tcm", "firstRun": FIRST,
        "settings": {"posunrez": 3, "maxhod": 4000, "koeflog": 1, "dobamer": 40, "koef": 30,
                     "sklon": 100, "odchylka": 0, "rozstep": 50, "posun": 0},
        "userName": "", "tabs": ["t103", "t104", "t105", "t106", "t107", "t108"],
        "clients": CLIENTS})";
    const auto withValues = [&](const char* firstRun, const char* clients) {
        const std::string text =
            replaced(replaced(expected, "DATA", pathText(dataRoot)), "APP", pathText(app));
        return printed(replaced(replaced(text, "FIRST", firstRun), "CLIENTS", clients));
    };
    EXPECT_EQ(run({"session"}).out, withValues("true", "[]"));
    addClient();
    addMeasurement("P");
    EXPECT_EQ(run({"session"}).out,
              withValues("false", R"([{"id": 1, "columns": ["O'Hara & Co", "Jana", "01.02.1980",
                  "+420 123", "31.01.2025 14:30", "31.1.2025 14:30", "a826541203"]}])"));
}

TEST_F(DataCommandsTest, SessionReadsNumbersInTheUsersNotation) {
    answer({"session"});
    const auto settings = [&](const char* value) {
        WriteIniValue(dataRoot / names::setup, "Global", "posunrez", value);
        WriteIniValue(dataRoot / names::setup, "Global", "koef", value);
        return answer({"session"}).at("settings");
    };
    const std::string_view values[] = {"2,5", "2.5", "x", "-40000"};
    const char* const posunrez[] = {"2.5", "\"2.5\"", "\"x\"", "-40000"};
    const int koef[] = {2, 0, 0, 0};
    for (std::size_t i = 0; i < std::size(values); ++i) {
        const nlohmann::ordered_json read = settings(values[i].data());
        EXPECT_EQ(read.at("posunrez").dump(), posunrez[i]);
        EXPECT_EQ(read.at("koef"), koef[i]) << values[i];
    }
}

TEST_F(DataCommandsTest, ConfigurePressesTheTwoSaves) {
    const char* const saved = R"({"kind": "notice", "text": "t8", "answer": null})";
    const char* const end = R"({"kind": "message", "text": "t17", "answer": null})";
    const std::string both = std::string(saved) + "," + end;
    const std::pair<Arguments, std::pair<std::string, const char*>> cases[] = {
        {{}, {"", "false"}},
        {{"--name", "Žanna O'Neil & syn"}, {saved, "false"}},
        {{"--contact", "", "--address", "Brno"}, {saved, "false"}},
        {{"--mode", "apm"}, {end, "true"}},
        {{"--language", "4", "--name", "Жанна О'Нил"}, {both, "true"}},
    };
    for (const auto& [options, expected] : cases) {
        Arguments arguments{"configure"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const ToolOutcome outcome = run(arguments);
        EXPECT_EQ(outcome.exitStatus, 0);
        EXPECT_EQ(outcome.out, printed(R"({"messages": [)" + expected.first + R"(], "ended": )" +
                                       expected.second + "}"));
    }
    EXPECT_EQ(ReadIniValue(dataRoot / names::user, "Global", "adresa"), "Brno");
    const nlohmann::ordered_json session = answer({"session"});
    EXPECT_EQ(session.at("userName"), "Жанна О'Нил");
    EXPECT_EQ(session.at("language"), 4);
    EXPECT_EQ(session.at("mode"), 0);
    EXPECT_EQ(session.at("tabs").at(0), "Клиенты");
}

TEST_F(DataCommandsTest, MeasurementsListsTheNewestFirst) {
    const std::string client = addClient();
    EXPECT_EQ(run({"measurements", "--client", client}).out,
              printed(R"({"messages": [], "rows": []})"));
    for (const char* const name :
         {"240101080000_T_O'Hara_Jana.daf", "250131143005_P_O'Hara_Jana~Жанна^T.DAF", "notes.txt"})
        folder.write("data/VORNA/data/" + client + "/" + name, "");
    const ToolOutcome outcome = run({"measurements", "--client", client});
    EXPECT_EQ(outcome.out, printed(R"({"messages": [], "rows": [
        {"columns": ["31.01.2025 14:30", "P", "Жанна", "T"],
         "tag": "250131143005_P_O'Hara_Jana~Жанна^T.DAF"},
        {"columns": ["01.01.2024 08:00", "T", "", "A"],
         "tag": "240101080000_T_O'Hara_Jana.daf"}]})"));
}

TEST_F(DataCommandsTest, AMeasurementFileIsWrittenAndRead) {
    const std::string file = pathText(folder / "x.daf");
    const std::string values = "1,2,3,4,5,6,7,8,9,10,11,12,0,-1,2147483647,-2147483648,"
                               "17,18,19,20,21,22,23,24";
    for (const char* const label : {"P – zdrojové body", "П", ""}) {
        const std::string expected =
            printed(R"({"messages": [], "setLabel": ")" + std::string(label) + R"(", "values": [)" +
                    values + "]}");
        EXPECT_EQ(run({"write-daf", file, "--label", label, "--values", values}).out, expected);
        EXPECT_EQ(run({"read-daf", file}).out, expected);
        EXPECT_EQ(fs::file_size(file), 300U);
    }
    folder.write("short.daf", std::string("\x01\0P\x05\0\0\0\x07", 8));
    EXPECT_EQ(answer({"read-daf", pathText(folder / "short.daf")}).at("values").dump(),
              "[5,7,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]");
    EXPECT_FALSE(fs::exists(dataRoot)) << "these two need no data root";
}

TEST_F(DataCommandsTest, CheckTellsTheFaults) {
    const ToolOutcome clean = runPlain({"check", "--app-folder", VORNA_TEST_INSTALLATION});
    EXPECT_EQ(clean.exitStatus, 0);
    EXPECT_EQ(clean.out, printed(R"({"messages": [], "faults": []})"));
    EXPECT_EQ(clean.err, "");
    const fs::path damaged = folder / "damaged";
    copyInstallation(damaged);
    fs::remove(damaged / names::pipSound);
    fs::remove(damaged / names::startSound);
    const ToolOutcome faulty = runPlain({"check", "--app-folder", pathText(damaged)});
    EXPECT_EQ(faulty.exitStatus, 1);
    EXPECT_EQ(faulty.out, printed(R"({"messages": [], "faults": ["the file start.wav is missing",
        "the file pip.wav is missing"]})"));
    EXPECT_EQ(faulty.err, "vorna-tool: the installation " + pathText(damaged) + " has 2 faults\n");
}

} // namespace
} // namespace vorna
