#include "tool/guided_measurement.h"

#include "application/measuring.h"
#include "platform/qt/qt_serial_line.h"
#include "tool/command.h"

#include <algorithm>

namespace vorna {
namespace {

using namespace std::chrono_literals;

// The probe sends all the time, also off the skin: a line that is still for so long is gone. Real
// time, whatever the clock's speed.
constexpr auto longestSilence = 10s;

// The line to the port that was named, whatever the settings say.
class NamedPort final : public SerialLine {
public:
    explicit NamedPort(std::string path) : path_(std::move(path)) {
        line_.received = [this](std::string_view text) {
            lastReceived_ = std::chrono::steady_clock::now();
            if (received)
                received(text);
        };
    }
    bool open(const std::string&) override {
        lastReceived_ = std::chrono::steady_clock::now();
        return line_.open(path_);
    }
    void configure(std::string_view settings) override { line_.configure(settings); }
    void send(std::string_view text) override { line_.send(text); }
    void close() override { line_.close(); }

    [[nodiscard]] bool isStill() const {
        return std::chrono::steady_clock::now() - lastReceived_ > longestSilence;
    }

private:
    std::string path_;
    std::chrono::steady_clock::time_point lastReceived_;
    QtSerialLine line_;
};

// The tool measures on a port that is named; nothing is searched for.
class NoSearch final : public DeviceSearch {
public:
    bool open() override { return false; }
    Memory readMemory() override { return {}; }
    std::optional<int> portNumber() override { return std::nullopt; }
    bool close() override { return false; }
    std::vector<std::string> ports() override { return {}; }
};

// Sits before the wizard: starts the run, tells its progress, and saves.
class Operator {
public:
    Operator(const GuidedMeasurement& order, ToolProcess& process, const NamedPort& port,
             const Measuring& measuring)
        : order_(order), process_(process), port_(port), measuring_(measuring) {}

    void measure(MeasurementWizard& wizard) {
        wizard.run.startIndex.text = std::to_string(order_.startIndex);
        wizard.run.start.click();
        if (!measuring_.link().parserRunning())
            throw CannotRun("--port: " + order_.port + " does not open");
        process_.loop.runUntil([&] {
            tellProgress(wizard.run);
            return port_.isStill() || !measuring_.link().parserRunning();
        });
        if (port_.isStill())
            throw CannotRun("--port: " + order_.port + " is still; " +
                            std::to_string(wizard.run.boxesDone()) + " points were measured");
        wizard.save.click();
    }

private:
    void tellProgress(const RunControls& run) {
        const int done = run.boxesDone();
        if (done == toldPoints_)
            return;
        toldPoints_ = done;
        if (order_.pointsChanged)
            order_.pointsChanged(done);
    }

    const GuidedMeasurement& order_;
    ToolProcess& process_;
    const NamedPort& port_;
    const Measuring& measuring_;
    int toldPoints_ = 0;
};

Button& kindButton(MainWindow& window, const std::string& kind) {
    if (kind == "P")
        return window.measureSource;
    if (kind == "T")
        return window.measureTerminal;
    return kind == "B" ? window.measureBiorhythm : window.measureEnergy;
}

// The measurement that is new in the list; empty when none was stored.
std::string newMeasurement(const ListView& list, const std::vector<ListRow>& before) {
    for (const ListRow& row : list.rows())
        if (std::none_of(before.begin(), before.end(),
                         [&](const ListRow& old) { return old.tag == row.tag; }))
            return row.tag;
    return {};
}

} // namespace

std::string measureGuided(ToolProcess& process, const GuidedMeasurement& order) {
    process.window.tabs.select(static_cast<std::size_t>(MainTab::Measurements));
    Button& button = kindButton(process.window, order.kind);
    if (!button.visible)
        throw CannotRun("--kind: " + order.kind + " is not measured in this mode");
    const std::vector<ListRow> before = process.window.measurements.list.rows();
    NamedPort port(std::filesystem::absolute(order.port).string());
    NoSearch search;
    Measuring measuring(process.window, process.context, {.line = port, .search = search});
    Operator practitioner(order, process, port, measuring);
    process.windows.visit = [&](Window& window) {
        if (auto* const wizard = dynamic_cast<MeasurementWizard*>(&window))
            practitioner.measure(*wizard);
    };
    process.loop.setPace(order.speed, &OffscreenQt::letEventsInUntil);
    button.click();
    process.windows.visit = {};
    std::string file = newMeasurement(process.window.measurements.list, before);
    if (file.empty())
        throw CannotRun("the measurement could not be stored");
    return file;
}

} // namespace vorna
