#include "acquisition/guided_run.h"

#include "acquisition/value_conversion.h"
#include "core/file_names.h"
#include "core/language_texts.h"
#include "core/number.h"
#include "platform/failure.h"
#include "platform/files.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace vorna {
namespace {

using namespace std::chrono_literals;

constexpr auto tickPeriod = 200ms;
constexpr auto nextPointDelay = 500ms;
constexpr std::int32_t valueBarMaximum = 400; // chart units
// A box above this counts each tick twice.
constexpr double fastBoxValue = 40;
// More lost ticks than this begin the point afresh.
constexpr std::int16_t forgivenTicks = 1;
constexpr std::int16_t lastPlace = 24;
constexpr std::initializer_list<int> places{1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12,
                                            13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24};

// In 16 bits; what would leave them stays.
void raise(std::int16_t& number, int by) {
    attempt([&] { number = roundToInt16(double(number) + by); });
}

} // namespace

double PointProgress::heldShare() const {
    if (contactCount <= 0 || contactNeeded <= 0)
        return contactCount > contactNeeded ? 1 : 0;
    return std::min(1.0, double(contactCount) / double(contactNeeded));
}

RunControls::RunControls(Window& window)
    : startIndexLabel(window, "Label1"), startIndex(window, "Text1"), start(window, "Command1"),
      stop(window, "Command2"), boxes(window, "Text2", places), progress(window, "PointProgress1"),
      ready(window, "Label11"), applyProbe(window, "Label8"), holdProbe(window, "Label9"),
      pointMeasured(window, "Label10"), bar(window, "ProgressBar1", 0, valueBarMaximum),
      liveValueLabel(window, "Label3"), liveValue(window, "Label12"),
      readingsLabel(window, "Label4"), readings(window, "List1"), skipHint(window, "Label5"),
      preparePoint(window, "Command5") {}

PointBox& RunControls::box(int place) const {
    PointBox* const found = boxes.at(place);
    if (found == nullptr)
        throw Failure("there is no such point box");
    return *found;
}

std::array<std::string, slotCount + 1> RunControls::boxTexts() const {
    std::array<std::string, slotCount + 1> texts;
    for (const auto& pointBox : boxes.members)
        texts[static_cast<std::size_t>(pointBox->index())] = pointBox->text;
    return texts;
}

int RunControls::boxesDone() const {
    const bool underWay =
        progress.state == PointState::Waiting || progress.state == PointState::Contact;
    return static_cast<int>(
        std::count_if(boxes.members.begin(), boxes.members.end(), [&](const auto& pointBox) {
            return !pointBox->text.get().empty() &&
                   !(underWay && pointBox->index() == progress.currentBox);
        }));
}

std::int16_t nextRunPlace(std::int16_t place) {
    return roundToInt16(place < 13 ? place + 12.0 : place - 11.0);
}

GuidedRun::GuidedRun(RunControls& controls, Surroundings surroundings)
    : controls_(controls), around_(std::move(surroundings)), progress_(controls.progress),
      tick_(around_.platform.loop, tickPeriod, Timer::Kind::Repeating, [this] { onTick(); }),
      nextPoint_(around_.platform.loop, nextPointDelay, Timer::Kind::OneShot,
                 [this] { onNextPoint(); }) {}

GuidedRun::~GuidedRun() {
    around_.link.guidedRunStoppable = false;
}

void GuidedRun::open() {
    controls_.stop.enabled = false;
    controls_.startIndex.text = "1";
    for (const auto& pointBox : controls_.boxes.members)
        pointBox->backColour = BackColour::White;
    progress_.contactNeeded = around_.session.dobamer;
    takeStartIndex();
    showLiveValue("0");
    showState(PointState::Idle);
}

PointBox& GuidedRun::currentBox() const {
    return controls_.box(progress_.currentBox);
}

void GuidedRun::takeStartIndex() {
    attempt([&] {
        progress_.currentBox = roundToInt16(numberOfDecimalText(controls_.startIndex.text.get()));
    });
}

