// The commands on clients, each answer compared whole.
#include "core/file_names.h"
#include "core/settings_file.h"
#include "tests/tool/tool_fixture.h"

namespace vorna {
namespace {

const char* const saved = R"([{"kind": "notice", "text": "t1", "answer": null}])";

class ClientCommandsTest : public ToolTest {};

TEST_F(ClientCommandsTest, AClientIsMadeChangedListedAndRemoved) {
    const char* const row = R"({"id": 1, "columns": ["Šťastná", "", "01.02.1980", "", "",
        "31.1.2025 14:30", "a79170121005"], "prijmeni": "Šťastná", "jmeno": "", "titulpred": "",
        "titulza": "", "adresa": "", "stav": "3", "email": "", "telefon": "", "rc": "785212/1234",
        "adresa2": "", "povolani": "", "telefon2": "", "narozeni": "01.02.1980",
        "intid": "a79170121005", "zalozeni": "31.1.2025 14:30:05",
        "poslakce": null})";
    EXPECT_EQ(run({"client-save", "--new", "--set", "prijmeni=Šťastná", "--set", "stav=3", "--set",
                   "narozeni=01.02.1980", "--set", "rc=785212/1234", "--set", "pohlavi=1"})
                  .out,
              printed(std::string(R"({"messages": )") + saved + R"(, "row": )" + row +
                      R"(, "intid": "a79170121005"})"));
    const nlohmann::ordered_json changed =
        answer({"client-save", "--client", "a79170121005", "--set", "jmeno=Jana = Eva"});
    EXPECT_EQ(changed.at("row").at("columns").at(1), "Jana = Eva");
    EXPECT_EQ(changed.at("row").at("narozeni"), "01.02.1980");
    EXPECT_EQ(ReadIniValue(dataRoot / "data/a79170121005/klient.dat", "global", "pohlavi"), "1");
    EXPECT_EQ(answer({"clients", "--filter", "ŤAS"}).at("rows").size(), 1U);
    EXPECT_EQ(run({"clients", "--filter", "t'as"}).out, printed(R"({"messages": [], "rows": []})"));

    const char* const question =
        R"({"messages": [{"kind": "question", "text": "t19Šťastná Jana = Eva?", "answer": )";
    EXPECT_EQ(run({"client-delete", "--client", "a79170121005"}).out,
              printed(std::string(question) + R"("no"}]})"));
    EXPECT_EQ(run({"client-delete", "--client", "a79170121005", "--answer", "yes"}).out,
              printed(std::string(question) +
                      R"("yes"}, {"kind": "notice", "text": "t20", "answer": null}]})"));
    EXPECT_EQ(run({"clients"}).out, printed(R"({"messages": [], "rows": []})"));
    EXPECT_TRUE(fs::is_empty(dataRoot / "data"));
}

TEST_F(ClientCommandsTest, ARowThatWasNotStoredIsNull) {
    answer({"client-save", "--new", "--set", "prijmeni=First"}); // of the same second
    const nlohmann::ordered_json broken = answer({"client-save", "--new", "--set", "prijmeni=O'N"});
    EXPECT_TRUE(broken.at("row").is_null());
    EXPECT_EQ(broken.at("messages").dump(), nlohmann::ordered_json::parse(saved).dump());
    const nlohmann::ordered_json twice =
        answer({"client-save", "--new", "--set", "prijmeni=Twice", "--twice"});
    EXPECT_EQ(twice.at("messages").size(), 2U);
    EXPECT_EQ(answer({"clients", "--filter", "Twice"}).at("rows").size(), 2U);
}

} // namespace
} // namespace vorna
