// Drawing the chart of the two sides at 745 x 320: this system's painter, from the document and
// laid out beforehand, against Qt Charts with the same columns, from the data and set up
// beforehand.
#include "platform/chart_model.h"
#include "platform/qt/chart_painter.h"
#include "tests/platform/chart_samples.h"

#include <QApplication>
#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QGraphicsScene>
#include <QImage>
#include <QPainter>
#include <QValueAxis>
#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr QSize pictureSize(745, 320);

std::string sampleDocument() {
    return vorna::samples::sidesDocument({}, vorna::samples::allTexts().front());
}

vorna::ChartModel sampleModel() {
    return vorna::parseChartDocument(sampleDocument(), vorna::samples::columnsType);
}

void parseOnly(benchmark::State& state) {
    const std::string document = sampleDocument();
    for (auto _ : state)
        benchmark::DoNotOptimize(vorna::parseChartDocument(document, vorna::samples::columnsType));
}

void drawFromDocument(benchmark::State& state) {
    const std::string document = sampleDocument();
    QImage image(pictureSize, QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&image);
        vorna::LaidOutChart(vorna::parseChartDocument(document, vorna::samples::columnsType),
                            pictureSize)
            .paint(painter);
        painter.end();
        benchmark::DoNotOptimize(image.constBits());
    }
}

void drawLaidOut(benchmark::State& state) {
    const vorna::LaidOutChart chart(sampleModel(), pictureSize);
    QImage image(pictureSize, QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&image);
        chart.paint(painter);
        painter.end();
        benchmark::DoNotOptimize(image.constBits());
    }
}

void drawPieFromDocument(benchmark::State& state) {
    const std::string document =
        vorna::samples::energyPieDocument({}, vorna::samples::allTexts().front());
    QImage image(pictureSize, QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&image);
        vorna::LaidOutChart(vorna::parseChartDocument(document, vorna::samples::pieType),
                            pictureSize)
            .paint(painter);
        painter.end();
        benchmark::DoNotOptimize(image.constBits());
    }
}

// The same title, columns, names, numbers and legend in a Qt chart. Qt Charts knows neither
// separators nor a mean line, band or numbers in boxes; it is spared them.
class QtChartScene {
public:
    explicit QtChartScene(const vorna::ChartModel& model) : chart_(new QChart) {
        scene_.addItem(chart_); // which takes it over
        auto* bars = new QBarSeries;
        for (const vorna::ChartSeries& series : model.series) {
            auto* set = new QBarSet(QString::fromStdString(series.name));
            for (const vorna::ChartValue& value : series.values)
                set->append(value.value);
            bars->append(set);
        }
        bars->setLabelsVisible(true);
        chart_->addSeries(bars);
        chart_->setTitle(QString::fromStdString(model.caption));
        QStringList names;
        for (std::size_t i = 0; i < model.categories.size(); ++i)
            names.append(QString::number(i) + u' ' + QString::fromStdString(model.categories[i]));
        auto* categories = new QBarCategoryAxis;
        categories->append(names);
        chart_->addAxis(categories, Qt::AlignBottom);
        bars->attachAxis(categories);
        auto* values = new QValueAxis;
        values->setRange(0, model.axisMaximum);
        values->setTickCount(model.divisionLines + 2);
        chart_->addAxis(values, Qt::AlignLeft);
        bars->attachAxis(values);
        chart_->legend()->setAlignment(Qt::AlignBottom);
        chart_->resize(pictureSize);
        scene_.setSceneRect(QRectF(QPointF(0, 0), pictureSize));
    }

    void draw(QImage& image) {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        scene_.render(&painter);
    }

private:
    QGraphicsScene scene_;
    QChart* chart_;
};

void qtChartsFromData(benchmark::State& state) {
    const vorna::ChartModel model = sampleModel();
    QImage image(pictureSize, QImage::Format_RGB32);
    for (auto _ : state) {
        QtChartScene(model).draw(image);
        benchmark::DoNotOptimize(image.constBits());
    }
}

void qtChartsSetUp(benchmark::State& state) {
    QtChartScene chart(sampleModel());
    QImage image(pictureSize, QImage::Format_RGB32);
    for (auto _ : state) {
        chart.draw(image);
        benchmark::DoNotOptimize(image.constBits());
    }
}

BENCHMARK(parseOnly)->Unit(benchmark::kMicrosecond);
BENCHMARK(drawFromDocument)->Unit(benchmark::kMicrosecond);
BENCHMARK(drawLaidOut)->Unit(benchmark::kMicrosecond);
BENCHMARK(drawPieFromDocument)->Unit(benchmark::kMicrosecond);
BENCHMARK(qtChartsFromData)->Unit(benchmark::kMicrosecond);
BENCHMARK(qtChartsSetUp)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
