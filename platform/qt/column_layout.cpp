#include "platform/qt/category_labels.h"
#include "platform/qt/column_chart.h"
#include "platform/qt/value_boxes.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vorna {
namespace {

constexpr std::size_t maxColumns = 400;
constexpr std::array<QRgb, 6> seriesPalette{0xff0082fb, 0xfffb5f55, 0xff17ab0c,
                                            0xffff9900, 0xff7a5cd6, 0xff00aadb};

QString numberText(double value) {
    return QString::number(value, 'g', 10);
}

std::size_t columnCount(const ChartModel& model) {
    std::size_t count = model.categories.size();
    for (const ChartSeries& series : model.series)
        count = std::max(count, series.values.size());
    return std::min(count, maxColumns);
}

std::vector<QString> categoryTexts(const ChartModel& model, std::size_t count) {
    std::vector<QString> texts;
    for (const std::string& category : model.categories)
        texts.push_back(tidyLabel(chartText(category)));
    texts.resize(count);
    return texts;
}

QColor seriesColor(const ChartModel& model, std::size_t index) {
    const ChartSeries& series = model.series[index];
    if (series.colour)
        return toColor(*series.colour);
    if (!series.values.empty() && series.values.front().colour)
        return toColor(*series.values.front().colour);
    return QColor(seriesPalette[index % seriesPalette.size()]);
}

QColor outlineOf(const ChartModel& model, const QColor& fill) {
    if (model.plotBorder)
        return toColor(*model.plotBorder);
    return isPale(fill) ? QColor(outlineInk) : QColor();
}

class ColumnLayouter {
public:
    ColumnLayouter(const ChartModel& model, const QSizeF& size)
        : model_(model), size_(size), s_(chartScale(size)),
          fonts_(model.baseFamily, model.captionStyle.family, s_), count_(columnCount(model)) {}

    ColumnLayout layOut() {
        out_.scale = s_;
        out_.header = layOutHeader(model_, size_.width(), fonts_);
        layOutCanvas();
        layOutGrid();
        layOutBands();
        layOutMeans();
        layOutSeparators();
        layOutSeparatorTags();
        for (std::size_t i = 0; i < count_; ++i)
            layOutSlot(i);
        layOutLabels();
        layOutLegend();
        return std::move(out_);
    }

private:
    [[nodiscard]] double yOf(double value) const {
        const double part = std::clamp(value / model_.axisMaximum, 0.0, 1.0);
        return std::round(out_.canvas.bottom() - out_.canvas.height() * part);
    }

    [[nodiscard]] double slotLeft(std::size_t i) const {
        return out_.canvas.left() +
               out_.canvas.width() * static_cast<double>(i) / static_cast<double>(count_);
    }

    [[nodiscard]] bool isCut(const ChartValue& value) const {
        return value.value > model_.axisMaximum;
    }

    [[nodiscard]] bool anyCut() const {
        return std::any_of(model_.series.begin(), model_.series.end(), [this](const auto& series) {
            return std::any_of(series.values.begin(), series.values.end(),
                               [this](const ChartValue& value) { return isCut(value); });
        });
    }

    [[nodiscard]] bool anySeparatorLabel() const {
        return std::any_of(
            model_.separators.begin(), model_.separators.end(),
            [](const ChartSeparator& separator) { return !chartText(separator.label).isEmpty(); });
    }

    [[nodiscard]] bool hasLegend() const {
        return std::any_of(model_.series.begin(), model_.series.end(),
                           [](const auto& series) { return !chartText(series.name).isEmpty(); });
    }

    QString gridNumber(int line) const {
        return numberText(model_.axisMaximum * line / (model_.divisionLines + 1));
    }

    double leftMargin() {
        const ChartFont& font = fonts_.get(ChartFace::text, 12.5, false);
        double widest = 0;
        for (int line = 0; line <= model_.divisionLines + 1; ++line)
            widest = std::max(widest, font.width(gridNumber(line)));
        return std::min(widest + 21 * s_, size_.width() / 3);
    }

    double rightMargin() {
        const ChartFont& font = fonts_.get(ChartFace::text, 13, true);
        double widest = 0;
        for (const ChartTrendLine& line : model_.trendLines)
            if (!line.end)
                widest = std::max(widest, font.width(chartText(line.text)));
        return std::min((widest > 0 ? widest + 21 * s_ : 16 * s_), size_.width() / 3);
    }

