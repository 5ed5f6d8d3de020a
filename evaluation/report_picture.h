// A chart as a report takes it: two seconds after it was drawn its picture is due, which is saved
// under the report's key.
#pragma once

#include "core/window.h"
#include "evaluation/evaluation_state.h"
#include "platform/event_loop.h"

namespace vorna {

class ReportPicture {
public:
    // Takes over the chart's render-complete event; outside a report nothing follows. `due` saves
    // the picture and closes the window. All that is passed must outlive it.
    ReportPicture(EvaluationContext& context, ChartControl& chart, Handler due);

    // The path of the picture, drawn at the size at which a report shows it. Failure when it
    // cannot be written.
    std::string save();
    void stop() { due_.stop(); }

private:
    EvaluationContext& context_;
    ChartControl& chart_;
    Timer due_;
};

} // namespace vorna
