// The desktop program's start beside that of an empty window: from the process's beginning to its
// end after the first painting, each in turn.
//
//     startup_bench 1000 20      clients, runs of each
#include "bench/registry.h"
#include "platform/files.h"
#include "tool/process.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace vorna;

double startMilliseconds(std::vector<std::string> command) {
    std::vector<char*> arguments;
    for (std::string& word : command)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const auto begin = std::chrono::steady_clock::now();
    pid_t process = 0;
    int status = 0;
    if (posix_spawn(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0 ||
        waitpid(process, &status, 0) != process || status != 0) {
        std::cerr << "startup_bench: " << command.front() << " did not run\n";
        std::exit(1);
    }
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin)
        .count();
}

double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

} // namespace

int main(int count, char** arguments) {
    const int clients = count > 1 ? std::atoi(arguments[1]) : 1000;
    const int runs = count > 2 ? std::atoi(arguments[2]) : 20;
    std::string pattern = (std::filesystem::temp_directory_path() / "vorna-bench-XXXXXX").string();
    const std::filesystem::path folder = mkdtemp(pattern.data());
    const std::filesystem::path installation = VORNA_BENCH_INSTALLATION;
    copyFolderInto(installation, folder);
    const ToolOptions options{.appFolder = folder / installation.filename(),
                              .commonData = folder / "data",
                              .locale = "cs_CZ"};
    ToolProcess(options).start();
    makeRegistry(folder / "data" / "VORNA", clients, 20);
    const std::filesystem::path programs = std::filesystem::read_symlink("/proc/self/exe");
    const std::vector<std::string> empty{programs.parent_path() / "startup_empty"};
    const std::vector<std::string> vorna{programs.parent_path() / "startup_vorna",
                                         options.appFolder, options.commonData};
    startMilliseconds(vorna); // its first start
    std::vector<double> emptyTimes;
    std::vector<double> vornaTimes;
    for (int run = 0; run < runs; ++run) {
        emptyTimes.push_back(startMilliseconds(empty));
        vornaTimes.push_back(startMilliseconds(vorna));
    }
    std::cout << "empty window         " << median(emptyTimes) << " ms\n"
              << "vorna, " << clients << " clients " << median(vornaTimes) << " ms, "
              << median(vornaTimes) / median(emptyTimes) << " times\n";
    std::filesystem::remove_all(folder);
    return 0;
}
