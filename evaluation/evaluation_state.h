// The process-wide state of evaluation, and what an evaluation needs of its surroundings. There is
// one state in a process; every value is overwritten by the next evaluation that sets it.
#pragma once

#include "acquisition/measurement_record.h"
#include "core/session.h"
#include "core/window.h"
#include "platform/platform.h"

#include <cstdint>
#include <functional>
#include <string>

namespace vorna {

struct ChartWindow;

struct EvaluationState {
    std::int16_t chartType = 0;   // chart id: 1, 2, 3, 4, 6 or 7
    std::int16_t CurrentKind = 0; // 1 P, 2 T, 3 B, 4 E, as the builder that ran last mapped it
    std::string apmTherapyText;   // the evaluation text; empty until a builder writes it
    // Written by the element chart with the record as read, and blanked by the element pies.
    MeasurementRecord CurrentRecord;
    std::string ClientLabel;        // the client as one word
    std::string NewMeasurementName; // a suggested name; nothing depends on it
    // Above 0 while a report drives the chart buttons: chart windows then save their picture
    // under reportChartKey and close themselves.
    std::int16_t ReportChartIndex = 0;
    std::string reportChartKey;
};

// What the evaluation reads and reaches. All of it outlives the evaluation.
struct EvaluationContext {
    Session& session;
    EvaluationState& state;
    Platform& platform;
    WindowHost& windows;
    const ListView& clientList;      // of the main window; the selected row names the client
    const ListView& measurementList; // of the main window; the selected row is evaluated
    // Opens the recommended solution for the selected problem row of a chart window.
    std::function<void(ChartWindow&)> recommend;
};

// The selected row of the measurement list. Failure when none is selected.
const ListRow& selectedMeasurement(const EvaluationContext& context);

// The columns of the measurement list behind the date.
inline constexpr std::size_t kindColumn = 1;
inline constexpr std::size_t practitionerColumn = 2;
inline constexpr std::size_t modeColumn = 3;

// The file of the selected row in the selected client's folder; an empty path when the row's tag
// is no file name.
std::filesystem::path selectedMeasurementPath(const EvaluationContext& context);

// The record of a measurement's file, which is made when it does not exist; zeros when it can be
// neither read nor made. A measurement that is gone shows a flat chart and no message.
MeasurementRecord readOrZeros(const std::filesystem::path& path);

// Sets ClientLabel from the selected client and NewMeasurementName from it, the kind and the time.
// Without a selected client ClientLabel stays as it was.
void nameClient(EvaluationContext& context, int kind);

} // namespace vorna
