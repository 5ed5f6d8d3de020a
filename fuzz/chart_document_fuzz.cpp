// Any bytes as a chart document, read as columns and as a pie.
#include "platform/chart_model.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view document(reinterpret_cast<const char*>(data), size);
    for (const int chartType : {11, 4}) {
        const vorna::ChartModel model = vorna::parseChartDocument(document, chartType);
        // What the painter relies on.
        if (!(model.axisMaximum > 0) || model.categories.size() > 400 || model.slices.size() > 100)
            std::abort();
    }
    return 0;
}
