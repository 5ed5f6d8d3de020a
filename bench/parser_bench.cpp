// One tick of the reading parser, with so many bytes received and not read yet: a line comes, and
// a line is read. Beside it what the tick would cost if it worked on a copy of all that came.
#include "acquisition/device_link.h"
#include "acquisition/reading_line.h"
#include "tests/support/scripted_serial_line.h"
#include "tests/support/test_platform.h"

#include <benchmark/benchmark.h>

namespace {

std::string linesOfBytes(std::int64_t bytes) {
    std::string text;
    for (int reading = 0; std::int64_t(text.size()) < bytes; reading = (reading + 1) % 10'000)
        text += vorna::formatReadingLine(reading);
    return text;
}

void parserTick(benchmark::State& state) {
    vorna::TestPlatform seams;
    vorna::Session session;
    vorna::Window window("Form1");
    vorna::Picture activity(window, "Image9");
    vorna::ScriptedSerialLine line;
    vorna::DeviceLink link(session, seams.platform, line, activity);
    link.openForRun();
    line.receive(linesOfBytes(state.range(0)));
    for (auto _ : state) {
        line.receive("xx1.234\r\n");
        link.tick();
    }
    benchmark::DoNotOptimize(link.currentReading);
}

void copyingTick(benchmark::State& state) {
    const std::string received = linesOfBytes(state.range(0));
    for (auto _ : state) {
        const std::string copy = received;
        const std::size_t lineEnd = copy.find("\r\n", 1);
        benchmark::DoNotOptimize(copy.substr(lineEnd - 7, 7));
    }
}

} // namespace

BENCHMARK(parserTick)->Arg(1'000)->Arg(10'000'000);
BENCHMARK(copyingTick)->Arg(1'000)->Arg(10'000'000);

BENCHMARK_MAIN();
