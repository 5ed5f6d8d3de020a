// The client list over a made registry: the first fill, a key stroke in the filter with the rows
// that a window shows of it, and the memory of it all. Prints one line for each figure.
//
//     client_bench 10000 20      clients, measurements of each
#include "bench/memory.h"
#include "bench/registry.h"
#include "clients/client_operations.h"
#include "core/file_names.h"
#include "platform/files.h"
#include "platform/text.h"
#include "tool/process.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <random>

namespace {

using namespace vorna;

constexpr std::size_t shownRows = 40;

// The time that a text in the filter takes until the rows of a window's height are known.
double typeMilliseconds(ToolProcess& process, const std::string& text) {
    ClientListTab& tab = process.window.clients;
    const auto begin = std::chrono::steady_clock::now();
    tab.filter.text = text;
    call(tab.filter.edited);
    for (std::size_t i = 0; i < std::min(shownRows, tab.list.size()); ++i)
        static_cast<void>(tab.list.row(i));
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin)
        .count();
}

// Types the beginnings of surnames, one sign after the other, and empties the filter again.
std::vector<double> keyStrokes(ToolProcess& process) {
    std::mt19937 random(2);
    std::vector<double> times;
    for (int name = 0; name < 100; ++name) {
        const std::string typed = madeSurname(random);
        std::string text;
        for (std::size_t length = 1; length <= 5; ++length) {
            text = firstCharacters(typed, length);
            times.push_back(typeMilliseconds(process, text));
        }
        times.push_back(typeMilliseconds(process, ""));
    }
    std::sort(times.begin(), times.end());
    return times;
}

} // namespace

int main(int argc, char** argv) {
    const int clients = argc > 1 ? std::atoi(argv[1]) : 10000;
    const int measurements = argc > 2 ? std::atoi(argv[2]) : 20;
    std::string pattern = (std::filesystem::temp_directory_path() / "vorna-bench-XXXXXX").string();
    const std::filesystem::path folder = mkdtemp(pattern.data());
    const std::filesystem::path installation = VORNA_BENCH_INSTALLATION;
    copyFolderInto(installation, folder);
    const ToolOptions options{.appFolder = folder / installation.filename(),
                              .commonData = folder / "data",
                              .locale = "cs_CZ"};
    ToolProcess(options).start();
    makeRegistry(folder / "data" / "VORNA", clients, measurements);
    {
        ToolProcess process(options);
        const double before = residentMegabytes();
        process.start();
        process.window.clients.list.clear();
        process.window.clients.index = {};
        const double first = typeMilliseconds(process, "");
        const double loaded = residentMegabytes();
        const std::vector<double> times = keyStrokes(process);
        std::cout << clients << " clients with " << measurements << " measurements each\n"
                  << "first fill           " << first << " ms\n"
                  << "key stroke, median   " << times[times.size() / 2] << " ms\n"
                  << "key stroke, 95th     " << times[times.size() * 95 / 100] << " ms\n"
                  << "key stroke, longest  " << times.back() << " ms\n"
                  << "memory of the start  " << loaded - before << " MB\n";
    }
    std::filesystem::remove_all(folder);
    return 0;
}
