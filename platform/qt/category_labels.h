// The texts below the axis of a column chart: in which type and lines they fit side by side.
#pragma once

#include "platform/qt/chart_text.h"

#include <QString>

#include <vector>

namespace vorna {

struct LabelPlan {
    std::vector<std::vector<LabelLine>> lines; // of each label; a label may have none
    std::vector<bool> cut;                     // whether a label lost some of its text
    double size = 0;                           // of the main type at scale 1
    double bracketSize = 0;                    // of what stands in brackets
    std::size_t rows = 0;                      // lines of the tallest label
};

struct LabelRoom {
    int largest = 14; // wanted type size at scale 1
    double width = 0; // for one label, logical pixels
};

// All labels in one type: the largest, down to 11, of which none needs more than two lines. Where
// that is not enough, words also break behind slashes and hyphens into up to three lines, down to
// 9, and what is too long then is cut.
LabelPlan planLabels(const std::vector<QString>& labels, const LabelRoom& room, ChartFonts& fonts);

// The types of a plan.
LabelFonts labelFonts(const LabelPlan& plan, ChartFonts& fonts);

} // namespace vorna
