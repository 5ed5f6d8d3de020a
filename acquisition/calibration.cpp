#include "acquisition/calibration.h"

#include "core/file_names.h"
#include "core/number.h"
#include "core/settings_file.h"
#include "platform/failure.h"
#include "platform/files.h"

namespace vorna {
namespace {

using namespace std::chrono_literals;

constexpr EventLoop::Milliseconds timeAtRest = 3000ms;
constexpr EventLoop::Milliseconds timeInContact = 8000ms;

// Device units.
constexpr std::int32_t lowestAtRest = 200;
constexpr std::int32_t highestAtRest = 2600;
constexpr std::int32_t highestInContact = 5000;
constexpr std::int32_t leastRise = 1000; // of the contact over the zero point
constexpr std::int16_t scaleReserve = 1000;

constexpr std::int16_t defaultSlope = 100;

} // namespace

Calibration::Calibration(TextBox& box, Surroundings surroundings)
    : box_(box), around_(std::move(surroundings)),
      timer_(around_.platform.loop, timeAtRest, Timer::Kind::OneShot, [this] { onTimer(); }) {}

void Calibration::calibrate() {
    around_.link.peakTracking = true;
    around_.link.calibrationFailed = false;
    around_.link.peakRaw = 0;
    timer_.setInterval(timeAtRest);
    timer_.start();
    show("t16", BackColour::Yellow);
    phase_ = Phase::AtRest;
    around_.platform.loop.processEventsButInput();
    call(around_.freeMeasurement.start);
}

void Calibration::onTimer() {
    if (around_.link.calibrationFailed) {
        // The free measurement stays as it is.
        show("t26", BackColour::Red);
        around_.link.peakTracking = false;
        phase_ = Phase::Idle;
        return;
    }
    call(around_.freeMeasurement.press);
    if (phase_ == Phase::AtRest) {
        endPhaseAtRest();
        beginPhaseInContact();
    } else {
        endPhaseInContact();
    }
}

void Calibration::endPhaseAtRest() {
    const std::int32_t peak = around_.link.peakRaw;
    if (peak < lowestAtRest) {
        show("t27", BackColour::Red);
    } else if (peak > highestAtRest) {
        show("t28", BackColour::Red);
        around_.link.calibrationFailed = true;
    } else {
        show("t29", BackColour::Green);
        attempt([&] { takeZeroPoint(peak); });
    }
    around_.link.peakTracking = false;
}

void Calibration::takeZeroPoint(std::int32_t peak) {
    const double reservePercent = numberOfText(around_.platform.locale, around_.session.posunrez);
    const std::int16_t zeroPoint = roundToInt16((1 + reservePercent * 0.01) * peak);
    around_.session.posun = zeroPoint;
    write("posun", zeroPoint);
}

void Calibration::beginPhaseInContact() {
    around_.link.peakTracking = true;
    around_.link.peakRaw = 0;
    timer_.setInterval(timeInContact);
    timer_.start();
    phase_ = Phase::InContact;
    // The text of the first phase's end tells what to do now.
    box_.backColour = BackColour::Yellow;
    around_.platform.loop.processEventsButInput();
    call(around_.freeMeasurement.start);
}

void Calibration::endPhaseInContact() {
    const std::int32_t peak = around_.link.peakRaw;
    around_.link.peakTracking = false;
    phase_ = Phase::Idle;
    if (peak > highestInContact) {
        show("t30", BackColour::Red);
    } else if (peak > around_.session.posun + leastRise) {
        show("t32", BackColour::Green);
        attempt([&] { takeSlope(peak); });
    } else {
        show("t31", BackColour::Magenta);
        // The slope in use stays until the next start.
        write("sklon", defaultSlope);
    }
}

void Calibration::takeSlope(std::int32_t peak) {
    const double target = subtractedInt16(around_.session.maxhod, scaleReserve);
    const auto slope = static_cast<float>(target / (peak - around_.session.posun) * 100);
    around_.session.sklon = roundToInt16(double{slope});
    write("sklon", around_.session.sklon);
}

void Calibration::show(std::string_view textKey, BackColour colour) {
    box_.text = t(around_.session, textKey);
    box_.backColour = colour;
}

void Calibration::write(std::string_view settingsKey, std::int16_t value) const {
    attempt([&] {
        WriteIniValue(under(around_.session.dataRoot, names::setup), "global", settingsKey,
                      decimalText(std::int64_t{value}));
    });
}

} // namespace vorna
