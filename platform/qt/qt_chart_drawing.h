// Pictures of charts through QImage (BMP with 24 bits a pixel, PNG) and QSvgGenerator.
#pragma once

#include "platform/chart_drawing.h"

namespace vorna {

// Needs a QGuiApplication for its fonts; Qt's offscreen platform will do.
class QtChartDrawing final : public ChartDrawing {
public:
    void draw(std::string_view document, int chartType, PictureSize size,
              const std::filesystem::path& path) override;
};

} // namespace vorna
