// vorna-probe: the simulated probe as a program.
#include "platform/failure.h"
#include "probe/practitioner.h"
#include "probe/simulated_probe.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace vorna {
namespace {

struct TypedOptions {
    std::string link;
    std::string script;
    std::string profile = std::string(profileNames().front());
    std::uint32_t seed = 1;
};

Play playOf(const TypedOptions& typed) {
    if (typed.script.empty())
        return makePractitionerSession(*profileOfName(typed.profile), typed.seed).play;
    constexpr std::uintmax_t largestScript = 16U << 20U; // bytes
    std::error_code error;
    if (!std::filesystem::is_regular_file(typed.script, error))
        throw Failure("the script " + typed.script + " is no file");
    if (std::filesystem::file_size(typed.script, error) > largestScript)
        throw Failure("the script " + typed.script + " is larger than 16 MiB");
    std::ifstream file(typed.script, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || file.bad())
        throw Failure("cannot read the script " + typed.script);
    return parseScript(text);
}

int run(int count, char** arguments) {
    CLI::App app("The simulated probe: text lines of readings on a pseudo-terminal, whose path is "
                 "printed. Without a script it plays a practitioner who takes the 24 points of a "
                 "guided run. Each \"c\" that it is sent is noted on standard error.",
                 "vorna-probe");
    TypedOptions typed;
    ProbeOptions options;
    const auto names = profileNames();
    app.add_option("--link", typed.link, "makes this symbolic link to the pseudo-terminal");
    auto* const script = app.add_option(
        "--script", typed.script,
        "plays a file with lines of \"seconds reading\": for so long the probe reads that");
    app.add_option("--profile", typed.profile, "what client the practitioner has")
        ->check(CLI::IsMember(std::vector<std::string>(names.begin(), names.end())))
        ->excludes(script)
        ->capture_default_str();
    app.add_option("--rate", options.linesPerSecond, "lines per second; a reader uses 50 at most")
        ->check(CLI::Range(0.1, 100'000.0))
        ->capture_default_str();
    app.add_option("--seed", typed.seed, "another number gives another client")
        ->capture_default_str();
    app.add_option("--speed", options.speed, "runs this many times as fast as real time")
        ->check(CLI::Range(0.01, 10'000.0))
        ->capture_default_str();
    app.add_flag("--timed", options.timed,
                 "begins each line with its time in the play, in milliseconds: the clock of a fast "
                 "vorna-tool measure follows it");
    try {
        app.parse(count, arguments);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : 2;
    }
    if (std::isnan(options.linesPerSecond) || std::isnan(options.speed)) {
        std::cerr << "vorna-probe: --rate and --speed are numbers\n";
        return 2;
    }
    options.link = typed.link;
    options.play = playOf(typed);
    blockEndingSignals();
    runSimulatedProbe(options, std::cout, std::cerr);
    return 0;
}

} // namespace
} // namespace vorna

int main(int count, char** arguments) {
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN)); // nobody need read what is noted
    try {
        return vorna::run(count, arguments);
    } catch (const std::exception& error) {
        std::cerr << "vorna-probe: " << error.what() << '\n';
        return 1;
    }
}
