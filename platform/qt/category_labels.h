// The texts below the axis of a column chart: in which type and lines they fit side by side.
#pragma once

#include "platform/qt/chart_text.h"

#include <QString>

#include <vector>

namespace vorna {

struct PlannedLabel {
    std::vector<LabelLine> lines; // none for an empty label
    double size = 0;              // of the main type at scale 1
    bool cut = false;             // some of the text was lost
};

struct LabelPlan {
    std::vector<PlannedLabel> labels;
    double size = 0;      // the largest in use
    std::size_t rows = 0; // lines of the tallest label
};

struct LabelRoom {
    int largest = 14; // wanted type size at scale 1
    double width = 0; // for one label, logical pixels
};

// The labels in one type: the largest, down to 11, of which none needs more than two lines; a few
// that are too long, or would alone need the second line, may be smaller than the rest. Where that
// is not enough, words also break behind slashes and hyphens into up to three lines, down to 9, and
// what is too long then is cut.
LabelPlan planLabels(const std::vector<QString>& labels, const LabelRoom& room, ChartFonts& fonts);

// The types of a label of that size: what stands in brackets is set smaller.
LabelFonts labelFonts(double size, ChartFonts& fonts);

} // namespace vorna
