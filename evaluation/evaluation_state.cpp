#include "evaluation/evaluation_state.h"

#include "acquisition/measurement_name.h"
#include "platform/failure.h"

namespace vorna {

const ListRow& selectedMeasurement(const EvaluationContext& context) {
    const ListRow* const row = context.measurementList.selectedRow();
    if (row == nullptr)
        throw Failure("no measurement is selected");
    return *row;
}

std::filesystem::path selectedMeasurementPath(const EvaluationContext& context) {
    std::filesystem::path path;
    attempt([&] { path = currentClientFile(context.session, selectedMeasurement(context).tag); });
    return path;
}

MeasurementRecord readOrZeros(const std::filesystem::path& path) {
    MeasurementRecord record;
    attempt([&] { record = readMeasurement(path); });
    return record;
}

void nameClient(EvaluationContext& context, int kind) {
    EvaluationState& state = context.state;
    if (const ListRow* const client = context.clientList.selectedRow())
        state.ClientLabel = clientLabel(client->text, client->subItem(1));
    state.NewMeasurementName = formatTime(context.platform.clock.now(), "yyMMddHHmmss") +
                               (kind == setOfKindLetter("P") ? "_P_" : "_T_") + state.ClientLabel +
                               ".daf";
}

} // namespace vorna
