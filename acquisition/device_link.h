// The link to the probe: opens its port, collects what it sends, and on a tick of 20 ms cuts one
// reading out of one line and publishes it as `currentReading`. It knows nothing of points or
// sets: the guided run and the free measurement both read that one value. There is one link in a
// process.
#pragma once

#include "acquisition/reading_buffer.h"
#include "core/session.h"
#include "core/window.h"
#include "platform/platform.h"
#include "platform/serial_line.h"

#include <array>
#include <cstdint>
#include <functional>

namespace vorna {

class DeviceLink {
public:
    // The keep-alive runs from here on. All that is passed must outlive the link; `activity` is the
    // picture that blinks while something is measured.
    DeviceLink(Session& session, Platform& platform, SerialLine& line, Picture& activity);
    DeviceLink(const DeviceLink&) = delete;
    DeviceLink& operator=(const DeviceLink&) = delete;
    ~DeviceLink();

    // Opens the port of the settings for a guided run: the ring begins anew, the buffer is cleared,
    // the parser starts. False when the port does not open: `currentReading` is 0 then, so that an
    // old reading is not measured, all else is as it was, and the caller says so. Leaves
    // `linkAlive` to the run, which sets it as it starts.
    bool openForRun();

    // The same for the free measurement, with a close first: besides, `blinkHold` is cleared, the
    // screen update turned on, the activity blink started and `linkAlive` set. When the port does
    // not open: `calibrationFailed` is set, the text "t2" is shown, and false comes back.
    bool openForFreeMeasurement();

    // Ends a measurement: `linkAlive` false, the port closed, the buffer cleared, the parser
    // stopped. Harmless when stopped.
    void stop();

    // The steps of the above, for those who need them one by one.
    void close();
    void clearBuffer(); // received text that was not read yet is gone
    void startParser();
    void stopParser();
    [[nodiscard]] bool parserRunning() const { return parser_.running(); }

    // The blink goes on from here at its own period, but changes the picture only while one of the
    // two flags below is set and `blinkHold` is not.
    void startActivityBlink();
    bool freeMeasurementRuns = false; // kept by the free measurement
    bool guidedRunStoppable = false;  // kept by the guided run: its stop action is available
    bool blinkHold = true;

    // The latest average in device units, 0 to 9999. It stays when nothing comes any more. The free
    // measurement's display sets it to 0 where there is no contact.
    std::int16_t currentReading = 0;
    // The reading of the newest line that held one, as it came.
    std::int16_t rawReading = 0;

    bool linkAlive = false;         // allows the keep-alive
    bool peakTracking = false;      // kept by the calibration
    std::int32_t peakRaw = 0;       // the largest value while peakTracking was on
    bool screenUpdateOn = false;    // lets the averages drive the free measurement's display
    bool calibrationFailed = false; // set by a failed open of the free measurement

    // Called in each tick that used a line, before averaging, with the value that the tick goes on
    // with (that of the line, or the old one when the line held none): the capture log.
    std::function<void(std::int16_t value)> readingCut;
    // Called when `currentReading` holds a completed average: the free measurement's display.
    std::function<void()> averaged;

    // One tick, which the parser's timer calls.
    void tick();

private:
    [[nodiscard]] std::string portPath() const;
    void configure(int numberOption);
    void beginReading();
    bool averageIfComplete();
    void keepAlive();
    [[nodiscard]] double secondsOfDay() const;

    static constexpr std::size_t ringSize = 10;

    Session& session_;
    Platform& platform_;
    SerialLine& line_;
    Picture& activity_;

    ReadingBuffer readingBuffer_;
    std::array<std::int32_t, ringSize + 1> ringBuffer_{}; // samples to average; [0] unused
    std::int16_t ringPosition_ = 1;
    std::int16_t ringLength_ = 1; // each sample is its own average
    std::int32_t lastTickSecond_ = 0;

    Timer parser_;
    Timer keepAlive_;
    Timer blink_;
    Timer blinkChange_;
};

} // namespace vorna
