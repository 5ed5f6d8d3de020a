#include "clients/measurement_list.h"

#include "acquisition/measurement_name.h"
#include "core/file_names.h"
#include "platform/files.h"
#include "platform/text.h"

#include <algorithm>

namespace vorna {

ListRow measurementRow(std::string_view fileName) {
    return {.text = std::string(withoutLastCharacters(vratdatum(fileName), 3)),
            .sub = {vrattyp(fileName), vratuz(fileName), vratapmtcm(fileName)},
            .tag = std::string(fileName)};
}

std::vector<ListRow> measurementRows(const Session& session) {
    std::vector<ListRow> rows;
    if (isForbiddenFileName(session.currentClientFolder))
        return rows;
    const std::vector<std::string> names =
        listFiles(session.clientsFolder / session.currentClientFolder, names::measurementPattern);
    std::transform(names.rbegin(), names.rend(), std::back_inserter(rows),
                   [](const std::string& name) { return measurementRow(name); });
    return rows;
}

} // namespace vorna