    void layOutCanvas() {
        const double left = std::round(leftMargin());
        const double right = std::round(size_.width() - rightMargin());
        const double slot = (right - left) / static_cast<double>(std::max<std::size_t>(count_, 1));
        labels_ = planLabels(categoryTexts(model_, count_), {model_.labelSize, slot - 3}, fonts_);

        arrowRoom_ = anyCut() ? 9 * s_ : 0;
        const double tagRoom = anySeparatorLabel() ? 17 * s_ : 0;
        const double top =
            std::round(out_.header.bottom + std::max(10 * s_, arrowRoom_ + tagRoom + 4 * s_));
        legendHeight_ = hasLegend() ? 26 * s_ : 6 * s_;
        double labelHeight = (labels_.size + 3) * s_ * static_cast<double>(labels_.rows) + 8 * s_;
        if (size_.height() - top - legendHeight_ - labelHeight < 40) {
            legendHeight_ = 0; // too low a drawing for more than the bars
            labelHeight = 8 * s_;
            labels_.labels.clear();
        }
        const double bottom = std::round(size_.height() - legendHeight_ - labelHeight);
        out_.canvas = QRectF(left, std::max(std::min(top, bottom - 1), 0.0), right - left, 0);
        out_.canvas.setBottom(std::max(bottom, out_.canvas.top()));
    }

    void layOutGrid() {
        const ChartFont& font = fonts_.get(ChartFace::text, 12.5, false);
        double free = size_.height(); // above the last number
        for (int line = 0; line <= model_.divisionLines + 1; ++line) {
            const double y = yOf(model_.axisMaximum * line / (model_.divisionLines + 1));
            const QString number = gridNumber(line);
            ChartTextLine text = centredLine(number, font, 0, y + font.capHeight() / 2);
            text.baseline.setX(out_.canvas.left() - 7 * s_ - text.width);
            text.colour = mutedInk;
            if (text.baseline.x() < 0 || text.baseline.y() > free)
                text.text.clear();
            else
                free = text.baseline.y() - font.font().pixelSize();
            out_.grid.push_back({y, text});
        }
    }

    void layOutBands() {
        for (const ChartTrendLine& line : model_.trendLines) {
            if (!line.end)
                continue;
            const double high = yOf(std::max(line.start, *line.end));
            const double low = yOf(std::min(line.start, *line.end));
            out_.bands.push_back({QRectF(out_.canvas.left(), high, out_.canvas.width(), low - high),
                                  toColor(line.colour)});
        }
    }

    void layOutMeans() {
        const ChartFont& font = fonts_.get(ChartFace::text, 13, true);
        const double height = std::round(18 * s_);
        std::vector<SpreadItem> wishes;
        for (const ChartTrendLine& line : model_.trendLines) {
            if (line.end)
                continue;
            MeanLine mean{.y = yOf(line.start),
                          .colour = toColor(line.colour),
                          .dashed = line.dashed,
                          .above = line.start > model_.axisMaximum};
            const double left = out_.canvas.right() + 4 * s_;
            const double room = size_.width() - left - 2;
            const QString text = elided(chartText(line.text), font, room - 9 * s_);
            mean.tag.rect = QRectF(left, 0, text.isEmpty() ? 0 : font.width(text) + 9 * s_, height);
            setBoxLines(mean.tag, {text}, font, Qt::black);
            wishes.push_back({mean.y, height});
            out_.means.push_back(std::move(mean));
        }
        std::sort(wishes.begin(), wishes.end(),
                  [](const auto& a, const auto& b) { return a.wanted < b.wanted; });
        std::stable_sort(out_.means.begin(), out_.means.end(),
                         [](const auto& a, const auto& b) { return a.y < b.y; });
        const bool anyAbove = std::any_of(out_.means.begin(), out_.means.end(),
                                          [](const MeanLine& mean) { return mean.above; });
        const double arrow = anyAbove ? 8 * s_ : 0; // on top of a tag
        const auto middles = spreadApart(wishes, 2, arrow, size_.height());
        for (std::size_t i = 0; i < out_.means.size(); ++i)
            placeMeanTag(out_.means[i], std::round(middles[i]), font);
    }

    void placeMeanTag(MeanLine& mean, double middle, const ChartFont& font) const {
        ChartBox& tag = mean.tag;
        tag.rect.moveTop(middle - tag.rect.height() / 2);
        const QString text = tag.lines.front().text;
        const bool hasRoom = tag.rect.bottom() <= size_.height();
        if (!hasRoom) // below all the others: the line stands without it
            tag.rect = QRectF(tag.rect.left(), 0, 0, 0);
        if (text.isEmpty() || !hasRoom)
            tag.lines.clear();
        else
            setBoxLines(tag, {text}, font, Qt::black);
        tag.border = mean.colour;
        tag.borderWidth = 1.4;
        tag.radius = 3 * s_;
    }

