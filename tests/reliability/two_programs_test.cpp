// Two tools at work on one data root at the same time, and one whose data root cannot be written
// or has no room.
#include "core/file_names.h"
#include "core/settings_file.h"
#include "platform/folder_hold.h"
#include "tests/reliability/machine.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <fcntl.h>
#include <sched.h>
#include <set>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vorna {
namespace {

using Words = std::vector<std::string>;

class TwoPrograms : public ::testing::Test {
protected:
    TwoPrograms() {
        install(machine);
        settleIn(machine);
    }

    // Starts the tool; what it prints is of no interest.
    [[nodiscard]] pid_t begin(Words words) const {
        words.insert(words.begin(), VORNA_TEST_TOOL);
        for (const std::string& word :
             {std::string("--app-folder"), pathText(machine.installation()),
              std::string("--common-data"), pathText(machine.commonData()), std::string("--locale"),
              std::string("cs_CZ"), std::string("--answer"), std::string("yes")})
            words.push_back(word);
        std::vector<char*> arguments;
        for (std::string& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        const pid_t child = fork();
        if (child == 0) {
            dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
            execv(arguments[0], arguments.data());
            _exit(127);
        }
        return child;
    }
    static int endOf(pid_t child) {
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
    int run(const Words& words) const { return endOf(begin(words)); }

    // Two rows of commands, each row one after the other, at the same time; all of them must run.
    void runBoth(const std::vector<Words>& first, const std::vector<Words>& second) const {
        for (std::size_t i = 0; i < first.size(); ++i) {
            const std::array both{begin(first[i]), begin(second[i])};
            EXPECT_EQ(endOf(both[0]), 0) << first[i][0];
            EXPECT_EQ(endOf(both[1]), 0) << second[i][0];
        }
    }
    [[nodiscard]] Rows clientRows() const {
        const MachineState state = stateOf(machine);
        EXPECT_EQ(state.damaged, std::vector<std::string>{});
        return state.databases.at("common/VORNA/klienti.mdb").at("klienti");
    }
    [[nodiscard]] std::string klientDat(std::string_view intid, std::string_view key) const {
        return ReadIniValue(machine.dataRoot() / names::data / intid / names::klientDat, "global",
                            key);
    }
    static Words saveOf(const std::string& client, const std::string& value) {
        return {"client-save",
                "--client",
                client,
                "--set",
                "telefon=" + value,
                "--set",
                "adresa=" + value,
                "--set",
                "povolani=" + value};
    }

    ScratchFolder scratch;
    const Machine machine{scratch / "machine"};
};

TEST_F(TwoPrograms, SaveDifferentClientsSideBySide) {
    std::vector<Words> first;
    std::vector<Words> second;
    for (const char* const value : {"11", "12", "13", "14"}) {
        first.push_back(saveOf("a1", value));
        second.push_back(saveOf("a2", value));
    }
    runBoth(first, second);
    for (const char* const client : {"a1", "a2"})
        EXPECT_EQ(klientDat(client, "telefon"), "14") << client;
    for (const std::string& row : clientRows())
        EXPECT_NE(row.find("|14|"), std::string::npos) << row;
}

// Who saves last wins, in each place on its own; what is there is one of the two.
TEST_F(TwoPrograms, SaveTheSameClientAndNeitherIsHalved) {
    runBoth({saveOf("a1", "1111"), saveOf("a1", "1111"), saveOf("a1", "1111")},
            {saveOf("a1", "22"), saveOf("a1", "22"), saveOf("a1", "22")});
    const std::string telephone = klientDat("a1", "telefon");
    EXPECT_TRUE(telephone == "1111" || telephone == "22") << telephone;
    EXPECT_EQ(klientDat("a1", "adresa"), telephone);
    EXPECT_EQ(klientDat("a1", "povolani"), telephone);
    EXPECT_EQ(klientDat("a1", "zalozeni"), "31.1.2020 14:30") << "the last key";
    const std::string row = clientRows().at(0);
    EXPECT_NE(row.find("1111") == std::string::npos, row.find("|22|") == std::string::npos) << row;
}

// The exports that would pack what is on its way are refused, and told so.
TEST_F(TwoPrograms, ExportWhileTheOtherImports) {
    const std::string to = pathText(machine.archives());
    fs::remove_all(machine.dataRoot() / names::data / "starter");
    ASSERT_EQ(run({"export", "--all", "--to", to}), 0);
    fs::rename(machine.archives() / "VornaExport.zip", machine.archives() / "all.zip");
    const MachineState before = stateOf(machine);
    const Words import{"import", "--group", pathText(machine.archives() / "all.zip")};
    const Words exporting{"export", "--client", "a2", "--to", to};
    runBoth({import, import, import}, {exporting, exporting, exporting});
    MachineState after = stateOf(machine);
    EXPECT_EQ(after.damaged, std::vector<std::string>{});
    // An archive is the client before one import and after another.
    std::set<std::string> archived;
    for (const auto& [name, bytes] : after.archives.at("archives/Novák_Jan.zip"))
        archived.insert(name);
    EXPECT_EQ(archived, (std::set<std::string>{"250131143005_P_Novák_Jan~Dvorak^T.daf",
                                               "D250101.rtf", "anamneza.rtf", "klient.dat"}));
    EXPECT_EQ(clientRows().size(), 2U);
    for (const auto& [name, tables] : after.databases)
        if (name.ends_with(names::clients)) {
            const std::size_t clients = name.starts_with("installation") ? 0 : 2;
            EXPECT_EQ(tables.at("klienti").size(), clients) << name;
        }
}

// What one import has unpacked is not another program's to remove.
TEST_F(TwoPrograms, LeaveAnImportThatIsUnderWayAlone) {
    const fs::path folder = machine.dataRoot() / names::data / "TEMPImport";
    const std::string to = pathText(machine.archives());
    ASSERT_EQ(run({"export", "--client", "a2", "--to", to}), 0);
    scratch.write("machine/common/VORNA/data/TEMPImport/a7/klient.dat", "[global]\r\n");
    {
        const FolderHold hold(folder);
        for (const Words& words :
             {Words{"export", "--client", "a1", "--to", to}, Words{"export", "--all", "--to", to},
              Words{"import", to + "/Novák_Jan.zip"}})
            EXPECT_EQ(run(words), 0) << words[0];
        EXPECT_TRUE(fs::exists(folder / "a7" / names::klientDat));
        EXPECT_TRUE(fs::exists(machine.archives() / "Adam_Jan.zip"));
        EXPECT_FALSE(fs::exists(machine.archives() / "VornaExport.zip"));
        EXPECT_FALSE(fs::exists(machine.dataRoot() / names::backup)) << "nothing came in";
    }
    EXPECT_EQ(run({"export", "--all", "--to", to}), 0);
    EXPECT_FALSE(fs::exists(folder)) << "a crash left it";
    EXPECT_TRUE(fs::exists(machine.archives() / "VornaExport.zip"));
}

// ---- Disks, where the test may mount one

class SmallDisk : public TwoPrograms {
protected:
    // Puts the data root on a disk of its own; skips the test where nobody may mount.
    bool mountDisk(const char* size) {
        // A name space of the test's own: the disk is nobody else's and goes with the process.
        if (unshare(CLONE_NEWNS) != 0 ||
            mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
            return false;
        fs::rename(machine.commonData(), scratch / "before");
        fs::create_directories(machine.commonData());
        if (mount("none", machine.commonData().c_str(), "tmpfs", 0, size) != 0)
            return false;
        mounted_ = true;
        fs::copy(scratch / "before", machine.commonData(), fs::copy_options::recursive);
        return true;
    }
    ~SmallDisk() override {
        if (mounted_)
            umount(machine.commonData().c_str());
    }

    bool mounted_ = false;
};

TEST_F(SmallDisk, ADataRootThatCannotBeWrittenIsReadAndStaysAsItIs) {
    if (!mountDisk("size=8m"))
        GTEST_SKIP() << "nothing can be mounted here";
    run({"session"});
    const MachineState before = stateOf(machine);
    ASSERT_EQ(mount("none", machine.commonData().c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr),
              0);
    const std::string to = pathText(machine.archives());
    for (const Words& words : {Words{"session"}, saveOf("a1", "2"),
                               Words{"client-save", "--new", "--set", "prijmeni=Nová"},
                               Words{"configure", "--mode", "apm", "--name", "Nová"},
                               Words{"export", "--client", "a1", "--to", to},
                               Words{"import", pathText(machine.archives() / "Adam_Jan.zip")}})
        EXPECT_EQ(run(words), 0) << words[0];
    const MachineState after = stateOf(machine);
    EXPECT_EQ(after.files, before.files);
    EXPECT_EQ(after.archives.at("archives/Adam_Jan.zip").size(), 4U) << "reading suffices for that";
    EXPECT_EQ(after.damaged, std::vector<std::string>{});
}

TEST_F(SmallDisk, AFullDiskLeavesWhatItHolds) {
    if (!mountDisk("size=8m"))
        GTEST_SKIP() << "nothing can be mounted here";
    run({"session"});
    const std::string to = pathText(machine.archives());
    ASSERT_EQ(run({"export", "--client", "a1", "--to", to}), 0);
    const MachineState before = stateOf(machine);
    // All but a few pages, so that some of the writes find room and others do not.
    const fs::path ballast = machine.commonData() / "ballast";
    writeFileAtomically(ballast, "");
    std::error_code error;
    fs::resize_file(ballast, 0, error);
    const int file = open(ballast.c_str(), O_WRONLY);
    const std::string block(4096, 'x');
    while (write(file, block.data(), block.size()) == ssize_t(block.size()))
        continue;
    close(file);
    for (const std::uintmax_t room : {0U, 2U, 4U, 8U}) {
        fs::resize_file(ballast, fs::file_size(ballast) - room * block.size(), error);
        for (const Words& words :
             {Words{"session"}, saveOf("a1", std::string(6000, 'n')),
              Words{"import", pathText(machine.archives() / "Adam_Jan.zip")}, Words{"session"}})
            EXPECT_EQ(run(words), 0) << words[0] << " with room for " << room;
        const MachineState after = stateOf(machine);
        EXPECT_EQ(after.damaged, std::vector<std::string>{}) << room;
        for (const auto& [name, bytes] : before.files)
            EXPECT_FALSE(bytes.size() > 0 && after.files.at(name).empty()) << name;
        EXPECT_EQ(clientRows().size(), 2U) << room;
    }
}

} // namespace
} // namespace vorna
