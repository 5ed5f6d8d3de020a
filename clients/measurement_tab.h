// The client's files on the third tab: the list of measurements, made from the names of the files
// alone, and the list of recommendation documents.
#pragma once

#include "core/session.h"
#include "core/window.h"

#include <string_view>

namespace vorna {

struct MeasurementTab {
    explicit MeasurementTab(Window& window);

    ListView list; // the tag of a row is the file's name
    Button deleteMeasurement;
    Button copyMeasurement;
    ListView documents;
    Button todaysRecommendation;
};

// One row of the measurement list: date and time without seconds, then kind letter, practitioner
// and mode letter; the tag is the file's name.
ListRow measurementRow(std::string_view fileName);

// The measurements of the current client, the newest on top; none when there is no client.
void fillMeasurementList(const Session& session, MeasurementTab& tab);

// The recommendation documents of the current client, the newest on top.
void fillDocumentList(const Session& session, MeasurementTab& tab);

} // namespace vorna
