// The guided run: point after point under a tick of 200 ms, told by colour and sound. The probe's
// reading stands for a point once it has touched long enough; its peak counts. What the run shows
// and where its actions are is a group of the wizard's controls.
#pragma once

#include "acquisition/bounded_bar.h"
#include "acquisition/device_link.h"
#include "acquisition/measurement_record.h"
#include "core/session.h"
#include "core/window.h"
#include "platform/event_loop.h"
#include "platform/platform.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>

namespace vorna {

// The box of one point; its index is the run place, 1 to 24.
class PointBox final : public TextBox {
public:
    using TextBox::TextBox;
    // The user clicked into the box. Focus that the run gives is no click.
    Handler clicked;
};

enum class PointState : std::uint8_t {
    Idle,    // nothing is measured
    Waiting, // for the probe, or a skipped point gives way to the next
    Contact, // the probe touches and must be held
    Done,    // the point is measured; the next one or the end follows
};

// How the current point stands, for the picture of how long the probe must still be held.
class PointProgress final : public Control {
public:
    using Control::Control;

    Property<std::int16_t> currentBox{*this, 0}; // run place; a start index beyond 24 stands too
    Property<std::int16_t> contactCount{*this, 0};
    Property<std::int16_t> contactNeeded{*this, 0}; // the point is done once the count is above it
    Property<PointState> state{*this, PointState::Idle};

    // Which part of the holding is over, 0 to 1.
    [[nodiscard]] double heldShare() const;
};

// The controls that the run works with.
struct RunControls {
    explicit RunControls(Window& window);

    Label startIndexLabel;
    TextBox startIndex;
    Button start;
    Button stop;
    ControlArray<PointBox> boxes;
    PointProgress progress;
    Label ready; // of these four the one that tells the point's state is visible
    Label applyProbe;
    Label holdProbe;
    Label pointMeasured;
    BoundedBar bar; // chart units
    Label liveValueLabel;
    Label liveValue; // calibrated device units
    Label readingsLabel;
    ListView readings; // device units, of the current point
    Label skipHint;
    Button preparePoint;

    // Failure when there is no such box.
    [[nodiscard]] PointBox& box(int place) const;
    [[nodiscard]] std::array<std::string, slotCount + 1> boxTexts() const; // [0] unused
    // How many points are measured or skipped, the one under way not counted.
    [[nodiscard]] int boxesDone() const;
};

// The run place after one: 1, 13, 2, 14 and so on to 12, 24; 13 follows 24.
std::int16_t nextRunPlace(std::int16_t place);

class GuidedRun {
public:
    struct Surroundings {
        Session& session;
        Platform& platform;
        DeviceLink& link;
        // Pictures and texts of a point; without any where there is no such box.
        std::function<void(int box)> showPoint;
        // Told as a run or a single point begins and as it is over or stopped.
        std::function<void(bool underWay)> underWayChanged = {};
    };

    // All that is passed must outlive it.
    GuidedRun(RunControls& controls, Surroundings surroundings);
    GuidedRun(const GuidedRun&) = delete;
    GuidedRun& operator=(const GuidedRun&) = delete;
    ~GuidedRun();

    // Makes the controls ready as the window comes up: idle, at box 1.
    void open();
    // A run from the start index on. A port that does not open is told, and the run goes on.
    void start();
    // The current point from its beginning. Without a start before it, one point alone is measured,
    // and its last value counts instead of the peak. Without effect between two points and after
    // the last one.
    void preparePoint();
    // The current point counts as 0, whichever box was pressed in; the next one follows, also after
    // box 24. Without effect unless a point is being measured.
    void skipPoint();
    // Closes the port and says so.
    void stop();
    [[nodiscard]] bool stoppable() const { return controls_.stop.enabled; }
    // Box 24 has ended the run, which was not stopped since.
    [[nodiscard]] bool finished() const { return state_ == State::Finished; }
    // Ends the timers and holds the blink, as the window closes. The port stays as it is.
    void leave();

private:
    enum class State : std::uint8_t {
        Idle,
        Measuring,     // the tick runs
        BetweenPoints, // a point was accepted or skipped; the next one or the end follows
        Finished,      // box 24 was accepted, and the port is still open
    };

    void enter(State state);
    void takeStartIndex();
    void onTick();
    void onContact();
    void onNoContact();
    void accept();
    void acceptPeak();
    void finishRun();
    void goOnAfterNotice();
    void acceptLastValue();
    void onNextPoint();
    void beginPoint();
    void showState(PointState state);
    void showLiveValue(const std::string& text);
    void showPeak();
    void showLastValueOnBar();
    void holdBlinkAndTimers();
    void play(std::string_view sound);
    // Both take time, in which the run can be stopped, and started again: false then, and what
    // stands behind them belongs to a run that is over.
    bool playToItsEnd(std::string_view sound);
    bool notice(const std::string& text);
    [[nodiscard]] PointBox& currentBox() const;

    RunControls& controls_;
    Surroundings around_;
    PointProgress& progress_;

    State state_ = State::Idle;
    std::uint32_t turn_ = 0;       // another one after each start, stop and leave
    bool runningSequence_ = false; // from the first start on
    std::int16_t missedTicks_ = 0; // neither contact alone nor a start takes them back
    bool wasOff_ = false;          // the next contact is heard
    std::int32_t peak_ = 0;        // calibrated device units

    Timer tick_;
    Timer nextPoint_;
};

} // namespace vorna
