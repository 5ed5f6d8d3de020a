#include "tool/guided_measurement.h"

#include "acquisition/reading_line.h"
#include "application/measuring.h"
#include "platform/devices/qt_serial_line.h"
#include "tool/command.h"

#include <algorithm>
#include <deque>
#include <utility>

namespace vorna {
namespace {

using namespace std::chrono_literals;

// The probe sends all the time, also off the skin: a line that is still for so long is gone. Real
// time, whatever the clock's speed.
constexpr auto longestSilence = 10s;
// So long a fast device may take to its first line.
constexpr auto longestBegin = 2s;
constexpr std::size_t longestLine = 1000;    // characters
constexpr std::size_t mostWaiting = 100'000; // lines
// What a device may tell as its time, in its own milliseconds: no more than this, and not further
// ahead of the real time than that.
constexpr std::int64_t latestTime = 1'000'000'000'000;
constexpr auto longestLead = 5s;
// A point with the settings' contact count, and what lies between two of them.
constexpr double leastPatience = 60;
constexpr double secondsOfTick = 0.2;
constexpr double secondsOfEnd = 3.5;
using RealClock = std::chrono::steady_clock;
using RealTime = RealClock::time_point;

// The line to the port that was named, whatever the settings say. A device that plays faster than
// real time can tell its own time in each line; the clock then follows the device and nothing else,
// however long the machine keeps either of them waiting.
class NamedPort final : public SerialLine {
public:
    NamedPort(std::string path, double speed) : path_(std::move(path)), speed_(speed) {
        line_.received = [this](std::string_view text) { onReceived(text); };
    }
    bool open(const std::string&) override {
        opened_ = lastReceived_ = RealClock::now();
        firstTime_.reset();
        waiting_.clear();
        if (!line_.open(path_))
            return false;
        isOpen_ = true;
        while (speed_ > 1 && !firstTime_ && RealClock::now() < opened_ + longestBegin)
            letEventsIn();
        return true;
    }
    void configure(std::string_view settings) override { line_.configure(settings); }
    void send(std::string_view text) override { line_.send(text); }
    void close() override {
        line_.close();
        isOpen_ = false;
        waiting_.clear();
    }

    // Lets the time pass until a moment, and hands on what the device sent by then.
    void passTime(RealTime until) {
        if (!isOpen_ || !firstTime_)
            return OffscreenQt::letEventsInUntil(until);
        while (toldUntil_ < until && !isStill())
            letEventsIn();
        while (!waiting_.empty() && waiting_.front().sent <= until) {
            const std::string text = std::move(waiting_.front().text);
            waiting_.pop_front();
            handOn(text);
        }
    }

    // Nothing comes any more, or a time that does not go on.
    [[nodiscard]] bool isStill() const {
        const RealTime now = RealClock::now();
        return now - lastReceived_ > longestSilence ||
               (firstTime_ && now - lastAdvance_ > longestSilence);
    }

private:
    struct TimedLine {
        RealTime sent;
        std::string text;
    };

    static void letEventsIn() { OffscreenQt::letEventsInUntil(RealClock::now() + 1ms); }

    void onReceived(std::string_view text) {
        lastReceived_ = RealClock::now();
        if (speed_ <= 1)
            return handOn(text);
        begun_ += text;
        for (auto end = begun_.find('\n'); end != std::string::npos; end = begun_.find('\n')) {
            onLine(begun_.substr(0, end + 1));
            begun_.erase(0, end + 1);
        }
        if (begun_.size() > longestLine)
            begun_.clear();
    }
    void onLine(std::string line) {
        const std::optional<std::int64_t> time = timeOfLine(line);
        if (!time || !goesOnWith(*time))
            return handOn(line);
        toldUntil_ = opened_ + sinceFirst(*time);
        waiting_.push_back({toldUntil_, std::move(line)});
        if (waiting_.size() > mostWaiting)
            waiting_.pop_front();
    }
    // Takes a device's time that is one: it never runs back, and not far ahead of the real time.
    bool goesOnWith(std::int64_t time) {
        if (time < 0 || time > latestTime)
            return false;
        const RealTime now = RealClock::now();
        if (!firstTime_) {
            firstTime_ = lastTime_ = time;
            lastAdvance_ = now;
        }
        if (time < lastTime_ || sinceFirst(time) > now - opened_ + longestLead)
            return false;
        if (time > lastTime_)
            lastAdvance_ = now;
        lastTime_ = time;
        return true;
    }
    [[nodiscard]] RealClock::duration sinceFirst(std::int64_t time) const {
        const std::chrono::duration<double, std::milli> since(
            static_cast<double>(time - *firstTime_) / speed_);
        return std::chrono::duration_cast<RealClock::duration>(since);
    }
    void handOn(std::string_view text) const {
        if (received)
            received(text);
    }

