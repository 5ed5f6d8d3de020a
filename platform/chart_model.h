// What a chart document says, as plain records. The document is text in the form of XML but
// pasted together without escaping, so the reader takes it as it stands:
//
//   document  = { text | tag }
//   tag       = "<" [ "/" ] name { attribute | anything } ( ">" | before the next "<" )
//   attribute = name blanks "=" blanks ( "'" text "'" | '"' text '"' | text without blanks )
//
// Names of tags and attributes fold case. Of equal attributes in one tag the first holds. No blank
// is needed between attributes. An apostrophe inside a text ends the text; what then stands about
// up to the next attribute is passed over. References such as "&amp;" are not decoded.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

enum class ChartKind { columns, pie };

struct ChartColour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const ChartColour&) const = default;
};

// How the document wants one kind of text; what it does not say stays empty.
struct ChartTextStyle {
    std::string family;
    std::optional<int> size; // logical pixels at scale 1, 6 to 48
    std::optional<ChartColour> colour;
    std::optional<ChartColour> ground;
};

// One bar of a series or one slice of a pie.
struct ChartValue {
    double value = 0; // -1e9 to 1e9; 0 where the document has no number
    std::string label;
    std::string toolText;
    std::optional<std::string> displayValue; // stands in place of the number
    std::optional<bool> shown;               // empty: as ChartModel::showValues
    std::optional<ChartColour> colour;
    bool sliced = false; // pulled out of the pie
};

struct ChartSeries {
    std::string name;
    std::optional<ChartColour> colour;
    int alpha = 100; // percent, 0 to 100
    std::vector<ChartValue> values;
};

// A vertical line between two categories.
struct ChartSeparator {
    std::size_t position = 0; // number of categories on its left
    ChartColour colour;
    int thickness = 1; // logical pixels at scale 1, 1 to 10
    std::string label; // empty: a plain line
};

// A horizontal line, or with `end` a zone from `start` to `end` in either order.
struct ChartTrendLine {
    double start = 0;
    std::optional<double> end;
    bool dashed = false;
    std::string text;
    ChartColour colour;
};

struct ChartModel {
    ChartKind kind = ChartKind::columns;
    std::string caption;
    std::string subcaption;

    double axisMaximum = 200; // above 0
    int divisionLines = 3;    // grid lines between 0 and the maximum, 0 to 20
    bool showValues = true;
    bool showLabels = true;
    bool showPercentages = false;
    bool showZeroSlices = true;
    int decimals = 0;         // of percentages, 0 to 4
    double startAngle = 0;    // degrees, counter-clockwise from three o'clock
    int slicingDistance = 12; // logical pixels at scale 1, 0 to 100

    std::string baseFamily;
    int labelSize = 14; // of the texts outside the canvas, logical pixels at scale 1, 6 to 48
    std::optional<ChartColour> plotBorder;

    std::vector<std::string> categories;
    std::vector<ChartSeparator> separators; // by ascending position
    std::vector<ChartSeries> series;        // columns
    std::vector<ChartValue> slices;         // pie
    std::vector<ChartTrendLine> trendLines;

    ChartTextStyle valueStyle;
    ChartTextStyle captionStyle;
    ChartTextStyle toolTextStyle;
};

// Reads a document for chart type 4 (pie) or any other (columns). Takes any bytes, never fails, in
// time and memory linear in their number: what makes no sense is left out, each text is cut at
// 512 bytes, and of overlong lists the front is kept (400 categories, separators or values of a
// series, 100 slices, 16 series, 32 trend lines).
ChartModel parseChartDocument(std::string_view xml, int chartType);

} // namespace vorna
