#include "platform/qt/chart_parts.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vorna {
namespace {

double linear(double channel) {
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

struct HeaderLine {
    QString text;
    ChartFace face;
    bool bold;
    double size;
    double baseline; // at scale 1; lower where the letters need more room above it
};

// The largest size from the wanted one down to 10 in which the text fits, else cut at 10.
ChartTextLine fitHeaderLine(const HeaderLine& line, double width, ChartFonts& fonts) {
    constexpr double smallest = 10;
    const double room = std::max(width - 30 * fonts.scale(), 0.0);
    double size = std::max(line.size, smallest);
    while (size > smallest && fonts.get(line.face, size, line.bold).width(line.text) > room)
        size -= 1;
    const ChartFont& font = fonts.get(line.face, size, line.bold);
    const double baseline =
        std::max(line.baseline * fonts.scale(), static_cast<double>(font.font().pixelSize()));
    return centredLine(elided(line.text, font, room), font, width / 2, baseline);
}

// A run of boxes that touch, and where the first one's top would best be.
struct SpreadBlock {
    double wantedSum = 0; // of the tops that its boxes want for the first one
    double height = 0;    // of all its boxes, each with a gap behind it
    std::size_t count = 0;

    [[nodiscard]] double top() const { return wantedSum / static_cast<double>(count); }
};

SpreadBlock joined(const SpreadBlock& upper, const SpreadBlock& lower) {
    return {upper.wantedSum + lower.wantedSum - upper.height * static_cast<double>(lower.count),
            upper.height + lower.height, upper.count + lower.count};
}

} // namespace

QColor toColor(const ChartColour& colour) {
    return QColor(colour.red, colour.green, colour.blue);
}

bool isPale(const QColor& fill) {
    return 1.05 / (luminance(fill) + 0.05) < 1.75;
}

double chartScale(const QSizeF& size) {
    return std::clamp(std::min(size.width() / 745, size.height() / 320), 1.0, 1.5);
}

ChartHeader layOutHeader(const ChartModel& model, double width, ChartFonts& fonts) {
    const QString title = chartText(model.caption);
    const QString subtitle = chartText(model.subcaption);
    ChartHeader header;
    header.title = fitHeaderLine({.text = title,
                                  .face = ChartFace::heading,
                                  .bold = true,
                                  .size = static_cast<double>(model.captionStyle.size.value_or(16)),
                                  .baseline = 24},
                                 width, fonts);
    const double titleEnd = title.isEmpty() ? 4 : header.title.baseline.y() / fonts.scale();
    header.subtitle = fitHeaderLine({.text = subtitle,
                                     .face = ChartFace::text,
                                     .bold = false,
                                     .size = 13,
                                     .baseline = titleEnd + 20},
                                    width, fonts);
    header.subtitle.colour = mutedInk;
    const int lines = (title.isEmpty() ? 0 : 1) + (subtitle.isEmpty() ? 0 : 1);
    const ChartTextLine& last = subtitle.isEmpty() ? header.title : header.subtitle;
    const double below = (lines == 2 ? 6 : 7) * fonts.scale();
    header.bottom = lines == 0 ? 4 * fonts.scale() : last.baseline.y() + below;
    if (header.title.text != title || header.subtitle.text != subtitle)
        header.fullText = title + QLatin1String(lines == 2 ? "\n" : "") + subtitle;
    return header;
}

void drawHeader(QPainter& painter, const ChartHeader& header) {
    drawLine(painter, header.title);
    drawLine(painter, header.subtitle);
}

void setBoxLines(ChartBox& box, const QStringList& texts, const ChartFont& font,
                 const QColor& ink) {
    box.lines.clear();
    if (texts.isEmpty())
        return;
    const double pitch = std::round(font.font().pixelSize() * 1.25);
    const double first = box.rect.center().y() + font.capHeight() / 2 -
                         pitch * static_cast<double>(texts.size() - 1) / 2;
    for (qsizetype i = 0; i < texts.size(); ++i) {
        box.lines.push_back(centredLine(texts[i], font, box.rect.center().x(),
                                        first + pitch * static_cast<double>(i)));
        box.lines.back().colour = ink;
    }
}

void drawBox(QPainter& painter, const ChartBox& box) {
    QRectF rect = box.rect;
    painter.setPen(Qt::NoPen);
    if (box.border.isValid()) {
        painter.setPen(QPen(box.border, box.borderWidth));
        rect.adjust(0.5, 0.5, -0.5, -0.5); // the border falls on whole pixels
    }
    painter.setBrush(box.ground);
    painter.drawRoundedRect(rect, box.radius, box.radius);
    for (const ChartTextLine& line : box.lines)
        drawLine(painter, line);
}

QColor valueGround(const ChartModel& model) {
    return model.valueStyle.ground ? toColor(*model.valueStyle.ground) : QColor(fineInk);
}

QColor valueInk(const ChartModel& model) {
    return model.valueStyle.colour ? toColor(*model.valueStyle.colour) : QColor(Qt::white);
}

std::vector<double> spreadApart(const std::vector<SpreadItem>& items, double gap, double top,
                                double bottom) {
    double heights = 0;
    for (const SpreadItem& item : items)
        heights += item.height;
    if (items.size() > 1)
        gap =
            std::clamp((bottom - top - heights) / static_cast<double>(items.size() - 1), 1.0, gap);

    std::vector<SpreadBlock> blocks;
    for (const SpreadItem& item : items) {
        SpreadBlock block{item.wanted - item.height / 2, item.height + gap, 1};
        while (!blocks.empty() && blocks.back().top() + blocks.back().height > block.top()) {
            block = joined(blocks.back(), block);
            blocks.pop_back();
        }
        blocks.push_back(block);
    }

    double below = 0; // height of this block and all that follow
    for (const SpreadBlock& block : blocks)
        below += block.height;
    std::vector<double> middles;
    double free = top;
    for (const SpreadBlock& block : blocks) {
        double at = std::max(std::min(block.top(), bottom + gap - below), free);
        for (std::size_t i = 0; i < block.count; ++i) {
            const double height = items[middles.size()].height;
            middles.push_back(at + height / 2);
            at += height + gap;
        }
        free = at;
        below -= block.height;
    }
    return middles;
}

} // namespace vorna