void GuidedRun::showState(PointState state) {
    controls_.ready.visible = state == PointState::Idle;
    controls_.applyProbe.visible = state == PointState::Waiting;
    controls_.holdProbe.visible = state == PointState::Contact;
    controls_.pointMeasured.visible = state == PointState::Done;
    progress_.state = state;
}

void GuidedRun::showLiveValue(const std::string& text) {
    controls_.liveValue.caption = text;
}

void GuidedRun::enter(State state) {
    const bool wasUnderWay = state_ != State::Idle;
    state_ = state;
    const bool isUnderWay = state_ != State::Idle;
    if (isUnderWay != wasUnderWay && around_.underWayChanged)
        around_.underWayChanged(isUnderWay);
}

void GuidedRun::play(std::string_view sound) {
    around_.platform.sound.play(under(around_.session.appFolder, sound), false);
}

bool GuidedRun::playToItsEnd(std::string_view sound) {
    const std::uint32_t turn = turn_;
    around_.platform.sound.play(under(around_.session.appFolder, sound), true);
    return turn == turn_;
}

bool GuidedRun::notice(const std::string& text) {
    const std::uint32_t turn = turn_;
    around_.platform.dialogs.notice(text);
    return turn == turn_;
}

// ---- Actions

void GuidedRun::start() {
    ++turn_;
    if (!around_.link.openForRun())
        around_.platform.dialogs.message(t(around_.session, "t36"));
    takeStartIndex();
    attempt([&] {
        currentBox().text = "";
        currentBox().backColour = BackColour::White;
    });
    runningSequence_ = true;
    controls_.start.enabled = false;
    controls_.stop.enabled = true;
    around_.link.guidedRunStoppable = true;
    progress_.contactCount = 0;
    peak_ = 0;
    play(names::startSound);
    around_.link.linkAlive = true;
    beginPoint();
    PointBox& first = controls_.box(1);
    first.window().focus(first);
}

void GuidedRun::preparePoint() {
    if (state_ != State::Idle && state_ != State::Measuring)
        return;
    around_.link.linkAlive = true;
    beginPoint();
}

void GuidedRun::beginPoint() {
    around_.showPoint(progress_.currentBox);
    progress_.contactNeeded = around_.session.dobamer;
    progress_.contactCount = 0;
    around_.link.blinkHold = false;
    controls_.readings.clear();
    around_.link.startActivityBlink();
    nextPoint_.stop(); // of a single point that was skipped as a run starts
    tick_.start();
    enter(State::Measuring);
    showState(PointState::Waiting);
}

// The peak and the lost ticks of the skipped point stay: only losing contact ends them.
void GuidedRun::skipPoint() {
    if (state_ != State::Measuring)
        return;
    attempt([&] {
        currentBox().text = "0";
        currentBox().backColour = BackColour::Green;
    });
    controls_.bar.show(0);
    holdBlinkAndTimers();
    enter(State::BetweenPoints);
    showState(PointState::Waiting);
    play(names::twinklesSound);
    if (!notice("Data uložena"))
        return;
    around_.link.clearBuffer();
    nextPoint_.start();
}

void GuidedRun::stop() {
    around_.link.stop();
    leave(); // between two points as well: nothing may be measured on a closed port
    attempt([&] { currentBox().backColour = BackColour::White; });
    controls_.start.enabled = true;
    controls_.stop.enabled = false;
    around_.link.guidedRunStoppable = false;
    showState(PointState::Idle);
    play(names::twinklesSound);
    notice(t(around_.session, "t37"));
}

void GuidedRun::leave() {
    ++turn_;
    holdBlinkAndTimers();
    enter(State::Idle);
}

void GuidedRun::holdBlinkAndTimers() {
    around_.link.blinkHold = true;
    tick_.stop();
    nextPoint_.stop();
}

// ---- Measuring a point

void GuidedRun::onTick() {
    attempt([&] {
        PointBox& box = currentBox();
        box.backColour = box.backColour == BackColour::Red ? BackColour::Green : BackColour::Red;
    });
    if (progress_.contactCount > around_.session.dobamer)
        accept();
    else if (hasContact(around_.session, around_.link.currentReading))
        onContact();
    else
        onNoContact();
}

