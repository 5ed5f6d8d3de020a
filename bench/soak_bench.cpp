// A long free measurement: the display, the bar and the capture log, which is armed again whenever
// it is full, first for an hour of virtual time, then on the simulated probe for ten minutes of
// real time. Prints what is allocated and what lies in memory as the time goes on; the end is not
// zero when the measurement grew or went to sleep.
//
//     soak_bench 60 10      virtual and real minutes
#include "acquisition/free_measurement.h"
#include "acquisition/reading_line.h"
#include "bench/memory.h"
#include "core/file_names.h"
#include "demo/probe_process.h"
#include "platform/devices/qt_serial_line.h"
#include "platform/qt/qt_event_loop.h"
#include "tests/support/scripted_serial_line.h"
#include "tests/support/test_platform.h"

#include <QCoreApplication>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>

namespace {

using namespace vorna;
namespace fs = std::filesystem;

constexpr int linesPerSecond = 50;     // one for each tick
constexpr int lines = 10;              // of the table
constexpr std::size_t slack = 256'000; // bytes that may come and go

// A point every nine seconds: rest, a rise to a peak, the hand taken away.
int readingAt(double seconds) {
    const double inPoint = std::fmod(seconds, 9);
    if (inPoint < 4)
        return 0;
    return static_cast<int>(300 + 2'600 * std::sin((inPoint - 4) / 5 * 3.14159));
}

std::string scriptOf(double seconds) {
    std::string script;
    for (double at = 0; at < seconds; at += 0.1)
        script += "0.1 " + std::to_string(readingAt(at)) + "\n";
    return script;
}

struct Desk {
    Desk(Platform& platform, SerialLine& line, const fs::path& folder)
        : link(session, platform, line, activity), free(tab, session, platform, link) {
        session.dataRoot = folder;
        fs::create_directories(folder / "LOG");
        link.readingCut = [this, shown = link.readingCut](std::int16_t value) {
            ++readings;
            shown(value);
        };
    }

    Session session;
    Window window{"Form1"};
    Picture activity{window, "Image9"};
    DeviceLink link;
    FreeMeasurementTab tab{window};
    FreeMeasurement free;
    long readings = 0;
};

// Lets the time pass in equal parts and looks at the memory after each. True when it was flat and
// readings came in each part.
bool soak(Desk& desk, EventLoop& loop, std::chrono::milliseconds time) {
    std::cout << "   minute   readings   allocated kB   resident MB\n";
    desk.free.start();
    bool healthy = true;
    std::size_t settled = 0;
    for (int part = 1; part <= lines; ++part) {
        const long before = desk.readings;
        desk.free.armLog();
        loop.wait(time / lines);
        const std::size_t bytes = allocatedBytes();
        if (part == 2)
            settled = bytes; // caches have filled
        healthy = healthy && desk.readings > before && (part < 2 || bytes < settled + slack);
        std::cout << std::fixed << std::setprecision(1) << std::setw(9)
                  << std::chrono::duration<double>(time).count() / 60 * part / lines
                  << std::setw(11) << desk.readings << std::setw(15)
                  << static_cast<double>(bytes) / 1e3 << std::setw(14) << residentMegabytes()
                  << '\n';
    }
    desk.free.stop();
    return healthy;
}

bool soakVirtual(const fs::path& folder, int minutes) {
    std::cout << "virtual time\n";
    TestPlatform seams;
    ScriptedSerialLine line;
    Desk desk(seams.platform, line, folder);
    double seconds = 0;
    const auto send = [&] {
        seconds += 1.0 / linesPerSecond;
        line.receive(formatReadingLine(readingAt(seconds)));
        line.sent.clear(); // a test's own memory
        seams.dialogs.shown.clear();
    };
    Timer probe(seams.loop, std::chrono::milliseconds{1000 / linesPerSecond},
                Timer::Kind::Repeating, send);
    probe.start();
    return soak(desk, seams.loop, std::chrono::minutes{minutes});
}

bool soakReal(const fs::path& folder, int minutes) {
    std::cout << "\nreal time, on the simulated probe\n";
    int count = 0;
    const QCoreApplication application(count, nullptr);
    TestPlatform seams;
    QtEventLoop loop;
    SystemClock clock;
    QtSerialLine line;
    Platform platform{loop,          clock,           seams.platform.locale,
                      seams.dialogs, seams.clipboard, seams.opener,
                      seams.sound,   seams.drawing};
    const fs::path script = folder / "script.txt";
    std::ofstream(script) << scriptOf((minutes + 1) * 60);
    const ProbeProcess probe(fs::path(VORNA_BENCH_INSTALLATION) / "vorna-probe", 1, script);
    std::ofstream(folder / names::setup) << "[Global]\nport=" << probe.port() << "\n";
    Desk desk(platform, line, folder);
    return soak(desk, loop, std::chrono::minutes{minutes});
}

} // namespace

int main(int count, char** arguments) {
    const int virtualMinutes = count > 1 ? std::atoi(arguments[1]) : 60;
    const int realMinutes = count > 2 ? std::atoi(arguments[2]) : 10;
    std::string pattern = (fs::temp_directory_path() / "vorna-bench-XXXXXX").string();
    const fs::path folder = mkdtemp(pattern.data());
    bool healthy = false;
    try {
        healthy = soakVirtual(folder, virtualMinutes);
        healthy = soakReal(folder, realMinutes) && healthy;
        std::cout << (healthy ? "\nflat\n" : "\nit grew, or no readings came\n");
    } catch (const std::exception& error) {
        std::cerr << "soak_bench: " << error.what() << '\n';
    }
    fs::remove_all(folder);
    return healthy ? 0 : 1;
}