    void layOutSeparators() {
        for (const ChartSeparator& separator : model_.separators) {
            const std::size_t position = std::min(separator.position, count_);
            const bool labelled = !chartText(separator.label).isEmpty();
            out_.separators.push_back(
                {.x = std::round(count_ == 0 ? out_.canvas.left() : slotLeft(position)),
                 .top = out_.canvas.top() - (labelled ? arrowRoom_ + 2 * s_ : 0),
                 .bottom = std::min(out_.canvas.bottom() + 4 * s_, size_.height()),
                 .width = separator.thickness * s_,
                 .colour = toColor(separator.colour)});
        }
    }

    // Each label stands right of its line and ends before the next one, or the tags of means,
    // begin.
    void layOutSeparatorTags() {
        const ChartFont& font = fonts_.get(ChartFace::text, 12, true);
        double rightEnd = out_.means.empty() ? size_.width() - 2 : out_.canvas.right();
        for (std::size_t i = out_.separators.size(); i-- > 0;) {
            const QString label = chartText(model_.separators[i].label);
            if (label.isEmpty())
                continue;
            const SeparatorLine& line = out_.separators[i];
            const double left = line.x - 1;
            const QString text = elided(label, font, rightEnd - left - 10 * s_);
            if (text.isEmpty())
                continue;
            ChartBox tag;
            const double height = std::round(16 * s_);
            tag.rect = QRectF(left, std::round(line.top) - height,
                              std::ceil(font.width(text) + 10 * s_), height);
            tag.border = line.colour;
            tag.radius = 2 * s_;
            setBoxLines(tag, {text}, font, Qt::black);
            out_.separatorTags.push_back(tag);
            rightEnd = left - 4;
        }
    }

    [[nodiscard]] std::vector<QRectF> barColumns(std::size_t category) const {
        const auto number = static_cast<double>(model_.series.size());
        const double slot = out_.slotRects[category].width();
        const double gap = slot > 30 ? std::round(2 * s_) : 1;
        const double widest = (56 * number) * s_ + gap * (number - 1);
        const double group = std::min(0.74 * slot, widest);
        const double width = std::max((group - gap * (number - 1)) / number, 0.5);
        const double whole = width > 4 ? std::floor(width) : width;
        const double used = whole * number + gap * (number - 1);
        double x = out_.slotRects[category].center().x() - used / 2;
        if (width > 4)
            x = std::round(x);
        std::vector<QRectF> columns;
        for (std::size_t k = 0; k < model_.series.size(); ++k, x += whole + gap)
            columns.emplace_back(x, out_.canvas.bottom(), whole, 0);
        return columns;
    }

    void layOutSlot(std::size_t category) {
        out_.slotRects.emplace_back(slotLeft(category), out_.canvas.top(),
                                    slotLeft(category + 1) - slotLeft(category),
                                    out_.canvas.height());
        SlotRoom room{.rect = out_.slotRects.back(), .bars = barColumns(category)};
        std::vector<ValueBoxWish> wishes;
        const std::size_t firstBar = out_.bars.size();
        for (std::size_t k = 0; k < model_.series.size(); ++k) {
            const auto& values = model_.series[k].values;
            const ChartValue& value = category < values.size() ? values[category] : noValue_;
            room.bars[k].setTop(yOf(value.value));
            addBar(category, k, value, room.bars[k]);
            const bool wanted = category < values.size() &&
                                (value.shown.value_or(model_.showValues) || isCut(value));
            if (const QString text = valueText(value); wanted && !text.isEmpty())
                wishes.push_back({.bar = k, .text = text, .inside = isCut(value)});
        }
        reserveSeparators(category, room.rect);
        for (ValueBox& placed : placeValueBoxes(wishes, room, fonts_)) {
            placed.box.ground = valueGround(model_);
            for (ChartTextLine& line : placed.box.lines)
                line.colour = valueInk(model_);
            out_.valueBoxes.push_back({firstBar + placed.bar, std::move(placed.box)});
        }
        placeZigzags(firstBar);
    }

    // A bar that is cut always tells its true value, since its height does not.
    [[nodiscard]] QString valueText(const ChartValue& value) const {
        QString number = numberText(value.value);
        if (!value.displayValue)
            return number;
        const QString text = chartText(*value.displayValue);
        return isCut(value) && text != number ? (text + u' ' + number).trimmed() : text;
    }

    void addBar(std::size_t category, std::size_t series, const ChartValue& value,
                const QRectF& rect) {
        QColor fill = value.colour ? toColor(*value.colour) : seriesColor(model_, series);
        const QColor outline = outlineOf(model_, fill);
        fill.setAlphaF(static_cast<float>(model_.series[series].alpha) / 100.0F);
        out_.bars.push_back({.category = category,
                             .series = series,
                             .rect = rect,
                             .fill = fill,
                             .outline = outline,
                             .cut = isCut(value),
                             .toolText = value.toolText});
    }

