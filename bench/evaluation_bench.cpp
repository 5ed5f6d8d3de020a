// One press of a chart button: from the measurement's file to the chart document and the problem
// rows, over the assembled installation's databases.
#include "content/sample_client.h"
#include "platform/files.h"
#include "tool/process.h"

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace {

// An installation and data root of the benchmark's own, which go with it.
class Workplace {
public:
    Workplace() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "vorna-bench-XXXXXX").string();
        folder_ = mkdtemp(pattern.data());
        const std::filesystem::path installation = VORNA_BENCH_INSTALLATION;
        vorna::copyFolderInto(installation, folder_);
        const vorna::ToolOptions options{.appFolder = folder_ / installation.filename(),
                                         .commonData = folder_ / "data",
                                         .locale = "cs_CZ"};
        vorna::ToolProcess(options).start();
        vorna::addSampleClient(
            {.sources = VORNA_BENCH_SOURCES, .dataRoot = folder_ / "data" / "VORNA"});
        process_ = std::make_unique<vorna::ToolProcess>(options);
        process_->start();
        selectClientRow(process_->window, 0);
        process_->window.measurements.list.selected = 0;
    }
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;
    ~Workplace() {
        process_.reset();
        std::error_code error; // what stays in the temporary folder harms nobody
        std::filesystem::remove_all(folder_, error);
    }
    vorna::ToolProcess& process() { return *process_; }

private:
    std::filesystem::path folder_;
    std::unique_ptr<vorna::ToolProcess> process_;
};

void pressChartButton(benchmark::State& state) {
    static Workplace workplace;
    const auto& button =
        workplace.process().window.chartButtons.at(static_cast<int>(state.range(0)));
    for (auto _ : state)
        button->click();
}

} // namespace

BENCHMARK(pressChartButton)->DenseRange(0, 6)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
