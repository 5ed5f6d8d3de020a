// A whole guided run of 24 points at fifty times the speed, over a pseudo-terminal with the
// simulated probe at its other end. Prints one line for each figure.
#include "acquisition/measurement_record.h"
#include "content/sample_client.h"
#include "demo/probe_process.h"
#include "platform/files.h"
#include "tool/guided_measurement.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <iostream>

namespace {

using namespace vorna;

constexpr double speed = 50;

double processorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void runOnProbe(const ToolOptions& options) {
    const OffscreenQt qt;
    ToolProcess process(options);
    process.start();
    selectClientRow(process.window, 0);
    const ProbeProcess probe(std::filesystem::path(VORNA_BENCH_INSTALLATION) / "vorna-probe",
                             speed);

    const LocalTime clockBegin = process.clock.now();
    const auto begin = std::chrono::steady_clock::now();
    const double processorBegin = processorSeconds();
    const std::string file =
        measureGuided(process, {.kind = "P", .port = probe.port(), .speed = speed});
    const std::chrono::duration<double> real = std::chrono::steady_clock::now() - begin;
    const std::chrono::duration<double> clock = process.clock.now() - clockBegin;
    const MeasurementRecord record = readMeasurement(currentClientFile(process.session, file));
    const auto points = slotCount - std::count(record.values.begin() + 1, record.values.end(), 0);
    std::cout << "points               " << points << '\n'
              << "time of the run      " << clock.count() << " s\n"
              << "real time            " << real.count() << " s\n"
              << "speed                " << clock / real << " times\n"
              << "processor time       " << processorSeconds() - processorBegin << " s\n";
}

} // namespace

int main() {
    std::string pattern = (std::filesystem::temp_directory_path() / "vorna-bench-XXXXXX").string();
    const std::filesystem::path folder = mkdtemp(pattern.data());
    const std::filesystem::path installation = VORNA_BENCH_INSTALLATION;
    int exitStatus = 0;
    try {
        copyFolderInto(installation, folder);
        const ToolOptions options{.appFolder = folder / installation.filename(),
                                  .commonData = folder / "data",
                                  .locale = "cs_CZ"};
        ToolProcess(options).start();
        addSampleClient({.sources = VORNA_BENCH_SOURCES, .dataRoot = folder / "data" / "VORNA"});
        runOnProbe(options);
    } catch (const std::exception& error) {
        std::cerr << "guided_run_bench: " << error.what() << '\n';
        exitStatus = 1;
    }
    std::filesystem::remove_all(folder);
    return exitStatus;
}
