// The chart document: one text in the dialect of the chart control, built by appending. Spelling,
// mixed quotes, doubled blanks and repeated attributes are the control's format and stand as they
// are; nothing is escaped.
//
//   document = head categories dataset* trendlines style      (columns, chart type 11)
//            | head slice* style                              (pie, chart type 4)
#pragma once

#include "core/window.h"
#include "evaluation/evaluation_state.h"

#include <string>
#include <string_view>

namespace vorna {

inline constexpr std::int32_t columnChart = 11;
inline constexpr std::int32_t pieChart = 4;

// "client, row, kind practitioner" of the selected measurement; the kind label brings its own
// comma. Empty parts where nothing is selected.
std::string subcaption(const EvaluationContext& context, const std::string& kindLabel);

// The label of CurrentKind 1 to 3; empty for any other.
std::string kindLabel(const EvaluationContext& context);
// With the fourth kind, as charts 2 and 3 have it.
std::string kindLabelOfFour(const EvaluationContext& context);
// With everything above 2 told as the third kind.
std::string kindLabelOfThree(const EvaluationContext& context);

// The head of a column chart: 1, 2, 3 or 6.
std::string columnHead(int chart, std::string_view subcaption, std::string_view title);
std::string energyPieHead(std::string_view subcaption, std::string_view title);
std::string sideElementPieHead(std::string_view title);
std::string quadrantPieHead(std::string_view title);
std::string elementPieHead(std::string_view title);

inline constexpr std::string_view openCategories = " <categories >";
inline constexpr std::string_view closeCategories = "</categories>";
inline constexpr std::string_view strongSeparator = "<vLine color='FF5904' thickness='2'/>";
inline constexpr std::string_view thinSeparator = "<vLine color='333333' thickness='1'/>";
inline constexpr std::string_view closeDataset = "</dataset>";

std::string category(std::string_view text);
// A separator with a label over it.
std::string labelledSeparator(std::string_view colour, std::string_view text);
// `rest` is all behind the series name's closing quote.
std::string openDataset(std::string_view seriesName, std::string_view rest);
// Mean line and band with their opening and closing.
std::string trendLines(std::int32_t mean, std::int64_t low, std::int64_t high);
// The style block, which also closes the document. The title is 16 high, 14 in the
// quadrant pie and the side pies.
std::string styleBlock(int titleSize = 16);

// Hands the document to the control and draws it.
void renderDocument(ChartControl& control, const std::string& document);
// Names the chart files' folder and the kind of chart.
void prepareControl(const Session& session, ChartControl& control, std::int32_t chartType);

} // namespace vorna
