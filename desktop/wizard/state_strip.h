// The strip that tells how the point stands, in words, by a sign and by its ground. Of its four
// texts the one is seen that the run shows.
#pragma once

#include "desktop/fitted_label.h"

#include <QWidget>

namespace vorna {

class Binder;
struct RunControls;

class StateStrip final : public QWidget {
public:
    StateStrip(Binder& binder, RunControls& run);
};

} // namespace vorna
