#include "acquisition/measurement_saving.h"

#include "acquisition/measurement_name.h"
#include "acquisition/measurement_sets.h"
#include "core/number.h"
#include "platform/failure.h"
#include "platform/text.h"

#include <utility>

namespace vorna {

SavedMeasurement writeMeasurement(Session& session, const FinishedMeasurement& measurement,
                                  LocalTime now) {
    std::string name =
        formatMeasurementName({.time = now,
                               .kindLetter = kindLetterOfSet(measurement.kindIndex + 1),
                               .clientLabel = measurement.clientLabel,
                               .practitioner = session.userName,
                               .modeLetter = modeLetter(session.mode)});
    MeasurementRecord record{.setLabel = measurement.setLabel};
    for (int box = 1; box <= slotCount; ++box) {
        attempt([&] {
            const std::size_t slot = slotOfText(
                lookupSetPoint(session, box, measurement.sada, PointField::Slot, SetKey::RunPlace));
            const double displayValue =
                numberOfDecimalText(measurement.boxTexts[static_cast<std::size_t>(box)]);
            record.values[slot] = roundToInt32(displayValue * double(session.koef));
        });
    }
    // The user sees nothing when the file cannot be written: the save is silent as a whole.
    const bool stored =
        attempt([&] { writeMeasurementFile(currentClientFile(session, name), record); });
    return {.name = std::move(name), .stored = stored};
}

std::string measurementClipboardText(std::string_view name, const MeasurementRecord& record) {
    const std::string_view rest = name.substr(firstCharacters(name, 8).size());
    std::string text = std::string(characters(name, 1, 6)) + " " +
                       std::string(characters(name, 7, 2)) + ":" +
                       std::string(rest.substr(0, rest.find('~')));
    for (std::size_t k = 1; k <= slotCount; ++k)
        text += "\r\n" + decimalText(std::int64_t{record.values[k]});
    return text;
}

void copyMeasurementToClipboard(Session& session, Platform& platform, std::string_view name) {
    const MeasurementRecord record = readMeasurement(currentClientFile(session, name));
    platform.clipboard.setText(measurementClipboardText(name, record));
    platform.dialogs.message("Ready");
}

} // namespace vorna
