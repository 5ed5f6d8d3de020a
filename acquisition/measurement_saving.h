// Saving a measurement of the guided run into the client's folder, and copying a stored one to the
// clipboard.
#pragma once

#include "acquisition/measurement_record.h"
#include "core/session.h"
#include "platform/platform.h"

#include <array>
#include <string>

namespace vorna {

struct FinishedMeasurement {
    std::string setLabel;                 // the text of the set chooser
    std::array<std::string, 25> boxTexts; // by run place 1 to 24; empty or no number: not measured
    int sada = 0;                         // the set that was run
    int kindIndex = 0;                    // the set chooser's position, from 0
    std::string clientLabel;              // surname "_" first name
};

struct SavedMeasurement {
    std::string name;
    bool stored = false; // whether the file was written
};

// Writes the measurement under its name into the current client's folder, over one of that name.
// What cannot be converted stays 0; a file that cannot be written is passed over without a word.
SavedMeasurement writeMeasurement(Session& session, const FinishedMeasurement& measurement,
                                  LocalTime now);

// The text that a copy puts on the clipboard: the date and name up to "~", then the 24 stored
// values in slot order, each behind CR LF.
std::string measurementClipboardText(std::string_view name, const MeasurementRecord& record);

// Copies a measurement of the current client and says "Ready".
void copyMeasurementToClipboard(Session& session, Platform& platform, std::string_view name);

} // namespace vorna
