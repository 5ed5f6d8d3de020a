#include "acquisition/free_measurement.h"

#include "acquisition/value_conversion.h"
#include "core/language_texts.h"
#include "core/number.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace vorna {
namespace {

constexpr std::int32_t barMinimum = 900;
constexpr std::int32_t percentBarMaximum = 3000;

} // namespace

FreeMeasurementTab::FreeMeasurementTab(Window& window)
    : frame(window, "mereniFrame"), action(window, "Command9"), value(window, "Label6"),
      percent(window, "Label7"), bar(window, "ProgressBar1", barMinimum, percentBarMaximum),
      armLog(window, "Label8"), logHint(window, "Label17") {
    frame.visible = false;
}

FreeMeasurement::FreeMeasurement(FreeMeasurementTab& tab, Session& session, Platform& platform,
                                 DeviceLink& link)
    : tab_(tab), session_(session), platform_(platform), link_(link) {
    tab_.action.clicked = [this] { press(); };
    tab_.armLog.clicked = [this] { armLog(); };
    link_.averaged = [this] { onAveraged(); };
    link_.readingCut = [this](std::int16_t value) { onReadingCut(value); };
}

FreeMeasurement::~FreeMeasurement() {
    tab_.action.clicked = {};
    tab_.armLog.clicked = {};
    link_.averaged = {};
    link_.readingCut = {};
}

void FreeMeasurement::press() {
    if (upperCase(tab_.action.caption.get()) == upperCase(t(session_, "t4")))
        start();
    else
        stop();
}

void FreeMeasurement::start() {
    highestValue_ = "0";
    if (!link_.openForFreeMeasurement())
        return;
    link_.freeMeasurementRuns = true;
    tab_.action.caption = t(session_, "t3");
}

void FreeMeasurement::stop() {
    link_.stop();
    link_.blinkHold = true;
    link_.freeMeasurementRuns = false;
    tab_.action.caption = t(session_, "t4");
}

void FreeMeasurement::armLog() {
    log_.arm(platform_.dialogs.input("Zadejte název měření", "Logování START"));
}

// Runs for every average, of guided runs too: without contact they read 0 from then on.
void FreeMeasurement::onAveraged() {
    const std::int16_t reading = link_.currentReading;
    attempt([&] {
        if (reading > numberOfDecimalText(highestValue_))
            highestValue_ = decimalText(std::int64_t{reading});
    });
    if (hasContact(session_, reading)) {
        if (link_.screenUpdateOn)
            showReading(reading);
        return;
    }
    link_.currentReading = 0;
    tab_.value.caption = std::string(noContactText);
    tab_.bar.show(barMinimum);
}

void FreeMeasurement::showReading(std::int16_t reading) {
    if (log_.armed() && !log_.logging())
        log_.start(session_.dataRoot, session_.posun, platform_.clock.now());
    attempt([&] {
        const std::int32_t linear = linearValue(session_, reading);
        tab_.value.caption = linearText(linear);
        attempt([&] { tab_.bar.show(linear); });
        tab_.percent.caption = logarithmicText(session_, linear);
    });
}

void FreeMeasurement::onReadingCut(std::int16_t value) {
    if (!log_.logging() || !log_.write(value))
        return;
    platform_.dialogs.message("Zachyceno " + log_.fileName());
    log_.close();
}

} // namespace vorna
