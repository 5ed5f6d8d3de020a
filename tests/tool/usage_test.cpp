// How the tool takes its options, and what it says when it cannot run.
#include "core/file_names.h"
#include "tests/tool/tool_fixture.h"

namespace vorna {
namespace {

using Arguments = std::vector<std::string>;

class UsageTest : public ToolTest {};

const char* const commands[] = {"session",       "configure",    "clients",  "client-save",
                                "client-delete", "measurements", "read-daf", "write-daf",
                                "evaluate",      "recommend",    "draw",     "check",
                                "measure"};

bool isOneLine(const std::string& text) {
    return text.starts_with("vorna-tool: ") && text.find('\n') == text.size() - 1;
}

TEST_F(UsageTest, EveryCommandHelps) {
    EXPECT_EQ(runPlain({"--help"}).exitStatus, 0);
    for (const char* const command : commands) {
        const ToolOutcome outcome = runPlain({command, "--help"});
        EXPECT_EQ(outcome.exitStatus, 0) << command;
        EXPECT_EQ(outcome.err, "") << command;
        for (const char* const option : {"--app-folder", "--common-data", "--locale", "--now",
                                         "--speed", "--answer", "--pretty"})
            EXPECT_NE(outcome.out.find(option), std::string::npos) << command << option;
    }
    EXPECT_FALSE(fs::exists(folder / "home")) << "nothing was started";
}

TEST_F(UsageTest, WrongUsageIsToldInOneLineAndTouchesNothing) {
    struct Case {
        Arguments arguments;
        const char* named; // what the line names
    };
    const std::string file = pathText(folder / "x.daf");
    const std::string values23 = "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23";
    const Case cases[] = {
        {{}, "subcommand"},
        {{"meassure"}, ""},
        {{"session", "check"}, "check"},
        {{"session", "--unknown"}, "--unknown"},
        {{"session", "stray"}, "stray"},
        {{"session", "--now"}, "--now"},
        {{"session", "--now", "2025-02-30T00:00:00"}, "--now"},
        {{"session", "--now", "2025-01-31 14:30:05"}, "--now"},
        {{"session", "--now", "yesterday"}, "--now"},
        {{"session", "--speed", "0"}, "--speed"},
        {{"session", "--answer", "maybe"}, "--answer"},
        {{"session", "--answer", "yes", "no"}, "no"},
        {{"configure", "--mode", "TCM"}, "--mode"},
        {{"configure", "--language", "0"}, "--language"},
        {{"configure", "--language", "5"}, "--language"},
        {{"client-save"}, "--new"},
        {{"client-save", "--new", "--client", "a1"}, "--client"},
        {{"client-save", "--new", "--set", "jmeno"}, "--set"},
        {{"client-save", "--new", "--set", "id=5"}, "id"},
        {{"client-save", "--new", "--set", "stav=4"}, "stav"},
        {{"client-save", "--new", "--set", "pohlavi=x"}, "pohlavi"},
        {{"client-delete"}, "--client"},
        {{"measurements", "--pretty"}, "--client"},
        {{"measure", "--client", "a1", "--kind", "X", "--port", "/dev/null"}, "--kind"},
        {{"measure", "--client", "a1", "--kind", "P"}, "--port"},
        {{"evaluate", "--client", "a1", "--button", "0"}, "--measurement"},
        {{"evaluate", "--client", "a1", "--measurement", "x.daf"}, "--button"},
        {{"evaluate", "--client", "a1", "--measurement", "x.daf", "--button", "7"}, "--button"},
        {{"evaluate", "--client", "a1", "--measurement", "../x.daf", "--button", "0"},
         "--measurement"},
        {{"evaluate", "--client", "a1", "--measurement", "..", "--button", "0"}, "--measurement"},
        {{"evaluate", "--client", "a1", "--measurement", "a\\x.daf", "--button", "0"},
         "--measurement"},
        {{"evaluate", "--client", "a1", "--measurement", "", "--button", "0"}, "--measurement"},
        {{"read-daf", "--pretty"}, "FILE"},
        {{"write-daf", file, "--values", values23 + ",24"}, "--label"},
        {{"write-daf", file, "--label", "P", "--values", values23}, "--values"},
        {{"write-daf", file, "--label", "P", "--values", values23 + ","}, "--values"},
        {{"write-daf", file, "--label", "P", "--values", values23 + ",2147483648"}, "--values"},
        {{"write-daf", file, "--label", "P", "--values", values23 + ",1.5"}, "--values"},
        {{"draw", "--document", "x", "--picture", "x.bmp", "--type", "5"}, "--type"},
    };
    for (const Case& usage : cases) {
        std::string typed;
        for (const std::string& argument : usage.arguments)
            typed += argument + " ";
        Arguments arguments = usage.arguments;
        if (arguments.size() > 1)
            arguments.insert(arguments.begin() + 1, {"--app-folder", pathText(app)});
        const ToolOutcome outcome = runPlain(arguments);
        EXPECT_EQ(outcome.exitStatus, 2) << typed << outcome.err;
        EXPECT_EQ(outcome.out, "") << typed;
        EXPECT_TRUE(isOneLine(outcome.err)) << typed << outcome.err;
        EXPECT_NE(outcome.err.find(usage.named), std::string::npos) << typed << outcome.err;
    }
    EXPECT_FALSE(fs::exists(folder / "home"));
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(UsageTest, WhatCannotRunIsToldInOneLine) {
    const std::string client = addClient();
    const std::string missing = pathText(folder / "missing");
    const std::string blocked = pathText(folder.write("a file", "x")) + "/data";
    const std::string label(203, 'x');
    const std::string values = "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24";
    const std::pair<Arguments, std::string> cases[] = {
        {{"measurements", "--client", "a9"}, "--client: there is no client a9"},
        {{"measurements", "--client", ""}, "--client: there is no client "},
        {{"evaluate", "--client", "Жанна О'Нил", "--measurement", "x.daf", "--button", "0"},
         "--client: there is no client Жанна О'Нил"},
        {{"read-daf", missing}, "the file " + missing + " cannot be read"},
        {{"read-daf", pathText(app)}, "the file " + pathText(app) + " cannot be read"},
        {{"write-daf", missing + "/x.daf", "--label", "P", "--values", values},
         "the file " + missing + "/x.daf cannot be written"},
        {{"write-daf", missing, "--label", label, "--values", values},
         "--label: the label is longer than 202 bytes"},
    };
    for (const auto& [arguments, line] : cases) {
        const ToolOutcome outcome = run(arguments);
        EXPECT_EQ(outcome.exitStatus, 1) << line;
        EXPECT_EQ(outcome.out, "") << line;
        EXPECT_EQ(outcome.err, "vorna-tool: " + line + "\n");
    }
    EXPECT_FALSE(fs::exists(missing));
    for (const char* const command : {"session", "check"}) {
        const ToolOutcome outcome = runPlain({command, "--app-folder", missing});
        EXPECT_EQ(outcome.exitStatus, 1) << command;
        EXPECT_EQ(outcome.err,
                  "vorna-tool: the installation folder " + missing + " does not exist\n");
    }
    const ToolOutcome outcome =
        runPlain({"session", "--app-folder", pathText(app), "--common-data", blocked});
    EXPECT_EQ(outcome.exitStatus, 1);
    EXPECT_EQ(outcome.err, "vorna-tool: the folder " + blocked + " cannot be made\n");
}

TEST_F(UsageTest, CommonOptionsAreTakenByEveryCommand) {
    const ToolOutcome pretty =
        run({"session", "--pretty", "--answer", "yes", "--answer", "cancel", "--speed", "1000"});
    EXPECT_EQ(pretty.exitStatus, 0) << pretty.err;
    EXPECT_TRUE(pretty.out.starts_with("{\n  \"messages\": [],\n  \"language\": 2,\n"));
    EXPECT_EQ(nlohmann::ordered_json::parse(pretty.out).dump(2) + "\n", pretty.out);
    const std::string file = pathText(folder.write("x.daf", ""));
    EXPECT_EQ(run({"read-daf", "--answer", "no", file}).exitStatus, 0) << "an answer is one word";
}

// A folder's name and an option can be any bytes.
TEST_F(UsageTest, BytesThatAreNoTextDoNotEndIt) {
    const std::string odd = pathText(folder / "odd\xff");
    const std::string values = "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24";
    const Arguments cases[] = {
        {"session", "--app-folder", pathText(app), "--common-data", odd},
        {"configure", "--app-folder", pathText(app), "--common-data", odd, "--name", "\xff"},
        {"write-daf", odd + ".daf", "--label", "\xff", "--values", values},
        {"read-daf", odd + ".daf"},
        {"draw", "--document", odd + ".daf", "--type", "4", "--picture", odd + ".svg"},
    };
    for (const Arguments& arguments : cases) {
        const ToolOutcome outcome = runPlain(arguments);
        EXPECT_EQ(outcome.exitStatus, 0) << arguments[0] << outcome.err;
        EXPECT_TRUE(nlohmann::ordered_json::accept(outcome.out)) << arguments[0];
    }
}

TEST_F(UsageTest, WithoutFoldersItTakesItsOwnAndTheUsers) {
    std::error_code error;
    const fs::path tool = app / "vorna-tool";
    fs::create_hard_link(VORNA_TEST_TOOL, tool, error);
    if (error)
        fs::copy_file(VORNA_TEST_TOOL, tool);
    const ToolOutcome outcome = runProgram(tool, {"session"}, folder);
    EXPECT_EQ(outcome.exitStatus, 0) << outcome.err;
    const nlohmann::ordered_json session = nlohmann::ordered_json::parse(outcome.out);
    EXPECT_EQ(session.at("modeFolder"), pathText(app / "rezim" / "tcm"));
    EXPECT_EQ(session.at("dataRoot"), pathText(folder / "home" / "VORNA"));
    EXPECT_TRUE(fs::exists(folder / "home" / "VORNA" / names::setup));
}

} // namespace
} // namespace vorna
