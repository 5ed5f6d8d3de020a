// A guided run at the desk, for its tests.
#pragma once

#include "acquisition/measurement_wizard.h"
#include "tests/support/probe_desk.h"

#include <gtest/gtest.h>

namespace vorna {

inline constexpr int tickMs = 200;

// A wizard on the desk, whose reading the test sets from tick to tick.
class GuidedRunTest : public ::testing::Test {
protected:
    void SetUp() override {
        wizard.load();
        desk.sounds.take();
    }

    void touch(int reading, int ticks) {
        desk.link.currentReading = static_cast<std::int16_t>(reading);
        desk.pass(ticks * tickMs);
    }
    void lift(int ticks) { touch(0, ticks); }
    // The tick that accepts, the sound, the notice and the pause: the next point begins.
    void goOn() { desk.pass(tickMs + 1000 + 2000 + 500); }

    PointBox& box(int place) { return run.box(place); }
    int count() { return run.progress.contactCount; }
    int current() { return run.progress.currentBox; }
    std::vector<std::string> readings() {
        std::vector<std::string> texts;
        for (const ListRow& row : run.readings.rows())
            texts.push_back(row.text);
        return texts;
    }

    ProbeDesk desk;
    WizardContext context{desk.session, desk.platform, desk.link, [] { return "Žák_Jan"; }, [] {}};
    MeasurementWizard wizard{context, setP};
    RunControls& run = wizard.run;
};

} // namespace vorna
