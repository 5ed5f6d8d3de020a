// The picture of a chart document on disk. The real drawing is platform/qt/qt_chart_drawing.h.
#pragma once

#include <filesystem>
#include <string_view>

namespace vorna {

// Logical pixels; the default is the size that a report page gives each chart.
struct PictureSize {
    int width = 745;
    int height = 320;
};

class ChartDrawing {
public:
    virtual ~ChartDrawing() = default;

    // Draws the document (chartType 11: columns, 4: pie) on white paper and writes the picture,
    // replacing an older one. The extension of `path` says which: .bmp, .png or .svg, in any case.
    // Never fails on the document's account: what cannot be read is left out of the picture.
    // Failure for any other extension, for a size outside 1 to 16384 or of more than 64 million
    // pixels, and when the file cannot be written.
    virtual void draw(std::string_view document, int chartType, PictureSize size,
                      const std::filesystem::path& path) = 0;
};

} // namespace vorna
