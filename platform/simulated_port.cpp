#include "platform/simulated_port.h"

#include "platform/failure.h"
#include "platform/files.h"

#include <algorithm>
#include <fstream>
#include <string>

namespace vorna {
namespace {

constexpr std::string_view programName = "vorna-probe";
constexpr std::string_view terminalLine = "tty-index:";

std::string firstLine(const fs::path& file) {
    std::ifstream in(file);
    std::string line;
    std::getline(in, line);
    return line;
}

// The number of the terminal whose master a file of a process is; nothing for any other file.
std::optional<std::string> terminalNumber(const fs::path& info) {
    std::ifstream in(info);
    for (std::string line; std::getline(in, line);)
        if (line.starts_with(terminalLine)) {
            line.erase(0, line.find_first_of("0123456789"));
            return line;
        }
    return std::nullopt;
}

} // namespace

std::optional<fs::path> runningSimulatedPort(const fs::path& processes) {
    std::error_code error; // processes come and go, and most are other users'
    for (fs::directory_iterator at(processes, error), end; !error && at != end;
         at.increment(error)) {
        if (firstLine(at->path() / "comm") != programName)
            continue;
        std::error_code own;
        for (fs::directory_iterator file(at->path() / "fdinfo", own); !own && file != end;
             file.increment(own))
            if (const auto number = terminalNumber(file->path()))
                return fs::path("/dev/pts") / *number;
    }
    return std::nullopt;
}

std::string simulatedPortName() {
    const auto port = runningSimulatedPort();
    return port ? port->string() : std::string{};
}

} // namespace vorna
