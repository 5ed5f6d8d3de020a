// The reports: HTML pages in the data root that the default viewer shows and prints. The main
// report joins the charts of the checked measurements with the client's documents and the chosen
// point pictures; the picture report holds the latter alone.
#pragma once

#include "clients/knowledge_library.h"
#include "clients/measurement_tab.h"
#include "core/window.h"
#include "evaluation/evaluation_state.h"

#include <functional>
#include <string>

namespace vorna {

struct PrintPanel {
    explicit PrintPanel(Window& window);

    ControlArray<CheckBox> charts; // by the index of their chart button; there is no 4
    CheckBox history;              // attach the anamnesis
    CheckBox recommendation;       // attach the newest recommendation document
    CheckBox pictures;             // attach the chosen point pictures
    Button print;
};

inline constexpr int measurementsOfReport = 3;

struct ReportContext {
    EvaluationContext& evaluation;
    MeasurementTab& measurements;
    const LibraryTab& library;
    const PrintPanel& panel;
    // Presses a chart button, which comes back when its window has saved its picture and closed.
    std::function<void(int button)> pressChart;
};

// The table of the chosen points' pictures. Failure when a point's pathway or description cannot be
// looked up.
std::string pridatOBR(ReportContext& context);

// Writes the main report and opens it. More than three checked measurements are refused with a
// message; ReportChartIndex then keeps their number, so that the next chart opened from elsewhere
// than the list behaves as in a report. Failure when a document cannot be converted or the page
// cannot be written.
void reportMain(ReportContext& context);

// Writes the picture report and opens it. Failure when it cannot be written.
void reportPictures(ReportContext& context);

} // namespace vorna
