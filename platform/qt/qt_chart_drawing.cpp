#include "platform/qt/qt_chart_drawing.h"

#include "platform/failure.h"
#include "platform/files.h"
#include "platform/qt/chart_painter.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>

#include <cstdint>
#include <string>

namespace vorna {
namespace {

constexpr int longestSide = 16384;
constexpr std::int64_t mostPixels = 64'000'000;

// The path's extension in small letters, without the dot.
std::string formatOf(const std::filesystem::path& path) {
    return QString::fromStdString(path.extension().string()).mid(1).toLower().toStdString();
}

QByteArray rasterPicture(const ChartModel& model, const QSize& size, const char* format) {
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull())
        throw Failure("a chart picture of this size cannot be made");
    QPainter painter(&image);
    LaidOutChart(model, size).paint(painter);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format))
        throw Failure("a chart picture cannot be encoded");
    return bytes;
}

QByteArray linePicture(const ChartModel& model, const QSize& size) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(96); // so that the picture's own size is the wanted one in pixels
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(0, 0), size));
    generator.setTitle(chartText(model.caption).toHtmlEscaped()); // which the generator does not do
    QPainter painter(&generator);
    LaidOutChart(model, size).paint(painter);
    painter.end();
    return bytes;
}

} // namespace

void QtChartDrawing::draw(std::string_view document, int chartType, PictureSize size,
                          const std::filesystem::path& path) {
    if (size.width < 1 || size.height < 1 || size.width > longestSide ||
        size.height > longestSide || std::int64_t{size.width} * size.height > mostPixels)
        throw Failure("a chart picture of this size cannot be made");
    const std::string format = formatOf(path);
    if (format != "bmp" && format != "png" && format != "svg")
        throw Failure("a chart picture is written as .bmp, .png or .svg only");
    const ChartModel model = parseChartDocument(document, chartType);
    const QSize pixels(size.width, size.height);
    const QByteArray bytes =
        format == "svg" ? linePicture(model, pixels) : rasterPicture(model, pixels, format.c_str());
    writeFileAtomically(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace vorna
