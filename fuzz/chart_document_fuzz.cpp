// Any bytes as a chart document, read as columns and as a pie, laid out and painted small. Nothing
// leaves the drawing.
#include "fuzz/support.h"
#include "platform/chart_model.h"
#include "platform/encoding.h"
#include "platform/qt/chart_painter.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

namespace {

using namespace vorna;
using fuzz::require;

// Qt's fonts, without a display.
struct Fonts {
    bool chosen = qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    char name[20] = "chart_document_fuzz";
    char* arguments[2] = {name, nullptr};
    QGuiApplication application{count, arguments};
};

constexpr QRect drawing(20, 20, 220, 160);
constexpr QRgb untouched = 0xffff00ff;

void checkModel(const ChartModel& model) {
    require(model.axisMaximum > 0 && model.categories.size() <= 400 && model.slices.size() <= 100);
    require(model.series.size() <= 16 && model.trendLines.size() <= 32);
}

// With a hair's breadth for the reckoning.
bool isInside(const QRectF& rect) {
    constexpr double hair = 0.01;
    return rect.isNull() || (rect.left() >= -hair && rect.right() <= drawing.width() + hair &&
                             rect.top() >= -hair && rect.bottom() <= drawing.height() + hair);
}

void checkColumns(const ColumnLayout& layout) {
    require(isInside(layout.canvas));
    for (const ColumnBar& bar : layout.bars)
        require(isInside(bar.rect));
    for (const BarBox& box : layout.valueBoxes)
        require(isInside(box.box.rect));
    for (const ChartBox& tag : layout.separatorTags)
        require(isInside(tag.rect));
    for (const MeanLine& mean : layout.means)
        require(isInside(mean.tag.rect));
    for (const CategoryLabel& label : layout.labels)
        require(isInside(label.rect));
    for (const LegendEntry& entry : layout.legend)
        require(isInside(entry.swatch));
}

void checkPie(const PieLayout& layout) {
    for (const PieSlice& slice : layout.slices)
        require(isInside(slice.shape.boundingRect()));
    for (const PieLabel& label : layout.labels)
        require(isInside(label.box.rect) && isInside(label.leader.boundingRect()));
}

// Paints into the middle of an image whose margin stays as it is.
void checkPicture(const LaidOutChart& chart) {
    QImage image(drawing.adjusted(-20, -20, 20, 20).size(), QImage::Format_RGB32);
    image.fill(untouched);
    QPainter painter(&image);
    painter.translate(drawing.topLeft());
    chart.paint(painter);
    painter.end();
    const QRect room = drawing.adjusted(-1, -1, 1, 1); // a smoothed edge
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            require(room.contains(x, y) || image.pixel(x, y) == untouched);
}

void checkToolTexts(const LaidOutChart& chart, std::string_view document) {
    for (int step = 0; step < 16; ++step) {
        const std::string text = chart.toolTextAt({drawing.width() * step / 16.0, 80});
        require(isUtf8(text) || !isUtf8(document));
    }
}

} // namespace

// What the font library keeps to the end is not ours.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Fonts fonts;
    const std::string_view document = fuzz::textOf(data, size);
    for (const int chartType : {11, 4}) {
        const ChartModel model = parseChartDocument(document, chartType);
        checkModel(model);
        const LaidOutChart chart(model, drawing.size());
        if (const ColumnLayout* columns = chart.columns())
            checkColumns(*columns);
        else
            checkPie(*chart.pie());
        checkPicture(chart);
        checkToolTexts(chart, document);
    }
    return 0;
}
