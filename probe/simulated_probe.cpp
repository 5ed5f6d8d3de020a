#include "probe/simulated_probe.h"

#include "acquisition/reading_line.h"
#include "platform/failure.h"
#include "probe/pseudo_terminal.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <optional>
#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace vorna {
namespace {

namespace fs = std::filesystem;
using SteadyTime = std::chrono::steady_clock::time_point;
using Seconds = std::chrono::duration<double>;

// How often a missing reader is looked for.
constexpr Seconds readerPause{0.01};
// One that closes and opens again within this has not left.
constexpr Seconds reopenPause{0.05};
// A machine that stood still makes up for so many lines, and a slow reader gets so many
// characters later; the others are lost, as on a line without flow control.
constexpr std::int64_t mostLinesAtOnce = 5000;
constexpr std::size_t mostUnsentText = std::size_t{64} << 10U;

sigset_t endingSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    return signals;
}

class EndingSignals {
public:
    EndingSignals() {
        const sigset_t signals = endingSignals();
        descriptor_ = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
        if (descriptor_ < 0)
            throw Failure("the system gives no signal descriptor");
    }
    EndingSignals(const EndingSignals&) = delete;
    EndingSignals& operator=(const EndingSignals&) = delete;
    ~EndingSignals() { ::close(descriptor_); }
    [[nodiscard]] int descriptor() const { return descriptor_; }

private:
    int descriptor_ = -1;
};

class Link {
public:
    Link(const fs::path& link, const std::string& target) : link_(link), target_(target) {
        if (link_.empty())
            return;
        std::error_code error;
        if (fs::is_symlink(fs::symlink_status(link_, error)))
            fs::remove(link_, error);
        fs::create_symlink(target_, link_, error);
        if (error)
            throw Failure("cannot make the link " + link_.string() + ": " + error.message());
    }
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;
    ~Link() {
        std::error_code error; // another probe may have taken the link over
        if (!link_.empty() && fs::read_symlink(link_, error) == target_)
            fs::remove(link_, error);
    }

private:
    fs::path link_;
    std::string target_;
};

class SimulatedProbe {
public:
    SimulatedProbe(const ProbeOptions& options, std::ostream& notes)
        : options_(options), notes_(notes) {}

    [[nodiscard]] const std::string& path() const { return terminal_.path(); }

    void run(const EndingSignals& signals) {
        while (true) {
            if (!waitForNextLine(signals) || leftForGood())
                return;
            if (began_)
                printDueLines();
            noteSentText();
        }
    }

private:
    // Waits for the next line's time, or a little less; false when a signal ends the probe.
    bool waitForNextLine(const EndingSignals& signals) {
        const Seconds pause =
            began_ ? dueTime(linesPrinted_) - std::chrono::steady_clock::now() : readerPause;
        const auto nanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(
            std::clamp(pause, Seconds{0}, readerPause));
        const timespec timeout{.tv_sec = 0, .tv_nsec = static_cast<long>(nanoseconds.count())};
        pollfd waited{.fd = signals.descriptor(), .events = POLLIN, .revents = 0};
        return ppoll(&waited, 1, &timeout, nullptr) <= 0;
    }

    // Follows the reader's coming and going; true when nobody is awaited any more.
    bool leftForGood() {
        const SteadyTime now = std::chrono::steady_clock::now();
        const bool hasReader = terminal_.hasReader();
        if (hasReader)
            lastSeen_ = now;
        if (hasReader && !began_) {
            began_ = now;
            linesPrinted_ = 0;
        } else if (began_ && now - lastSeen_ > reopenPause) {
            noteSentText();
            if (playTime() >= options_.play.lastPointFrom)
                return true;
            began_.reset();
            unsentText_.clear();
            terminal_.reset();
        }
        return false;
    }

    void printDueLines() {
        using WholeLines = std::chrono::duration<std::int64_t>;
        const std::int64_t due =
            std::chrono::floor<WholeLines>(Seconds(playTime() * options_.linesPerSecond)).count();
        linesPrinted_ = std::max(linesPrinted_, due - mostLinesAtOnce);
        for (; linesPrinted_ < due; ++linesPrinted_)
            if (unsentText_.size() < mostUnsentText)
                unsentText_ += lineAt(static_cast<double>(linesPrinted_) / options_.linesPerSecond);
        unsentText_.erase(0, terminal_.write(unsentText_));
    }

    [[nodiscard]] std::string lineAt(double seconds) const {
        const int reading = readingAt(options_.play, seconds);
        const auto time = std::chrono::floor<std::chrono::milliseconds>(Seconds(seconds));
        return options_.timed ? formatTimedLine(time.count(), reading) : formatReadingLine(reading);
    }

    void noteSentText() {
        for (const char c : terminal_.read())
            if (c == 'c')
                notes_ << "c at " << playTime() << " s" << std::endl;
    }

    [[nodiscard]] double playTime() const {
        return began_ ? Seconds(std::chrono::steady_clock::now() - *began_).count() * options_.speed
                      : 0;
    }

    [[nodiscard]] SteadyTime dueTime(std::int64_t line) const {
        const Seconds due{static_cast<double>(line + 1) /
                          (options_.linesPerSecond * options_.speed)};
        return *began_ + std::chrono::duration_cast<std::chrono::steady_clock::duration>(due);
    }

    const ProbeOptions& options_;
    std::ostream& notes_;
    PseudoTerminal terminal_;
    std::optional<SteadyTime> began_; // when the reader came; none while there is none
    SteadyTime lastSeen_;
    std::int64_t linesPrinted_ = 0;
    std::string unsentText_;
};

} // namespace

void blockEndingSignals() {
    const sigset_t signals = endingSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

void runSimulatedProbe(const ProbeOptions& options, std::ostream& out, std::ostream& notes) {
    const EndingSignals signals;
    SimulatedProbe probe(options, notes);
    const Link link(options.link, probe.path());
    out << probe.path() << std::endl;
    probe.run(signals);
}

} // namespace vorna
