// The texts round a pie: what each slice's label says, and how they are set so that they leave the
// pie its room.
#pragma once

#include "platform/chart_model.h"
#include "platform/qt/chart_text.h"

#include <QStringList>

#include <vector>

namespace vorna {

// The label of each slice, empty where it has none: the display value if there is one, else label
// and percentage or number as the document wants them.
std::vector<QString> pieLabelTexts(const ChartModel& model);

// One way of setting the labels.
struct PieLabelSetting {
    double size = 12; // at scale 1
    int lines = 1;    // most lines of one label
};

// The texts in at most `lines` lines each, as narrow as that allows.
std::vector<QStringList> setPieLabels(const std::vector<QString>& texts,
                                      const PieLabelSetting& setting, ChartFonts& fonts);

} // namespace vorna
