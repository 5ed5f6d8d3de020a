#include "demo/probe_process.h"

#include "platform/failure.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vorna {

ProbeProcess::ProbeProcess(const std::filesystem::path& program, double speed) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        throw Failure("the simulated probe cannot be started");
    output_ = ends[0];
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    std::string name = program.string();
    std::string option = "--speed";
    std::string value = std::to_string(speed);
    const std::array<char*, 4> arguments{name.data(), option.data(), value.data(), nullptr};
    const bool started =
        ::posix_spawn(&process_, name.c_str(), &actions, nullptr, arguments.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    char c = 0;
    while (started && ::read(output_, &c, 1) == 1 && c != '\n')
        port_ += c;
    if (port_.empty()) {
        ::close(output_);
        throw Failure("the simulated probe cannot be started");
    }
}

ProbeProcess::~ProbeProcess() {
    ::kill(process_, SIGINT);
    ::waitpid(process_, nullptr, 0);
    ::close(output_);
}

} // namespace vorna
