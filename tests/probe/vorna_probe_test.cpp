// The program itself, over its pseudo-terminal.
#include "acquisition/reading_line.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

extern char** environ; // NOLINT: the system's name

namespace vorna {
namespace {

using namespace std::chrono_literals;

// Reads what comes until `enough` says so, or for ten seconds.
template <class Enough>
std::string readUntil(int descriptor, Enough enough) {
    std::string text;
    const auto end = std::chrono::steady_clock::now() + 10s;
    while (!enough(text) && std::chrono::steady_clock::now() < end) {
        pollfd ready{.fd = descriptor, .events = POLLIN, .revents = 0};
        std::array<char, 4096> buffer{};
        if (poll(&ready, 1, 100) <= 0)
            continue;
        const ssize_t count = read(descriptor, buffer.data(), buffer.size());
        if (count <= 0)
            break;
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
}

class RunningProbe {
public:
    explicit RunningProbe(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), VORNA_TEST_PROBE);
        std::vector<char*> pointers;
        for (std::string& argument : arguments)
            pointers.push_back(argument.data());
        pointers.push_back(nullptr);
        std::array<int, 2> out{};
        std::array<int, 2> err{};
        EXPECT_EQ(pipe2(out.data(), O_CLOEXEC), 0);
        EXPECT_EQ(pipe2(err.data(), O_CLOEXEC), 0);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions, err[1], STDERR_FILENO);
        EXPECT_EQ(
            posix_spawn(&process_, VORNA_TEST_PROBE, &actions, nullptr, pointers.data(), environ),
            0);
        posix_spawn_file_actions_destroy(&actions);
        close(out[1]);
        close(err[1]);
        out_ = out[0];
        err_ = err[0];
    }
    RunningProbe(const RunningProbe&) = delete;
    RunningProbe& operator=(const RunningProbe&) = delete;
    ~RunningProbe() {
        if (process_ != 0) {
            kill(process_, SIGKILL);
            waitpid(process_, nullptr, 0);
        }
        close(out_);
        close(err_);
    }

    // The first line it prints.
    [[nodiscard]] std::string path() const {
        std::string line = readUntil(out_, [](const std::string& t) { return t.ends_with('\n'); });
        return line.substr(0, line.find('\n'));
    }
    void interrupt() const { kill(process_, SIGINT); }
    // Its exit status within ten seconds, -1 otherwise.
    int ended() {
        for (int i = 0; i < 1000; ++i, std::this_thread::sleep_for(10ms)) {
            int status = 0;
            if (waitpid(process_, &status, WNOHANG) == process_) {
                process_ = 0;
                return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
            }
        }
        return -1;
    }
    // All that it wrote to standard error; after its end.
    [[nodiscard]] std::string errors() const {
        return readUntil(err_, [](const std::string&) { return false; });
    }

private:
    pid_t process_ = 0;
    int out_ = -1;
    int err_ = -1;
};