    void reserveSeparators(std::size_t category, QRectF& room) const {
        double left = 0.5;
        double right = 0.5;
        for (const ChartSeparator& separator : model_.separators) {
            const double half = (separator.thickness / 2.0 + 1.5) * s_;
            if (separator.position == category)
                left = std::max(left, half);
            if (separator.position == category + 1)
                right = std::max(right, half);
        }
        room.adjust(left, 0, -right, 0);
        if (room.width() < 0)
            room.setWidth(0);
    }

    // Below the boxes that stand in the bar.
    void placeZigzags(std::size_t firstBar) {
        for (std::size_t i = firstBar; i < out_.bars.size(); ++i) {
            ColumnBar& bar = out_.bars[i];
            if (!bar.cut)
                continue;
            bar.zigzag = bar.rect.top() + 10 * s_;
            for (const BarBox& box : out_.valueBoxes)
                if (box.bar >= firstBar && box.box.rect.left() < bar.rect.right() &&
                    box.box.rect.right() > bar.rect.left() &&
                    box.box.rect.top() < bar.rect.top() + 40 * s_)
                    bar.zigzag = std::max(bar.zigzag, box.box.rect.bottom() + 8 * s_);
            bar.zigzag = std::round(std::min(bar.zigzag, bar.rect.bottom()));
        }
    }

    void layOutLabels() {
        const double pitch = (labels_.size + 3) * s_;
        for (std::size_t i = 0; i < labels_.labels.size(); ++i) {
            const PlannedLabel& planned = labels_.labels[i];
            const LabelFonts fonts = labelFonts(planned.size, fonts_);
            const double centre = out_.slotRects[i].center().x();
            double baseline = out_.canvas.bottom() + pitch + s_;
            CategoryLabel label;
            for (const LabelLine& line : planned.lines) {
                label.lines.push_back(centredLine(line.text, fonts.of(line), centre, baseline));
                if (line.bracketed)
                    label.lines.back().colour = mutedInk;
                const double width = label.lines.back().width;
                label.rect |=
                    QRectF(centre - width / 2, baseline - labels_.size * s_, width, pitch);
                baseline += pitch;
            }
            if (planned.cut)
                label.fullText = chartText(model_.categories[i]).toStdString();
            out_.labels.push_back(std::move(label));
        }
    }

    void layOutLegend() {
        if (legendHeight_ < 20 * s_)
            return;
        const auto number = static_cast<double>(model_.series.size());
        const double most = (size_.width() - 10 * s_) / number - 34 * s_;
        if (most < 0)
            return; // not even the swatches fit
        double size = 13;
        while (size > 11 && widestName(size) > most)
            size -= 1;
        const ChartFont& font = fonts_.get(ChartFace::text, size, false);
        double total = 0;
        for (std::size_t k = 0; k < model_.series.size(); ++k) {
            QColor fill = seriesColor(model_, k);
            const QColor outline = isPale(fill) ? QColor(outlineInk) : QColor();
            fill.setAlphaF(static_cast<float>(model_.series[k].alpha) / 100.0F);
            const QString name = elided(chartText(model_.series[k].name), font, most);
            const double edge = std::round(13 * s_);
            out_.legend.push_back(
                {.swatch = QRectF(total, std::round(size_.height() - 20 * s_), edge, edge),
                 .fill = fill,
                 .outline = outline,
                 .name = centredLine(name, font, 0, size_.height() - 9 * s_)});
            out_.legend.back().name.baseline.setX(total + 19 * s_);
            total += font.width(name) + 34 * s_;
        }
        const double shift = std::round((size_.width() - total) / 2 + 8 * s_);
        for (LegendEntry& entry : out_.legend) {
            entry.swatch.translate(shift, 0);
            entry.name.baseline.rx() += shift;
        }
    }

    double widestName(double size) {
        const ChartFont& font = fonts_.get(ChartFace::text, size, false);
        double widest = 0;
        for (const ChartSeries& series : model_.series)
            widest = std::max(widest, font.width(chartText(series.name)));
        return widest;
    }

    const ChartModel& model_;
    QSizeF size_;
    double s_;
    ChartFonts fonts_;
    std::size_t count_;
    const ChartValue noValue_{};
    LabelPlan labels_;
    double arrowRoom_ = 0;
    double legendHeight_ = 0;
    ColumnLayout out_;
};

} // namespace

ColumnLayout layOutColumns(const ChartModel& model, const QSizeF& size) {
    return ColumnLayouter(model, size).layOut();
}

} // namespace vorna
