// The calibration of the probe, in two phases on one one-shot timer. In phase 1 the probe lies free
// for 3 s, and its highest reading becomes the zero point `posun`; in phase 2 it is held against
// the hand electrode for 8 s, and the highest reading gives the slope `sklon`. How it stands is
// told by the text and colour of one box.
#pragma once

#include "acquisition/device_link.h"
#include "core/session.h"
#include "core/window.h"
#include "platform/platform.h"

#include <cstdint>
#include <functional>
#include <string_view>

namespace vorna {

// The free measurement as the calibration uses it.
struct FreeMeasurementActions {
    std::function<void()> start; // opens the port anew when it runs already
    std::function<void()> press; // the action of its button: starts or stops it
};

class Calibration {
public:
    struct Surroundings {
        Session& session;
        Platform& platform;
        DeviceLink& link;
        FreeMeasurementActions freeMeasurement;
    };

    // Idle. All that is passed must outlive it.
    Calibration(TextBox& box, Surroundings surroundings);

    // The action of the calibration's button: begins phase 1, also when a calibration runs.
    void calibrate();

    enum class Phase : std::uint8_t { Idle, AtRest, InContact };
    // A failed calibration, too, is in its phase until the timer fires.
    [[nodiscard]] Phase phase() const { return phase_; }

private:
    void onTimer();
    void endPhaseAtRest();
    void beginPhaseInContact();
    void endPhaseInContact();
    void takeZeroPoint(std::int32_t peak);
    void takeSlope(std::int32_t peak);
    void show(std::string_view textKey, BackColour colour);
    void write(std::string_view settingsKey, std::int16_t value) const;

    TextBox& box_;
    Surroundings around_;
    Phase phase_ = Phase::Idle;
    Timer timer_;
};

} // namespace vorna
