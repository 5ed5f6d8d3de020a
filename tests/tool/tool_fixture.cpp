#include "tests/tool/tool_fixture.h"

#include "acquisition/measurement_record.h"
#include "core/file_names.h"
#include "platform/database.h"
#include "tests/support/evaluation_fixture.h"
#include "tests/support/test_installation.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vorna {
namespace {

constexpr const char* clientId = "a826541203";

void redirect(int descriptor, const fs::path& file) {
    dup2(open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), descriptor);
}

} // namespace

ToolOutcome runProgram(const fs::path& program, const std::vector<std::string>& arguments,
                       const ScratchFolder& folder) {
    std::vector<std::string> texts{program.string()};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> words;
    for (std::string& text : texts)
        words.push_back(text.data());
    words.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        setenv("XDG_DATA_HOME", (folder / "home").c_str(), 1);
        unsetenv("XDG_RUNTIME_DIR"); // as where nobody is logged in
        redirect(STDOUT_FILENO, folder / "out.txt");
        redirect(STDERR_FILENO, folder / "err.txt");
        execv(program.c_str(), words.data());
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return {.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status),
            .out = readWholeFile(folder / "out.txt"),
            .err = readWholeFile(folder / "err.txt")};
}

std::string printed(std::string_view json) {
    return nlohmann::ordered_json::parse(json).dump() + "\n";
}

ToolTest::ToolTest() {
    copyInstallation(app);
    nameTextsByTheirKeys(app);
}

ToolOutcome ToolTest::runPlain(const std::vector<std::string>& arguments) const {
    return runProgram(VORNA_TEST_TOOL, arguments, folder);
}

ToolOutcome ToolTest::run(std::vector<std::string> arguments) const {
    const std::string data = dataRoot.parent_path().string();
    for (const std::string& option :
         {std::string("--app-folder"), app.string(), std::string("--common-data"), data,
          std::string("--locale"), std::string("cs_CZ"), std::string("--now"),
          std::string("2025-01-31T14:30:05")})
        arguments.push_back(option);
    return runPlain(arguments);
}

nlohmann::ordered_json ToolTest::answer(const std::vector<std::string>& arguments,
                                        int exitStatus) const {
    const ToolOutcome outcome = run(arguments);
    EXPECT_EQ(outcome.exitStatus, exitStatus) << arguments[0] << outcome.err;
    EXPECT_EQ(outcome.err, "") << arguments[0];
    nlohmann::ordered_json json = nlohmann::ordered_json::parse(outcome.out, nullptr, false);
    EXPECT_EQ(outcome.out, json.dump() + "\n") << "one JSON document and nothing else";
    return json;
}

std::string ToolTest::addClient() const {
    answer({"session"});
    Database(dataRoot / names::clients)
        .execute("insert into klienti (prijmeni, jmeno, narozeni, telefon, zalozeni, intid)"
                 " values (?, 'Jana', '01.02.1980', '+420 123', '31.1.2025 14:30:05', ?)",
                 {"O'Hara & Co", clientId});
    fs::create_directories(dataRoot / names::data / clientId);
    return clientId;
}

std::string ToolTest::addMeasurement(std::string_view kindLetter, char modeLetter) const {
    const std::string name = "250131143005_" + std::string(kindLetter) +
                             "_O'Hara & Co_Jana~Dvorak^" + modeLetter + ".daf";
    writeMeasurementFile(dataRoot / names::data / clientId / name,
                         {.setLabel = "set", .values = sampleValues()});
    return name;
}

} // namespace vorna
