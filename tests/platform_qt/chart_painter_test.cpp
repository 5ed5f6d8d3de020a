// What is seen: colours at known places, tool texts, and the pictures on disk.
#include "platform/failure.h"
#include "platform/qt/chart_painter.h"
#include "platform/qt/qt_chart_drawing.h"
#include "tests/platform/chart_samples.h"
#include "tests/support/scratch_folder.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <string>

namespace vorna {
namespace {

constexpr QSize reportSize(745, 320);

samples::Texts czech() {
    return samples::allTexts().front();
}

ChartModel modelOf(const std::string& document, int chartType = samples::columnsType) {
    return parseChartDocument(document, chartType);
}

QImage painted(const LaidOutChart& chart, const QColor& paper = Qt::white) {
    QImage image(chart.size().toSize(), QImage::Format_RGB32);
    image.fill(Qt::magenta); // whatever is not painted shows
    QPainter painter(&image);
    chart.paint(painter, paper);
    painter.end();
    return image;
}

std::string colourAt(const QImage& image, const QPointF& point) {
    return image.pixelColor(point.toPoint()).name().toStdString();
}

// The inside of a bar, near its foot, off the grid lines.
QPointF footOf(const ColumnBar& bar) {
    return {bar.rect.center().x(), bar.rect.bottom() - 4};
}

const ColumnBar& barOf(const ColumnLayout& layout, std::size_t category, std::size_t series) {
    for (const ColumnBar& bar : layout.bars)
        if (bar.category == category && bar.series == series)
            return bar;
    throw std::out_of_range("no such bar");
}

TEST(ChartPainterTest, BarsHaveTheColoursOfTheDocument) {
    const LaidOutChart sides(modelOf(samples::sidesDocument({}, czech())), reportSize);
    const QImage image = painted(sides);
    struct ColourCase {
        std::size_t category;
        std::size_t series;
        const char* colour;
    };
    for (const ColourCase& c :
         {ColourCase{0, 0, "#887d7d"}, ColourCase{0, 1, "#efeded"}, ColourCase{1, 0, "#0082fb"},
          ColourCase{1, 1, "#0032fb"}, ColourCase{2, 0, "#fb5f55"}, ColourCase{2, 1, "#fb0f00"}})
        EXPECT_EQ(colourAt(image, footOf(barOf(*sides.columns(), c.category, c.series))), c.colour)
            << "category " << c.category << ", series " << c.series;
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            ASSERT_NE(image.pixelColor(x, y), QColor(Qt::magenta)) << x << ", " << y;
}

TEST(ChartPainterTest, OpacityMixesWithThePaper) {
    const LaidOutChart groups(modelOf(samples::groupsDocument({}, czech())), reportSize);
    const ColumnBar& bar = barOf(*groups.columns(), 1, 0);
    EXPECT_EQ(colourAt(painted(groups), footOf(bar)), "#339bfc"); // 0082fb at 80 % on white
    EXPECT_EQ(colourAt(painted(groups, Qt::black), footOf(bar)), "#0068c9");
}

TEST(ChartPainterTest, PaleFillsHaveAnOutline) {
    const LaidOutChart balance(modelOf(samples::balanceDocument({}, czech())), reportSize);
    const LaidOutChart sides(modelOf(samples::sidesDocument({}, czech())), reportSize);
    const auto edge = [](const ColumnBar& bar) {
        return QPointF(bar.rect.left(), bar.rect.center().y() + 20);
    };
    EXPECT_EQ(colourAt(painted(balance), edge(barOf(*balance.columns(), 0, 0))), "#858282");
    EXPECT_EQ(colourAt(painted(sides), edge(barOf(*sides.columns(), 0, 1))), "#858282");
    EXPECT_EQ(colourAt(painted(sides), edge(barOf(*sides.columns(), 0, 0))), "#887d7d");
    EXPECT_TRUE(isPale(QColor(0xffff00)));
    EXPECT_TRUE(isPale(QColor(0xccffff)));
    EXPECT_FALSE(isPale(QColor(0xff9900)));
}

TEST(ChartPainterTest, MeanBandSeparatorAndValueBoxesAreSeen) {
    const LaidOutChart chart(modelOf(samples::sidesDocument({}, czech())), reportSize);
    const ColumnLayout& layout = *chart.columns();
    const QImage image = painted(chart);
    EXPECT_EQ(colourAt(image, {layout.canvas.left() + 1, layout.means[0].y}), "#fb0101");
    const SeparatorLine& line = layout.separators.at(0);
    EXPECT_EQ(colourAt(image, {line.x - 0.5, layout.canvas.top() + 20}), "#ff5904");
    const QRectF& band = layout.bands.at(0).rect;
    const QColor inBand = image.pixelColor(QPointF(band.left() + 3, band.top() + 4).toPoint());
    EXPECT_NEAR(inBand.red(), 255 * 0.85, 2);
    EXPECT_NEAR(inBand.green(), 255 * 0.85 + 0xb0 * 0.15, 2);
    const BarBox& box = layout.valueBoxes.front();
    EXPECT_EQ(colourAt(image, box.box.rect.topLeft() + QPointF(box.box.rect.width() / 2, 2)),
              "#666666");
    const QRectF& tag = layout.means[0].tag.rect;
    EXPECT_EQ(colourAt(image, tag.topLeft() + QPointF(4, 4)), "#ffffff");
    EXPECT_GT(tag.left(), layout.canvas.right());
}

TEST(ChartPainterTest, ACutBarShowsItsMarkAndItsTrueValue) {
    samples::Measurement calm;
    calm.tolerance = 500; // nothing is flagged
    const LaidOutChart chart(modelOf(samples::sidesDocument(calm, czech())), reportSize);
    const ColumnLayout& layout = *chart.columns();
    const ColumnBar& bar = barOf(layout, 1, 1);
    ASSERT_TRUE(bar.cut);
    const QImage image = painted(chart);
    bool mark = false;
    for (double y = bar.rect.top() + 18; y < bar.rect.top() + 40; y += 1)
        mark = mark || colourAt(image, {bar.rect.center().x(), y}) == "#ffffff";
    EXPECT_TRUE(mark) << "the zigzag";
    EXPECT_EQ(colourAt(image, {bar.rect.center().x(), bar.rect.top() - 4}), "#333333");
    bool told = false;
    for (const BarBox& box : layout.valueBoxes)
        told = told || (&layout.bars[box.bar] == &bar && box.box.lines.at(0).text == u"214");
    EXPECT_TRUE(told) << "though the document does not ask for its value";
}

TEST(ChartPainterTest, SlicesHaveTheColoursOfTheDocument) {
    const LaidOutChart chart(modelOf(samples::elementPieDocument({}, czech()), samples::pieType),
                             reportSize);
    const PieLayout& layout = *chart.pie();
    const QImage image = painted(chart);
    const char* const colours[]{"#0001fc", "#ffff00", "#ff2929", "#ff2929", "#17ab0c", "#000000"};
    for (std::size_t i = 0; i < layout.slices.size(); ++i) {
        const PieSlice& slice = layout.slices[i];
        const QPointF inside =
            slice.apex +
            QPointF(std::cos(slice.middle()), -std::sin(slice.middle())) * (layout.radius * 0.7);
        EXPECT_EQ(colourAt(image, inside), colours[i]) << "slice " << i;
    }
    EXPECT_EQ(colourAt(painted(chart, QColor(0xe9e6df)), {2, 2}), "#e9e6df");
}

TEST(ChartPainterTest, AnEmptyPieIsARingWithItsLabels) {
    const LaidOutChart chart(
        modelOf(samples::sidePieDocument({.values = samples::allEqual(0)}, czech()),
                samples::pieType),
        reportSize);
    const PieLayout& layout = *chart.pie();
    EXPECT_TRUE(layout.empty);
    EXPECT_EQ(layout.labels.size(), 6U);
    const QImage image = painted(chart);
    EXPECT_EQ(colourAt(image, layout.centre), "#ffffff");
    EXPECT_NE(colourAt(image, layout.centre + QPointF(layout.radius * 0.8, 0)), "#ffffff");
    EXPECT_EQ(colourAt(image, layout.labels[0].sample.center()),
              layout.slices[layout.labels[0].slice].fill.name().toStdString());
    EXPECT_EQ(chart.toolTextAt(layout.labels[0].box.rect.center()),
              layout.slices[layout.labels[0].slice].toolText);
}

TEST(ChartPainterTest, ToolTextsOfBars) {
    const LaidOutChart chart(modelOf(samples::sidesDocument({}, czech())), reportSize);
    const ColumnLayout& layout = *chart.columns();
    const ColumnBar& bar = barOf(layout, 1, 0);
    EXPECT_EQ(chart.toolTextAt(footOf(bar)), "149,vlevo");
    EXPECT_EQ(chart.toolTextAt(bar.rect.topLeft() - QPointF(0, 30)), "");
    EXPECT_EQ(chart.toolTextAt({1, 1}), "");
    for (const BarBox& box : layout.valueBoxes)
        EXPECT_EQ(chart.toolTextAt(box.box.rect.center()), layout.bars[box.bar].toolText);
    samples::Measurement zero{.values = samples::allEqual(0)};
    const LaidOutChart flat(modelOf(samples::sidesDocument(zero, czech())), reportSize);
    EXPECT_EQ(flat.toolTextAt(footOf(barOf(*flat.columns(), 1, 0))), "0,vlevo")
        << "a bar without height can be hovered";
}

TEST(ChartPainterTest, ToolTextsOfSlices) {
    const LaidOutChart chart(modelOf(samples::quadrantPieDocument({}, czech()), samples::pieType),
                             reportSize);
    const PieLayout& layout = *chart.pie();
    for (const PieSlice& slice : layout.slices) {
        const QPointF inside =
            slice.apex + QPointF(std::cos(slice.middle()), -std::sin(slice.middle())) * 50;
        EXPECT_EQ(chart.toolTextAt(inside), slice.toolText);
    }
    for (const PieLabel& label : layout.labels)
        EXPECT_EQ(chart.toolTextAt(label.box.rect.center()), layout.slices[label.slice].toolText);
    EXPECT_EQ(chart.toolTextAt({2, 300}), "");
}

TEST(ChartPainterTest, WhatHadToBeCutIsToldOnHover) {
    const std::string longTitle(300, 'W');
    const LaidOutChart chart(modelOf("<chart caption='" + longTitle + "'><category label='" +
                                     std::string(200, 'm') + "'/><set value='1'/></chart>"),
                             reportSize);
    const ColumnLayout& layout = *chart.columns();
    EXPECT_LT(layout.header.title.width, reportSize.width());
    EXPECT_EQ(chart.toolTextAt({300, 5}), longTitle);
    EXPECT_EQ(chart.toolTextAt(layout.labels.at(0).rect.center()), std::string(200, 'm'));
}

TEST(ChartPainterTest, PaintsInsideTheAreaAndRestoresThePainter) {
    const ChartModel model = modelOf(samples::sidesDocument({}, czech()));
    QImage image(800, 400, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    painter.setPen(Qt::green);
    paintChart(painter, QRectF(QPointF(30, 50), reportSize), model);
    EXPECT_EQ(painter.pen().color(), QColor(Qt::green));
    EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
    painter.end();
    EXPECT_EQ(image.pixelColor(29, 200), QColor(Qt::magenta));
    EXPECT_EQ(image.pixelColor(31, 51), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(400, 371), QColor(Qt::magenta));
}

QByteArray bytesOf(const std::filesystem::path& path) {
    QFile file(QString::fromStdString(path.string()));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(QtChartDrawingTest, WritesPicturesByTheExtension) {
    const ScratchFolder folder;
    QtChartDrawing drawing;
    const std::string document = samples::sidesDocument({}, czech());
    const auto draw = [&](const char* name, PictureSize size = {}) {
        drawing.draw(document, samples::columnsType, size, folder / name);
        return bytesOf(folder / name);
    };
    const QByteArray bmp = draw("graf23.bmp");
    EXPECT_TRUE(bmp.startsWith("BM"));
    ASSERT_GT(bmp.size(), 54);
    EXPECT_EQ(static_cast<int>(bmp[28]), 24) << "bits a pixel";
    const QImage fromBmp = QImage::fromData(bmp, "BMP");
    EXPECT_EQ(fromBmp.size(), reportSize);
    EXPECT_EQ(QImage::fromData(draw("a.PNG", {1600, 700}), "PNG").size(), QSize(1600, 700));
    EXPECT_EQ(QImage::fromData(draw("a.png"), "PNG").convertToFormat(QImage::Format_RGB32),
              fromBmp.convertToFormat(QImage::Format_RGB32));
    const QByteArray svg = draw("a.svg");
    EXPECT_TRUE(svg.contains("viewBox=\"0 0 745 320\""));
    EXPECT_TRUE(svg.contains("DRÁHY"));
    EXPECT_TRUE(svg.contains("#0082fb"));
}

TEST(QtChartDrawingTest, LineDrawingsAreWellFormedWhateverTheDocumentHolds) {
    const ScratchFolder folder;
    QtChartDrawing drawing;
    const std::string odd = "A<b> & \"c\" \x01\xEF\xBF\xBF\xFF";
    for (const int chartType : {samples::columnsType, samples::pieType}) {
        drawing.draw("<chart caption='" + odd + "' subcaption='" + odd + "'><category label='" +
                         odd + "'/><set label='" + odd + "' displayValue='" + odd + "' value='7'/>",
                     chartType, {}, folder / "odd.svg");
        QXmlStreamReader reader(bytesOf(folder / "odd.svg"));
        QString title;
        while (!reader.atEnd())
            if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == u"title")
                title = reader.readElementText();
        EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
        EXPECT_TRUE(title.startsWith(u"A<b> & \"c\"")) << title.toStdString();
    }
}

TEST(QtChartDrawingTest, ReplacesAnOlderPictureAndDrawsTheSameTwice) {
    const ScratchFolder folder;
    QtChartDrawing drawing;
    const auto path = folder.write("graf11.bmp", std::string(2'000'000, 'x'));
    const std::string document = samples::energyPieDocument({}, czech());
    drawing.draw(document, samples::pieType, {}, path);
    const QByteArray first = bytesOf(path);
    EXPECT_LT(first.size(), 1'000'000);
    drawing.draw(document, samples::pieType, {}, path);
    EXPECT_EQ(bytesOf(path), first);
}

TEST(QtChartDrawingTest, FailsWhereNoPictureCanBe) {
    const ScratchFolder folder;
    QtChartDrawing drawing;
    const auto draw = [&](PictureSize size, const std::filesystem::path& path) {
        drawing.draw("<chart/>", samples::columnsType, size, path);
    };
    for (const char* name : {"a.jpg", "a", "bmp", "a.bmp "})
        EXPECT_THROW(draw({}, folder / name), Failure) << name;
    for (const PictureSize size : {PictureSize{0, 320}, PictureSize{745, -1},
                                   PictureSize{20000, 10}, PictureSize{10000, 10000}})
        EXPECT_THROW(draw(size, folder / "a.bmp"), Failure) << size.width << " x " << size.height;
    EXPECT_THROW(draw({}, folder / "missing" / "a.bmp"), Failure);
    EXPECT_THROW(draw({}, folder.path()), Failure);
    const FullDisk full(100'000);
    EXPECT_THROW(draw({}, folder / "full.bmp"), Failure);
}

} // namespace
} // namespace vorna