class Reader {
public:
    explicit Reader(const std::string& path)
        : descriptor_(open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        EXPECT_GE(descriptor_, 0) << path;
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    ~Reader() { close(descriptor_); }

    [[nodiscard]] std::string read(std::size_t lines) const {
        return readUntil(descriptor_, [&](const std::string& text) {
            return text.size() >= lines * formatReadingLine(0).size();
        });
    }
    void send(std::string_view text) const {
        EXPECT_EQ(write(descriptor_, text.data(), text.size()), ssize_t(text.size()));
    }

private:
    int descriptor_;
};

TEST(VornaProbe, PrintsItsPathMakesTheLinkAndPlaysTheScript) {
    const ScratchFolder folder;
    const std::string link = (folder / "probe").string();
    fs::create_symlink("/nowhere", link); // of an earlier one that was killed
    const std::string script = folder.write("script", "0.4 0\n0.4 1234\n600 77\n").string();
    RunningProbe probe({"--link", link, "--script", script, "--rate", "10", "--speed", "10"});
    const std::string path = probe.path();
    EXPECT_EQ(fs::read_symlink(link).string(), path);

    const std::string played = Reader(link).read(10);
    std::string expected;
    for (const int reading : {0, 0, 0, 0, 1234, 1234, 1234, 1234, 77, 77})
        expected += formatReadingLine(reading);
    EXPECT_EQ(played.substr(0, expected.size()), expected);
    EXPECT_EQ(probe.ended(), 0); // the reader left after the last point
    EXPECT_FALSE(fs::exists(fs::symlink_status(link)));
}

TEST(VornaProbe, EachReaderBeginsAnewAndSigintEndsIt) {
    const ScratchFolder folder;
    const std::string script = folder.write("script", "60 1111\n60 2222\n").string();
    RunningProbe probe({"--script", script, "--speed", "100"});
    const std::string path = probe.path();
    EXPECT_EQ(Reader(path).read(3).substr(0, 9), "xx1.111\r\n");
    std::this_thread::sleep_for(700ms); // the second reading would be due
    EXPECT_EQ(Reader(path).read(3).substr(0, 9), "xx1.111\r\n");
    std::this_thread::sleep_for(50ms);
    probe.interrupt();
    EXPECT_EQ(probe.ended(), 0);
}

TEST(VornaProbe, NotesEachCAndReactsToNothing) {
    RunningProbe probe({});
    const std::string path = probe.path();
    {
        const Reader reader(path);
        reader.send("cxc\r\nc");
        EXPECT_EQ(reader.read(5).substr(0, 9), "xx0.000\r\n"); // the probe is off the skin
    }
    probe.interrupt();
    EXPECT_EQ(probe.ended(), 0);
    const std::string notes = probe.errors();
    EXPECT_EQ(std::count(notes.begin(), notes.end(), '\n'), 3) << notes;
    EXPECT_TRUE(notes.starts_with("c at ")) << notes;
}

TEST(VornaProbe, ATimedLineTellsTheTimeInThePlayBeforeItsReading) {
    const ScratchFolder folder;
    const std::string script = folder.write("script", "0.15 1\n60 1234\n").string();
    RunningProbe probe({"--script", script, "--rate", "20", "--timed"});
    const std::string expected = "0 xx0.001\r\n50 xx0.001\r\n100 xx0.001\r\n150 xx1.234\r\n";
    EXPECT_TRUE(Reader(probe.path()).read(5).starts_with(expected));
    EXPECT_EQ(timeOfLine("150 xx1.234\r\n"), 150);
    for (const char* const line : {"xx1.234\r\n", "150\r\n", " 150 xx1.234\r\n", "1.5 xx1.234\r\n",
                                   "99999999999999999999 xx1.234\r\n", ""})
        EXPECT_EQ(timeOfLine(line), std::nullopt) << line;
}

TEST(VornaProbe, ASlowReaderLosesNothing) {
    const ScratchFolder folder;
    std::string script;
    for (int reading = 1000; reading < 1150; ++reading)
        script += "1 " + std::to_string(reading) + "\n"; // ten lines of each
    const std::string file = folder.write("script", script).string();
    RunningProbe probe({"--script", file, "--rate", "10", "--speed", "500"});
    const Reader reader(probe.path());
    std::this_thread::sleep_for(400ms); // the system keeps 4 KiB of the 13 that were sent
    const std::string read = reader.read(1500);
    std::size_t found = 0;
    for (int reading = 1000; reading < 1150 && found != std::string::npos; ++reading)
        found = read.find(formatReadingLine(reading), found);
    EXPECT_NE(found, std::string::npos) << read.size();
}

TEST(VornaProbe, AReaderThatDoesNotReadStopsNothing) {
    RunningProbe probe({"--speed", "1000"});
    const Reader reader(probe.path());
    std::this_thread::sleep_for(300ms);
    probe.interrupt();
    EXPECT_EQ(probe.ended(), 0);
}

TEST(VornaProbe, WrongUseIsToldInWords) {
    const ScratchFolder folder;
    const std::string file = folder.write("taken", "").string();
    struct Case {
        std::vector<std::string> arguments;
        int status;
        const char* word;
    };
    const Case cases[] = {
        {{"--profile", "tired"}, 2, "tired"}, {{"--rate", "0"}, 2, "--rate"},
        {{"--speed", "-1"}, 2, "--speed"},    {{"--script", (folder / "none").string()}, 1, "none"},
        {{"--speed", "nan"}, 2, "--speed"},   {{"--rate", "nan"}, 2, "--rate"},
        {{"--script", file}, 1, "empty"},     {{"--link", file}, 1, "taken"},
    };
    for (const Case& c : cases) {
        RunningProbe probe(c.arguments);
        EXPECT_EQ(probe.ended(), c.status) << c.word;
        EXPECT_NE(probe.errors().find(c.word), std::string::npos) << c.word;
    }
}

} // namespace
} // namespace vorna
