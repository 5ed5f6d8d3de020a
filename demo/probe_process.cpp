#include "demo/probe_process.h"

#include "platform/failure.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace vorna {

ProbeProcess::ProbeProcess(const std::filesystem::path& program, double speed,
                           const std::filesystem::path& script) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        throw Failure("the simulated probe cannot be started");
    output_ = ends[0];
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    std::vector<std::string> words{program.string(), "--timed", "--speed", std::to_string(speed)};
    if (!script.empty())
        words.insert(words.end(), {"--script", script.string()});
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const bool started =
        ::posix_spawn(&process_, arguments[0], &actions, nullptr, arguments.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    char c = 0;
    while (started && ::read(output_, &c, 1) == 1 && c != '\n')
        port_ += c;
    if (port_.empty()) {
        if (started)
            end();
        ::close(output_);
        throw Failure("the simulated probe cannot be started");
    }
}

ProbeProcess::~ProbeProcess() {
    end();
    ::close(output_);
}

void ProbeProcess::end() const {
    ::kill(process_, SIGINT);
    ::waitpid(process_, nullptr, 0);
}

} // namespace vorna
