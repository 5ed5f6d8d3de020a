// What must hold of every layout: nothing overlaps, nothing leaves its place, nothing is missing.
#include "platform/chart_model.h"
#include "platform/qt/chart_painter.h"
#include "platform/qt/value_boxes.h"
#include "tests/platform/chart_samples.h"

#include <QImage>
#include <QLineF>
#include <QPainter>
#include <QPolygonF>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace vorna {
namespace {

const std::vector<QSizeF>& sizes() {
    static const std::vector<QSizeF> all{{745, 320},  {400, 300}, {384, 299},  {434, 612},
                                         {1600, 700}, {806, 676}, {1000, 240}, {220, 160}};
    return all;
}

// Large enough for every value and every label.
bool isRoomy(const QSizeF& size) {
    return size.width() >= 745 && size.height() >= 300;
}

bool isLong(const samples::Sample& sample) {
    return sample.name.starts_with("long");
}

std::string nameOf(const samples::Sample& sample, const QSizeF& size) {
    return sample.name + " at " + std::to_string(size.width()) + " x " +
           std::to_string(size.height());
}

QRectF rectOf(const ChartTextLine& line) {
    const double height = line.font.pixelSize();
    return {line.baseline.x(), line.baseline.y() - 0.75 * height, line.width, 0.95 * height};
}

// Rectangles that stand in each other's way by more than a hair.
bool collide(const QRectF& a, const QRectF& b) {
    const QRectF common = a.intersected(b);
    return common.width() > 0.01 && common.height() > 0.01;
}

// A line without text takes no room.
void addTextRect(std::vector<QRectF>& rects, const ChartTextLine& line) {
    if (!line.text.isEmpty())
        rects.push_back(rectOf(line));
}

void expectDisjoint(const std::vector<QRectF>& rects, const std::string& what) {
    for (std::size_t i = 0; i < rects.size(); ++i)
        for (std::size_t k = 0; k < i; ++k)
            EXPECT_FALSE(collide(rects[i], rects[k])) << what << ' ' << k << " and " << i;
}

void expectInside(const std::vector<QRectF>& rects, const QRectF& room, const std::string& what) {
    for (std::size_t i = 0; i < rects.size(); ++i)
        EXPECT_TRUE(room.contains(rects[i])) << what << ' ' << i;
}

std::vector<QRectF> valueBoxRects(const ColumnLayout& layout) {
    std::vector<QRectF> rects;
    for (const BarBox& box : layout.valueBoxes)
        rects.push_back(box.box.rect);
    return rects;
}

void checkValueBoxes(const ColumnLayout& layout, const std::string& name) {
    expectDisjoint(valueBoxRects(layout), name + ": value boxes");
    for (const BarBox& box : layout.valueBoxes) {
        const QRectF& slot = layout.slotRects[layout.bars[box.bar].category];
        EXPECT_TRUE(slot.contains(box.box.rect)) << name << ": a value box leaves its slot";
        for (const SeparatorLine& line : layout.separators)
            EXPECT_FALSE(collide(box.box.rect, QRectF(line.x - line.width / 2, line.top, line.width,
                                                      line.bottom - line.top)))
                << name << ": a value box touches a separator";
        for (const ChartTextLine& line : box.box.lines)
            EXPECT_TRUE(box.box.rect.contains(rectOf(line).adjusted(0, 2, 0, -2)))
                << name << ": a value stands out of its box";
    }
}

void checkTags(const ColumnLayout& layout, const QRectF& picture, const std::string& name) {
    std::vector<QRectF> tags;
    for (const ChartBox& tag : layout.separatorTags)
        tags.push_back(tag.rect);
    for (const MeanLine& mean : layout.means)
        if (!mean.tag.lines.empty())
            tags.push_back(mean.tag.rect);
    addTextRect(tags, layout.header.title);
    addTextRect(tags, layout.header.subtitle);
    expectDisjoint(tags, name + ": tags");
    expectInside(tags, picture, name + ": tag");
}

void checkTexts(const ColumnLayout& layout, const QRectF& picture, const std::string& name) {
    std::vector<QRectF> texts;
    for (const CategoryLabel& label : layout.labels)
        if (label.rect.width() > 0)
            texts.push_back(label.rect);
    for (const LegendEntry& entry : layout.legend) {
        texts.push_back(entry.swatch);
        addTextRect(texts, entry.name);
    }
    for (const GridLine& line : layout.grid)
        addTextRect(texts, line.number);
    addTextRect(texts, layout.header.title);
    addTextRect(texts, layout.header.subtitle);
    expectDisjoint(texts, name + ": texts");
    expectInside(texts, picture, name + ": text");
}

std::size_t wantedBoxes(const ChartModel& model) {
    std::size_t count = 0;
    for (const ChartSeries& series : model.series)
        for (const ChartValue& value : series.values)
            if (value.shown.value_or(model.showValues) || value.value > model.axisMaximum)
                ++count;
    return count;
}

TEST(ChartLayoutTest, NothingOverlapsInColumnCharts) {
    for (const samples::Sample& sample : samples::allSamples()) {
        if (sample.chartType != samples::columnsType)
            continue;
        const ChartModel model = parseChartDocument(sample.document, sample.chartType);
        for (const QSizeF& size : sizes()) {
            const std::string name = nameOf(sample, size);
            const LaidOutChart chart(model, size);
            ASSERT_NE(chart.columns(), nullptr);
            const QRectF picture(QPointF(0, 0), size);
            checkValueBoxes(*chart.columns(), name);
            checkTags(*chart.columns(), picture, name);
            checkTexts(*chart.columns(), picture, name);
            if (isRoomy(size)) {
                EXPECT_EQ(chart.columns()->valueBoxes.size(), wantedBoxes(model)) << name;
            }
            if (testing::Test::HasFailure())
                return;
        }
    }
}

TEST(ChartLayoutTest, ColumnsStandWhereTheirValuesAre) {
    const ChartModel model = parseChartDocument(
        samples::sidesDocument({}, samples::allTexts().front()), samples::columnsType);
    const LaidOutChart chart(model, {745, 320});
    const ColumnLayout& layout = *chart.columns();
    for (const ColumnBar& bar : layout.bars) {
        const double value = model.series[bar.series].values[bar.category].value;
        const double height = layout.canvas.height() * std::min(value, 200.0) / 200;
        EXPECT_NEAR(bar.rect.height(), height, 0.5);
        EXPECT_EQ(bar.cut, value > 200);
        EXPECT_TRUE(layout.slotRects[bar.category].contains(bar.rect));
    }
    EXPECT_NEAR(layout.means.at(0).y, layout.canvas.bottom() - layout.canvas.height() * 0.52, 0.5);
    ASSERT_EQ(layout.bands.size(), 1U);
    EXPECT_NEAR(layout.bands[0].rect.top(),
                layout.canvas.bottom() - layout.canvas.height() * 119 / 200, 0.5);
    EXPECT_NEAR(layout.bands[0].rect.bottom(),
                layout.canvas.bottom() - layout.canvas.height() * 91 / 200, 0.5);
}

TEST(ChartLayoutTest, ABandIsSortedAndKeptInTheCanvas) {
    struct BandCase {
        const char* rule;
        double start;
        double end;
        double low;
        double high;
    };
    for (const BandCase& c :
         {BandCase{"low first", 80, 120, 80, 120}, BandCase{"high first", 120, 80, 80, 120},
          BandCase{"above the axis", 150, 400, 150, 200},
          BandCase{"below the axis", -50, 30, 0, 30}, BandCase{"all above", 250, 300, 200, 200}}) {
        ChartModel model;
        model.trendLines.push_back({.start = c.start, .end = c.end});
        const LaidOutChart chart(model, {745, 320});
        const QRectF& canvas = chart.columns()->canvas;
        const QRectF& band = chart.columns()->bands.at(0).rect;
        EXPECT_NEAR(band.top(), canvas.bottom() - canvas.height() * c.high / 200, 0.5) << c.rule;
        EXPECT_NEAR(band.bottom(), canvas.bottom() - canvas.height() * c.low / 200, 0.5) << c.rule;
    }
}

TEST(ChartLayoutTest, TextsAreLegibleAndGrowWithTheDrawing) {
    for (const samples::Sample& sample : samples::allSamples()) {
        if (sample.chartType != samples::columnsType || isLong(sample))
            continue;
        const ChartModel model = parseChartDocument(sample.document, sample.chartType);
        const LaidOutChart normal(model, {745, 320});
        for (const CategoryLabel& label : normal.columns()->labels) {
            EXPECT_EQ(label.fullText, "") << sample.name << ": a label is cut";
            for (const ChartTextLine& line : label.lines)
                EXPECT_GE(line.font.pixelSize(), 11) << sample.name;
        }
        for (const BarBox& box : normal.columns()->valueBoxes)
            for (const ChartTextLine& line : box.box.lines)
                EXPECT_GE(line.font.pixelSize(), line.text.size() > 4 ? 9 : 11)
                    << sample.name << ": " << line.text.toStdString();
        const LaidOutChart large(model, {4000, 3000});
        EXPECT_EQ(large.columns()->scale, 1.5);
        EXPECT_EQ(large.columns()->header.title.font.pixelSize(), 24);
        EXPECT_EQ(LaidOutChart(model, {400, 300}).columns()->scale, 1);
    }
}

TEST(ChartLayoutTest, CategoryLabelsShareTheRow) {
    struct LabelCase {
        const char* rule;
        std::vector<std::string> labels;
        std::size_t rows;
        int largest; // pixels
        int smallest;
    };
    const std::vector<std::string> twelve(12, "OS/PC");
    const auto withFirst = [&](const char* label) {
        std::vector<std::string> labels = twelve;
        labels.insert(labels.begin(), label);
        return labels;
    };
    const std::vector<LabelCase> cases{
        {"all fit", twelve, 1, 14, 14},
        {"one long word is smaller, not all", withFirst("Среднее"), 1, 14, 11},
        {"one pair of words is smaller, not broken", withFirst("jin jang"), 1, 14, 12},
        {"many pairs of words break", std::vector<std::string>(15, "jin jang"), 2, 14, 14},
        {"many long words are all smaller", std::vector<std::string>(13, "Среднее"), 1, 13, 9},
        {"brackets break alike", {"Wood (LR, GB, more)", "Fire (HT ,SI )"}, 2, 14, 12},
        {"words break at a slash", std::vector<std::string>(26, "OS/PC"), 2, 11, 9},
    };
    for (const LabelCase& c : cases) {
        ChartModel model;
        model.categories = c.labels;
        const LaidOutChart chart(model, QSizeF(c.labels.size() == 2 ? 300 : 745, 320));
        std::size_t rows = 0;
        int largest = 0;
        int smallest = 100;
        for (const CategoryLabel& label : chart.columns()->labels) {
            rows = std::max(rows, label.lines.size());
            EXPECT_EQ(label.fullText, "") << c.rule;
            for (const ChartTextLine& line : label.lines) {
                largest = std::max(largest, line.font.pixelSize());
                smallest = std::min(smallest, line.font.pixelSize());
            }
        }
        EXPECT_EQ(rows, c.rows) << c.rule;
        EXPECT_LE(largest, c.largest) << c.rule; // fonts differ in width
        EXPECT_GE(smallest, c.smallest) << c.rule;
    }
}

// The parts of a pie that labels and leaders must keep off.
bool touchesSlices(const PieLayout& layout, const QRectF& rect) {
    return std::any_of(layout.slices.begin(), layout.slices.end(),
                       [&](const PieSlice& slice) { return slice.shape.intersects(rect); });
}

void checkLeaderKeepsOffSlices(const PieLayout& layout, const PieLabel& label,
                               const std::string& name) {
    for (qsizetype i = 1; i < label.leader.size(); ++i)
        for (int step = 0; step <= 40; ++step) {
            const QPointF point =
                label.leader[i - 1] + (label.leader[i] - label.leader[i - 1]) * step / 40.0;
            for (const PieSlice& slice : layout.slices)
                EXPECT_FALSE(slice.shape.contains(point))
                    << name << ": the leader of slice " << label.slice << " enters the pie";
        }
}

bool leadersCross(const PieLabel& a, const PieLabel& b) {
    for (qsizetype i = 1; i < a.leader.size(); ++i)
        for (qsizetype k = 1; k < b.leader.size(); ++k)
            if (QLineF(a.leader[i - 1], a.leader[i])
                    .intersects(QLineF(b.leader[k - 1], b.leader[k]), nullptr) ==
                QLineF::BoundedIntersection)
                return true;
    return false;
}

bool leaderCrossesBox(const PieLabel& leading, const PieLabel& other) {
    const QRectF& rect = other.box.rect;
    const QPolygonF edges{rect};
    for (qsizetype i = 1; i < leading.leader.size(); ++i)
        for (qsizetype k = 1; k < edges.size(); ++k)
            if (QLineF(leading.leader[i - 1], leading.leader[i])
                    .intersects(QLineF(edges[k - 1], edges[k]), nullptr) ==
                QLineF::BoundedIntersection)
                return true;
    return false;
}

void checkPie(const PieLayout& layout, const QRectF& picture, const std::string& name) {
    std::vector<QRectF> boxes;
    addTextRect(boxes, layout.header.title);
    addTextRect(boxes, layout.header.subtitle);
    for (const PieLabel& label : layout.labels) {
        boxes.push_back(label.box.rect);
        EXPECT_FALSE(touchesSlices(layout, label.box.rect))
            << name << ": the label of slice " << label.slice << " covers the pie";
        EXPECT_EQ(label.leader.isEmpty(), !label.sample.isEmpty()) << name;
        EXPECT_LE(label.leader.size(), 3) << name << ": more than one bend";
        checkLeaderKeepsOffSlices(layout, label, name);
        for (const PieLabel& other : layout.labels) {
            if (&other == &label)
                continue;
            EXPECT_FALSE(leadersCross(label, other))
                << name << ": leaders of slices " << label.slice << " and " << other.slice;
            EXPECT_FALSE(leaderCrossesBox(label, other))
                << name << ": leader " << label.slice << " over label " << other.slice;
        }
    }
    expectDisjoint(boxes, name + ": labels");
    expectInside(boxes, picture, name + ": label");
    for (const PieSlice& slice : layout.slices)
        EXPECT_TRUE(slice.shape.isEmpty() || picture.contains(slice.shape.boundingRect()))
            << name << ": a slice leaves the picture";
}

TEST(ChartLayoutTest, NothingOverlapsInPies) {
    for (const samples::Sample& sample : samples::allSamples()) {
        if (sample.chartType != samples::pieType)
            continue;
        const ChartModel model = parseChartDocument(sample.document, sample.chartType);
        for (const QSizeF& size : sizes()) {
            const std::string name = nameOf(sample, size);
            const LaidOutChart chart(model, size);
            ASSERT_NE(chart.pie(), nullptr);
            checkPie(*chart.pie(), QRectF(QPointF(0, 0), size), name);
            if (size.height() >= 299) {
                EXPECT_EQ(chart.pie()->labels.size(), model.slices.size()) << name;
                EXPECT_GE(chart.pie()->radius, isLong(sample) ? 30 : 45) << name;
            }
            for (const PieLabel& label : chart.pie()->labels)
                EXPECT_FALSE(sample.name.starts_with("sample") && label.leader.isEmpty())
                    << name << ", slice " << label.slice;
            if (testing::Test::HasFailure())
                return;
        }
    }
}

ChartModel randomPie(std::mt19937& random) {
    const auto below = [&](unsigned bound) { return static_cast<unsigned>(random() % bound); };
    ChartModel model;
    model.kind = ChartKind::pie;
    model.caption = "PIE";
    model.showPercentages = true;
    model.startAngle = below(360);
    model.slicingDistance = static_cast<int>(10 + below(10));
    const unsigned count = 1 + below(9);
    const unsigned unevenness = 1 + below(4);
    for (unsigned i = 0; i < count; ++i) {
        ChartValue slice;
        slice.value = below(12) == 0 ? 0 : std::pow(1 + below(200), unevenness);
        slice.label = std::string(1 + below(8), 'M');
        slice.sliced = below(3) == 0;
        model.slices.push_back(slice);
    }
    return model;
}

TEST(ChartLayoutTest, NothingOverlapsInPiesOfAnyShares) {
    std::mt19937 random(20261012);
    for (int round = 0; round < 600; ++round) {
        const ChartModel model = randomPie(random);
        for (const QSizeF& size : {QSizeF(745, 320), QSizeF(400, 300), QSizeF(640, 615)}) {
            checkPie(layOutPie(model, size), QRectF(QPointF(0, 0), size),
                     "pie " + std::to_string(round) + " at " + std::to_string(size.width()));
            if (testing::Test::HasFailure())
                return;
        }
    }
}

TEST(ChartLayoutTest, SlicesRunCounterClockwiseFromTheStartingAngle) {
    const ChartModel model =
        parseChartDocument("<chart startingAngle='90' slicingDistance='10'><set value='1'/>"
                           "<set value='1' issliced='1'/><set value='2'/></chart>",
                           samples::pieType);
    const PieLayout layout = layOutPie(model, {400, 300});
    const double r = layout.radius;
    // A quarter from twelve to nine o'clock, one to six o'clock, the half on the right.
    EXPECT_TRUE(layout.slices[0].shape.contains(layout.centre + QPointF(-r / 2, -r / 2)));
    EXPECT_TRUE(layout.slices[1].shape.contains(layout.centre + QPointF(-r / 2, r / 2)));
    EXPECT_TRUE(layout.slices[2].shape.contains(layout.centre + QPointF(r / 2, 0)));
    EXPECT_NEAR(QLineF(layout.centre, layout.slices[1].apex).length(), 10, 1e-6);
    EXPECT_EQ(layout.slices[2].apex, layout.centre);
}

TEST(ChartLayoutTest, PieLabelsSayWhatTheDocumentWants) {
    struct LabelCase {
        const char* rule;
        const char* document;
        const char* label; // of the first slice
    };
    const char* const rest = "<set value='3'/></chart>";
    for (const LabelCase& c : {
             LabelCase{"label and percentage",
                       "<chart showPercentageValues='1'><set label='a' "
                       "value='1'/>",
                       "a 25\u00A0%"},
             LabelCase{"display value wins",
                       "<chart showPercentageValues='1'><set label='a' "
                       "value='1' displayValue='d: -5'/>",
                       "d:\u00A0\u22125"},
             LabelCase{"the number", "<chart><set label='a' value='1'/>", "a 1"},
             LabelCase{"no label", "<chart showLabels='0'><set label='a' value='1'/>", "1"},
             LabelCase{"no value", "<chart showValues='0'><set label='a' value='1'/>", "a"},
             LabelCase{"decimals", "<chart showPercentageValues='1' decimals='1'><set value='1'/>",
                       "25.0\u00A0%"},
             LabelCase{"a slice of nothing", "<chart showPercentageValues='1'><set value='0'/>",
                       "0\u00A0%"},
         }) {
        const ChartModel model =
            parseChartDocument(std::string(c.document) + rest, samples::pieType);
        const PieLayout layout = layOutPie(model, {745, 320});
        const auto first = std::find_if(layout.labels.begin(), layout.labels.end(),
                                        [](const PieLabel& label) { return label.slice == 0; });
        ASSERT_NE(first, layout.labels.end()) << c.rule;
        EXPECT_EQ(first->box.lines.at(0).text.toStdString(), c.label) << c.rule;
    }
    const ChartModel hidden = parseChartDocument(
        "<chart showZeroPies='0'><set value='0'/><set value='1'/>", samples::pieType);
    EXPECT_EQ(layOutPie(hidden, {745, 320}).labels.size(), 1U);
}

TEST(ChartLayoutTest, DocumentsWithoutSenseAndTinyDrawingsAreDrawn) {
    std::vector<std::string> documents{
        "", "<chart>", "<chart yAxisMaxValue='0.001' numDivLines='20'><set value='1e9'/>",
        "<chart><dataset/><dataset/><set value='5'/><category label='a'/><vLine label='x'/>"};
    std::string crowded = "<chart>"; // more series than stand side by side
    for (int i = 0; i < 3; ++i) {
        crowded += "<dataset seriesname='s'>";
        for (int k = 0; k < 13; ++k)
            crowded += "<set value='1" + std::to_string(10 + k * i) + "'/>";
    }
    documents.push_back(crowded);
    std::string many = "<chart>";
    for (int i = 0; i < 16; ++i) {
        many += "<dataset seriesname='a name of some length'>";
        for (int k = 0; k < 400; ++k)
            many += "<category label='" + std::string(300, 'w') +
                    "'/><vLine label='mm'/><set value='150'/><line startValue='3' "
                    "displayValue='3'/>";
    }
    documents.push_back(many);
    for (const std::string& document : documents)
        for (const int type : {samples::columnsType, samples::pieType})
            for (const QSizeF& size : {QSizeF(1, 1), QSizeF(30, 20), QSizeF(745, 320)}) {
                const LaidOutChart chart(parseChartDocument(document, type), size);
                QImage image(size.toSize(), QImage::Format_RGB32);
                QPainter painter(&image);
                chart.paint(painter);
                if (const ColumnLayout* layout = chart.columns()) {
                    EXPECT_GE(layout->canvas.height(), 0);
                    checkValueBoxes(*layout, "senseless document");
                }
            }
}

TEST(ChartLayoutTest, NothingLeavesASmallDrawing) {
    struct SmallCase {
        const char* rule;
        std::string document;
    };
    std::string series = "<chart>";
    for (int i = 0; i < 16; ++i)
        series += "<dataset seriesName='s'>";
    std::string means = "<chart><dataset><set value='5'/></dataset>";
    for (int i = 0; i < 20; ++i)
        means += "<line startValue='100' displayValue='100'/>";
    const SmallCase cases[]{
        {"a title of the largest type",
         "<chart caption='Č' subcaption='Žižka'><style name='s' size='48'/>"
         "<apply toObject='Caption' styles='s'/>"},
        {"more series than the legend has room for", series},
        {"a mean above the axis without a title",
         "<chart><dataset><set value='5'/></dataset><line startValue='300' displayValue='300'/>"},
        {"more means than have room above each other", means},
    };
    const QSizeF size(220, 160);
    const QRectF picture(QPointF(0, 0), size);
    for (const SmallCase& c : cases) {
        const LaidOutChart columns(parseChartDocument(c.document, samples::columnsType), size);
        checkTags(*columns.columns(), picture, c.rule);
        checkTexts(*columns.columns(), picture, c.rule);
        for (const MeanLine& mean : columns.columns()->means) {
            const bool hasArrow = mean.above && !mean.tag.lines.empty();
            EXPECT_GE(mean.tag.rect.top(), hasArrow ? 8 : 0) << c.rule;
            EXPECT_LE(mean.tag.rect.bottom(), size.height()) << c.rule;
        }
        const LaidOutChart pie(parseChartDocument(c.document, samples::pieType), size);
        checkPie(*pie.pie(), picture, c.rule);
    }
}

TEST(ChartLayoutTest, NothingOverlapsInDamagedDocuments) {
    std::mt19937 random(20261012);
    const QSizeF size(745, 320);
    const QRectF picture(QPointF(0, 0), size);
    for (const samples::Sample& sample : samples::allSamples()) {
        for (int round = 0; round < 4; ++round) {
            const std::string document = samples::damaged(sample.document, random);
            const LaidOutChart chart(parseChartDocument(document, sample.chartType), size);
            const std::string name = sample.name + ", damaged: " + document;
            if (const ColumnLayout* layout = chart.columns()) {
                checkValueBoxes(*layout, name);
                checkTags(*layout, picture, name);
                checkTexts(*layout, picture, name);
            } else {
                checkPie(*chart.pie(), picture, name);
            }
            if (testing::Test::HasFailure())
                return;
        }
    }
}

// Two bars of 17 in a slot of 50, foot at 200; what they show is 3 figures or 1 sign.
TEST(ChartLayoutTest, ValueBoxesMakeRoomForEachOther) {
    struct BoxCase {
        const char* rule;
        double leftTop;
        double rightTop;
        const char* leftText; // empty: no box
        const char* rightText;
        bool leftCentred;
        bool rightCentred;
        bool stacked;
    };
    const BoxCase cases[]{
        {"narrow boxes stand over their bars", 100, 100, "8", "9", true, true, false},
        {"a wide box over a low neighbour stays", 60, 150, "149", "", true, true, false},
        {"a wide box beside a high neighbour grows outwards", 100, 60, "149", "", false, true,
         false},
        {"the same on the right", 60, 100, "", "149", true, false, false},
        {"wide boxes at one height part", 100, 100, "149", "151", false, false, false},
        {"boxes too wide to part are stacked", 100, 100, "MMM", "MMM", false, false, true},
        {"at the top both go into the bars", 3, 3, "MMM", "MMM", false, false, true},
    };
    ChartFonts fonts("", "", 1);
    for (const BoxCase& c : cases) {
        const SlotRoom room{.rect = QRectF(0, 0, 50, 200),
                            .bars = {QRectF(7, c.leftTop, 17, 200 - c.leftTop),
                                     QRectF(26, c.rightTop, 17, 200 - c.rightTop)}};
        std::vector<ValueBoxWish> wishes;
        for (const std::size_t bar : {std::size_t{0}, std::size_t{1}})
            if (const QString text = QString::fromUtf8(bar == 0 ? c.leftText : c.rightText);
                !text.isEmpty())
                wishes.push_back({.bar = bar, .text = text});
        const std::vector<ValueBox> placed = placeValueBoxes(wishes, room, fonts);
        ASSERT_EQ(placed.size(), wishes.size()) << c.rule;
        for (const ValueBox& box : placed) {
            const QRectF& bar = room.bars[box.bar];
            const double shift = box.box.rect.center().x() - bar.center().x();
            EXPECT_EQ(std::abs(shift) < 0.01, box.bar == 0 ? c.leftCentred : c.rightCentred)
                << c.rule << ": " << shift;
            const QRectF& other = room.bars[1 - box.bar];
            EXPECT_TRUE(c.stacked || placed.size() == 2 || !collide(box.box.rect, other)) << c.rule;
            EXPECT_TRUE(room.rect.contains(box.box.rect)) << c.rule;
        }
        const bool apart = placed.size() == 2 &&
                           std::abs(placed[0].box.rect.top() - placed[1].box.rect.top()) > 10;
        EXPECT_EQ(apart, c.stacked) << c.rule;
    }
}

TEST(ChartLayoutTest, BoxesAreSpreadAsLittleAsNeeded) {
    struct SpreadCase {
        const char* rule;
        std::vector<double> wanted;
        std::vector<double> middles;
    };
    const std::vector<SpreadCase> cases{
        {"nothing to do", {20, 50}, {20, 50}},
        {"two at the same place", {50, 50}, {42.5, 57.5}},
        {"a pushed one pushes on", {50, 50, 60}, {38 + 1.0 / 3, 53 + 1.0 / 3, 68 + 1.0 / 3}},
        {"above the top", {-20}, {5}},
        {"below the bottom", {90, 130}, {80, 95}},
        {"the gap shrinks",
         {0, 0, 0, 0, 0, 0, 0, 0},
         {5, 17.857, 30.714, 43.571, 56.429, 69.286, 82.143, 95}},
    };
    for (const SpreadCase& c : cases) {
        std::vector<SpreadItem> items;
        for (const double wanted : c.wanted)
            items.push_back({wanted, 10});
        const std::vector<double> middles = spreadApart(items, 5, 0, 100);
        ASSERT_EQ(middles.size(), c.middles.size()) << c.rule;
        for (std::size_t i = 0; i < middles.size(); ++i)
            EXPECT_NEAR(middles[i], c.middles[i], 0.01) << c.rule << ", box " << i;
    }
}

} // namespace
} // namespace vorna
