// The free measurement: the probe's live value outside of any set, with its percent and bar, and
// the capture log of the next 100 readings.
#pragma once

#include "acquisition/bounded_bar.h"
#include "acquisition/capture_log.h"
#include "acquisition/device_link.h"
#include "core/session.h"
#include "core/window.h"
#include "platform/platform.h"

#include <cstdint>
#include <string>

namespace vorna {

// The controls of the frame in the main window.
struct FreeMeasurementTab {
    explicit FreeMeasurementTab(Window& window);

    Frame frame;
    Button action;  // starts or stops, as its caption says
    Label value;    // calibrated device units and CR LF; "---" without contact
    Label percent;  // on a logarithmic scale
    BoundedBar bar; // 900 to 3000 calibrated device units
    Label armLog;
    Label logHint;
};

// There is one in a process. It takes over the link's events of readings, of guided runs too.
class FreeMeasurement {
public:
    // Binds the controls until it goes. All that is passed must outlive it.
    FreeMeasurement(FreeMeasurementTab& tab, Session& session, Platform& platform,
                    DeviceLink& link);
    FreeMeasurement(const FreeMeasurement&) = delete;
    FreeMeasurement& operator=(const FreeMeasurement&) = delete;
    ~FreeMeasurement();

    // The action of the button: starts when its caption is the text "t4", else stops.
    void press();
    // The link tells when the port does not open; the caption then stays.
    void start();
    void stop();

    // Asks for the name of the measurement and arms the capture log, whatever the answer.
    void armLog();

    // The largest reading since the start, as text. Nothing shows it.
    [[nodiscard]] const std::string& highestValue() const { return highestValue_; }

private:
    void onAveraged();
    void showReading(std::int16_t reading);
    void onReadingCut(std::int16_t value);

    FreeMeasurementTab& tab_;
    Session& session_;
    Platform& platform_;
    DeviceLink& link_;
    CaptureLog log_;
    std::string highestValue_ = "0";
};

} // namespace vorna
