// The probe's side of the main window: the one link of the process with all that stands on it, the
// guided run behind the kind buttons, the free measurement, and the probe's group of the settings.
#pragma once

#include "acquisition/calibration.h"
#include "acquisition/device_link.h"
#include "acquisition/free_measurement.h"
#include "acquisition/measurement_wizard.h"
#include "application/main_window.h"
#include "platform/device_search.h"
#include "platform/serial_line.h"

namespace vorna {

struct ProbeSeams {
    SerialLine& line;
    DeviceSearch& search;
};

class Measuring {
public:
    // Binds the controls. The port is closed when it goes. All that is passed must outlive it.
    Measuring(MainWindow& window, EvaluationContext& context, ProbeSeams probe);
    Measuring(const Measuring&) = delete;
    Measuring& operator=(const Measuring&) = delete;
    ~Measuring(); // the controls are bound to nothing then

    [[nodiscard]] const DeviceLink& link() const { return link_; }

private:
    MainWindow& window_;
    DeviceLink link_;
    FreeMeasurement freeMeasurement_;
    Calibration calibration_;
    WizardContext wizard_;
};

} // namespace vorna
