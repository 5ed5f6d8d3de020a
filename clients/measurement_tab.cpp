#include "clients/measurement_tab.h"

#include "acquisition/measurement_name.h"
#include "clients/client_record.h"
#include "core/file_names.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

#include <algorithm>

namespace vorna {
namespace {

// The names in the current client's folder that match, the last one first.
std::vector<std::string> newestFirst(const Session& session, std::string_view pattern) {
    std::vector<std::string> names;
    attempt(
        [&] { names = listFiles(clientFolder(session, session.currentClientFolder), pattern); });
    std::reverse(names.begin(), names.end());
    return names;
}

} // namespace

MeasurementTab::MeasurementTab(Window& window)
    : list{window, "ListView1"}, deleteMeasurement{window, "Command19"},
      copyMeasurement{window, "Command43"}, documents{window, "List4"}, todaysRecommendation{
                                                                            window, "Command26"} {}

ListRow measurementRow(std::string_view fileName) {
    return {.text = std::string(withoutLastCharacters(vratdatum(fileName), 3)),
            .sub = {vrattyp(fileName), vratuz(fileName), vratapmtcm(fileName)},
            .tag = std::string(fileName)};
}

void fillMeasurementList(const Session& session, MeasurementTab& tab) {
    std::vector<ListRow> rows;
    for (const std::string& name : newestFirst(session, names::measurementPattern))
        rows.push_back(measurementRow(name));
    tab.list.setRows(std::move(rows));
}

void fillDocumentList(const Session& session, MeasurementTab& tab) {
    std::vector<ListRow> rows;
    for (std::string& name : newestFirst(session, names::recommendationPattern))
        rows.push_back({.text = std::move(name)});
    tab.documents.setRows(std::move(rows));
}

} // namespace vorna
