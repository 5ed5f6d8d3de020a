#include "acquisition/device_link.h"

#include "acquisition/reading_line.h"
#include "core/file_names.h"
#include "core/number.h"
#include "core/settings_file.h"
#include "platform/failure.h"
#include "platform/files.h"

#include <cmath>

namespace vorna {
namespace {

using namespace std::chrono_literals;

constexpr EventLoop::Milliseconds parserPeriod = 20ms;
constexpr EventLoop::Milliseconds keepAlivePeriod = 550ms;
constexpr EventLoop::Milliseconds blinkPeriod = 600ms;
constexpr EventLoop::Milliseconds blinkDelay = 200ms;

constexpr std::string_view lineSettings = "9600,n,8,1";
constexpr int numberOfRun = 8;
constexpr int numberOfFreeMeasurement = 9;
constexpr int lineFeed = 10;

constexpr std::string_view keepAliveText = "c";
// The last tick is known to a whole second, so that this is passed now and then while data flow.
// The device has always been sent to at these times.
constexpr double quietSeconds = 0.27;

} // namespace

DeviceLink::DeviceLink(Session& session, Platform& platform, SerialLine& line, Picture& activity)
    : session_(session), platform_(platform), line_(line), activity_(activity),
      parser_(platform.loop, parserPeriod, Timer::Kind::Repeating, [this] { tick(); }),
      keepAlive_(platform.loop, keepAlivePeriod, Timer::Kind::Repeating, [this] { keepAlive(); }),
      blink_(platform.loop, blinkPeriod, Timer::Kind::Repeating,
             [this] {
                 if (freeMeasurementRuns || guidedRunStoppable)
                     blinkChange_.start();
             }),
      blinkChange_(platform.loop, blinkDelay, Timer::Kind::OneShot, [this] {
          if (!blinkHold)
              activity_.visible = !activity_.visible.get();
      }) {
    line_.received = [this](std::string_view text) { readingBuffer_.append(text); };
    line_.setOption(SerialOption::LineFeed, lineFeed);
    keepAlive_.start();
}

DeviceLink::~DeviceLink() {
    line_.close();
    line_.received = nullptr;
}

bool DeviceLink::openForRun() {
    if (!line_.open(portPath())) {
        currentReading = 0;
        return false;
    }
    configure(numberOfRun);
    beginReading();
    return true;
}

bool DeviceLink::openForFreeMeasurement() {
    const std::string path = portPath();
    close();
    if (!line_.open(path)) {
        // Before the message, under which the calibration's timer goes on.
        calibrationFailed = true;
        platform_.dialogs.message(t(session_, "t2"));
        return false;
    }
    configure(numberOfFreeMeasurement);
    blinkHold = false;
    screenUpdateOn = true;
    startActivityBlink();
    linkAlive = true;
    beginReading();
    return true;
}

void DeviceLink::stop() {
    linkAlive = false;
    close();
    clearBuffer();
    stopParser();
}

void DeviceLink::close() {
    line_.close();
}

void DeviceLink::clearBuffer() {
    readingBuffer_.clear();
}

void DeviceLink::startParser() {
    parser_.start();
}

void DeviceLink::stopParser() {
    parser_.stop();
}

void DeviceLink::startActivityBlink() {
    blink_.start();
}

void DeviceLink::tick() {
    const bool lineFound = readingBuffer_.findLineEnd() != 0;
    lastTickSecond_ = roundToInt32(secondsOfDay());
    if (!lineFound)
        return;
    const std::string characters = readingBuffer_.takeReadingCharacters();
    attempt([&] {
        rawReading = roundToInt16(numberOfDecimalText(readingDigits(characters)));
        currentReading = rawReading;
    });
    const std::int16_t value = currentReading;
    platform_.loop.processEventsButInput();
    ringBuffer_[static_cast<std::size_t>(ringPosition_)] = value;
    if (peakTracking && value > peakRaw)
        peakRaw = value;
    attempt([&] {
        if (readingCut)
            readingCut(value);
    });
    if (averageIfComplete())
        attempt([&] { call(averaged); });
}

bool DeviceLink::averageIfComplete() {
    if (++ringPosition_ != ringLength_ + 1)
        return false;
    double sum = 0;
    for (int slot = 1; slot <= ringLength_; ++slot)
        sum += ringBuffer_[static_cast<std::size_t>(slot)];
    attempt([&] { currentReading = roundToInt16(divided(sum, ringLength_)); });
    ringPosition_ = 1;
    return true;
}

std::string DeviceLink::portPath() const {
    return serialDevicePath(ReadIniValue(under(session_.dataRoot, names::setup), "global", "port"));
}

void DeviceLink::configure(int numberOption) {
    line_.configure(lineSettings);
    line_.setOption(SerialOption::Flag, 1);
    line_.setOption(SerialOption::Number, numberOption);
}

void DeviceLink::beginReading() {
    ringPosition_ = 1;
    clearBuffer();
    startParser();
}

void DeviceLink::keepAlive() {
    if (std::abs(secondsOfDay() - lastTickSecond_) > quietSeconds && linkAlive)
        line_.send(keepAliveText);
}

double DeviceLink::secondsOfDay() const {
    const LocalTime now = platform_.clock.now();
    return std::chrono::duration<double>(now - std::chrono::floor<std::chrono::days>(now)).count();
}

} // namespace vorna