    std::string path_;
    double speed_;
    bool isOpen_ = false;
    RealTime opened_;
    RealTime lastReceived_;
    std::string begun_;                     // a line whose end is still to come
    std::optional<std::int64_t> firstTime_; // milliseconds of the device, at `opened_`
    std::int64_t lastTime_ = 0;             // of the newest line that told one
    RealTime lastAdvance_;                  // when it went on
    RealTime toldUntil_;                    // the device's time of the newest line
    std::deque<TimedLine> waiting_;         // lines of a time that the clock has not reached
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
    Operator(const GuidedMeasurement& order, ToolProcess& process, NamedPort& port,
             const Measuring& measuring)
        : order_(order), process_(process), port_(port), measuring_(measuring) {}

    void measure(MeasurementWizard& wizard) {
        wizard.run.startIndex.text = std::to_string(order_.startIndex);
        process_.loop.setPace(order_.speed,
                              [&port = port_](RealTime until) { port.passTime(until); });
        lastProgress_ = RealClock::now();
        wizard.run.start.click();
        if (!measuring_.link().parserRunning())
            throw CannotRun("--port: " + order_.port + " does not open");
        process_.loop.runUntil([&] {
            tellProgress(wizard.run);
            return port_.isStill() || isStuck() || !measuring_.link().parserRunning();
        });
        if (measuring_.link().parserRunning())
            throw CannotRun("--port: " + order_.port +
                            (port_.isStill() ? " is still; " : " shows no further point; ") +
                            std::to_string(wizard.run.boxesDone()) + " points were measured");
        wizard.save.click();
        storedFile = wizard.storedFile();
    }

    std::optional<std::string> storedFile; // the new measurement's name

private:
    [[nodiscard]] bool isStuck() const {
        return std::chrono::duration<double>(RealClock::now() - lastProgress_).count() > patience();
    }
    [[nodiscard]] double patience() const {
        const double longestPoint = secondsOfTick * process_.session.dobamer + secondsOfEnd;
        return order_.patience.value_or(std::max(leastPatience, 2 * longestPoint / order_.speed));
    }
    void tellProgress(const RunControls& run) {
        const int done = run.boxesDone();
        if (done == toldPoints_)
            return;
        toldPoints_ = done;
        lastProgress_ = RealClock::now();
        if (order_.pointsChanged)
            order_.pointsChanged(done);
    }

    const GuidedMeasurement& order_;
    ToolProcess& process_;
    NamedPort& port_;
    const Measuring& measuring_;
    int toldPoints_ = 0;
    RealTime lastProgress_;
};

// What the process has of one measurement goes with it, also when it cannot run to its end.
class Visit {
public:
    Visit(ToolProcess& process, std::function<void(Window&)> visit, double speed)
        : process_(process), speed_(speed) {
        process_.windows.visit = std::move(visit);
    }
    Visit(const Visit&) = delete;
    Visit& operator=(const Visit&) = delete;
    ~Visit() {
        process_.windows.visit = {};
        process_.loop.setPace(speed_, &OffscreenQt::letEventsInUntil);
    }

private:
    ToolProcess& process_;
    double speed_;
};

Button& kindButton(MainWindow& window, const std::string& kind) {
    if (kind == "P")
        return window.measureSource;
    if (kind == "T")
        return window.measureTerminal;
    return kind == "B" ? window.measureBiorhythm : window.measureEnergy;
}

} // namespace

std::string measureGuided(ToolProcess& process, const GuidedMeasurement& order) {
    process.window.tabs.select(static_cast<std::size_t>(MainTab::Measurements));
    Button& button = kindButton(process.window, order.kind);
    if (!button.visible)
        throw CannotRun("--kind: " + order.kind + " is not measured in this mode");
    NamedPort port(std::filesystem::absolute(order.port).string(), order.speed);
    NoSearch search;
    Measuring measuring(process.window, process.context, {.line = port, .search = search});
    Operator practitioner(order, process, port, measuring);
    const auto visit = [&](Window& window) {
        if (auto* const wizard = dynamic_cast<MeasurementWizard*>(&window))
            practitioner.measure(*wizard);
    };
    {
        const Visit visiting(process, visit, order.speed);
        button.click();
    }
    if (!practitioner.storedFile)
        throw CannotRun("the measurement could not be stored");
    return *practitioner.storedFile;
}

} // namespace vorna