void GuidedRun::onContact() {
    const std::int16_t reading = around_.link.currentReading;
    const auto calibrated = [&] { return calibratedValue(around_.session, reading); };
    const auto shown = [&] { return displayValue(around_.session, calibrated()); };
    if (wasOff_) {
        missedTicks_ = 0;
        wasOff_ = false;
        play(names::pipSound);
    }
    attempt([&] { currentBox().text = decimalText(std::int64_t{shown()}); });
    attempt([&] { controls_.bar.show(shown()); });
    controls_.readings.add({.text = decimalText(std::int64_t{reading})});
    attempt([&] { showLiveValue(liveValueText(calibrated())); });
    bool fast = false; // nor is a box without a number
    attempt([&] { fast = numberOfDecimalText(currentBox().text.get()) > fastBoxValue; });
    std::int16_t count = progress_.contactCount;
    raise(count, fast ? 2 : 1);
    progress_.contactCount = count;
    attempt([&] { peak_ = std::max(peak_, peakOfLiveText(controls_.liveValue.caption.get())); });
    attempt([&] { currentBox().backColour = BackColour::Yellow; });
    showState(PointState::Contact);
}

void GuidedRun::onNoContact() {
    raise(missedTicks_, 1);
    if (missedTicks_ <= forgivenTicks)
        return;
    wasOff_ = true;
    controls_.readings.clear();
    attempt([&] { currentBox().text = ""; });
    controls_.bar.show(0);
    progress_.contactCount = 0;
    peak_ = 0;
    showLiveValue("0");
    showState(PointState::Waiting);
}

// ---- Accepting a point

void GuidedRun::accept() {
    attempt([&] { currentBox().backColour = BackColour::Yellow; });
    enter(State::BetweenPoints);
    showState(PointState::Done);
    if (runningSequence_ && progress_.currentBox <= lastPlace)
        acceptPeak();
    else
        acceptLastValue();
}

void GuidedRun::showPeak() {
    attempt([&] {
        currentBox().text = decimalText(std::int64_t{displayValue(around_.session, peak_)});
    });
}

void GuidedRun::showLastValueOnBar() {
    attempt([&] {
        const double live = numberOfDecimalText(controls_.liveValue.caption.get());
        controls_.bar.show(displayValue(around_.session, live));
    });
}

void GuidedRun::acceptPeak() {
    around_.link.blinkHold = true;
    missedTicks_ = 0;
    showPeak();
    // The live value's calibrated units, which seldom fit a bar of chart units.
    attempt([&] {
        controls_.bar.show(roundToInt32(numberOfDecimalText(controls_.liveValue.caption.get())));
    });
    around_.link.clearBuffer();
    if (!playToItsEnd(names::dingdongSound))
        return;
    if (progress_.currentBox == lastPlace)
        finishRun();
    else
        goOnAfterNotice();
}

void GuidedRun::finishRun() {
    enter(State::Finished);
    showPeak();
    showLastValueOnBar();
    play(names::twinklesSound);
    if (!notice(t(around_.session, "t40")))
        return;
    around_.link.blinkHold = true;
    around_.link.clearBuffer();
    around_.link.stopParser();
    tick_.stop();
}

void GuidedRun::goOnAfterNotice() {
    if (!notice(t(around_.session, "t40")))
        return;
    controls_.readings.clear();
    showLiveValue("0");
    controls_.bar.show(0);
    progress_.contactCount = 0;
    peak_ = 0;
    tick_.stop();
    nextPoint_.start();
}

void GuidedRun::acceptLastValue() {
    attempt([&] {
        const double live = numberOfDecimalText(controls_.liveValue.caption.get());
        currentBox().text = decimalText(std::int64_t{displayValue(around_.session, live)});
    });
    showLastValueOnBar();
    if (!playToItsEnd(names::twinklesSound) || !notice(t(around_.session, "t40")))
        return;
    around_.link.blinkHold = true;
    tick_.stop();
    enter(State::Idle);
}

void GuidedRun::onNextPoint() {
    attempt([&] { progress_.currentBox = nextRunPlace(progress_.currentBox); });
    showLiveValue("0");
    beginPoint();
}

} // namespace vorna
