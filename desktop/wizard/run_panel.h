// What the run shows of the current point: how long still to hold and its value, its state, the
// live value with its bar, the readings; and the button that begins the point afresh.
#pragma once

#include <QWidget>

namespace vorna {

class Binder;
class ReadingCurve;
struct RunControls;

class RunPanel final : public QWidget {
public:
    RunPanel(Binder& binder, RunControls& run);
    // A low window has room for the readings' figures, but not for their curve.
    void setLow(bool low);

private:
    QWidget* makeValueCard(Binder& binder);
    QWidget* makeReadings(Binder& binder);
    QWidget* makeFoot(Binder& binder);

    RunControls& run_;
    QWidget* readings_ = nullptr;
    ReadingCurve* curve_ = nullptr;
};

} // namespace vorna
