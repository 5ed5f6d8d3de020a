#include "platform/qt/category_labels.h"

#include <algorithm>

namespace vorna {
namespace {

constexpr double small = 11;   // the smallest type of whole words
constexpr double smallest = 9; // and of broken ones
constexpr std::size_t mostRows = 3;
constexpr std::size_t fewOf = 6; // one label in so many may be smaller than the rest

class LabelPlanner {
public:
    LabelPlanner(const std::vector<QString>& labels, double width, ChartFonts& fonts)
        : labels_(labels), width_(width), fonts_(fonts) {}

    // True when all but a few labels fit at this size in so many lines, and those few do in a
    // smaller one.
    bool planWords(double size, std::size_t rows) {
        startPlan(size);
        std::size_t tooLong = 0;
        for (std::size_t i = 0; i < labels_.size(); ++i) {
            PlannedLabel& label = plan_.labels[i];
            if (fits(label, rows))
                continue;
            ++tooLong;
            for (double less = size - 1; less >= small && !fits(label, rows); less -= 1)
                label = setLabel(labels_[i], less, {.splitBrackets = split_});
            if (!fits(label, rows))
                return false;
        }
        return tooLong == 0 || tooLong * fewOf <= plan_.labels.size();
    }

    // True when all labels fit at this size in three lines of broken words.
    bool planBrokenWords(double size) {
        startPlan(size);
        for (std::size_t i = 0; i < labels_.size(); ++i)
            plan_.labels[i] =
                setLabel(labels_[i], size, {.breakWords = true, .splitBrackets = split_});
        return std::all_of(plan_.labels.begin(), plan_.labels.end(),
                           [&](const PlannedLabel& label) { return fits(label, mostRows); });
    }

    void cutDown() {
        for (PlannedLabel& label : plan_.labels) {
            const LabelFonts fonts = labelFonts(label.size, fonts_);
            if (label.lines.size() > mostRows) {
                label.lines.resize(mostRows);
                label.lines.back().text += QChar(0x2026);
                label.cut = true;
            }
            for (LabelLine& line : label.lines) {
                const QString whole = line.text;
                line.text = elided(whole, fonts.of(line), width_);
                label.cut = label.cut || line.text != whole;
            }
        }
    }

    LabelPlan finish() {
        for (const PlannedLabel& label : plan_.labels)
            plan_.rows = std::max(plan_.rows, label.lines.size());
        return std::move(plan_);
    }

private:
    // Where one label splits at its bracket, all do, for the look of the row.
    void startPlan(double size) {
        const ChartFont& font = labelFonts(size, fonts_).main;
        split_ = std::any_of(labels_.begin(), labels_.end(), [&](const QString& label) {
            return label.contains(u" (") && font.width(label) > width_;
        });
        plan_ = {.size = size};
        for (const QString& label : labels_)
            plan_.labels.push_back(setLabel(label, size, {.splitBrackets = split_}));
    }

    PlannedLabel setLabel(const QString& text, double size, const WrapRules& rules) {
        return {.lines = wrapped(text, labelFonts(size, fonts_), width_, rules), .size = size};
    }

    bool fits(const PlannedLabel& label, std::size_t rows) {
        const LabelFonts fonts = labelFonts(label.size, fonts_);
        return label.lines.size() <= rows &&
               std::all_of(label.lines.begin(), label.lines.end(), [&](const LabelLine& line) {
                   return fonts.of(line).width(line.text) <= width_;
               });
    }

    const std::vector<QString>& labels_;
    double width_;
    ChartFonts& fonts_;
    bool split_ = false;
    LabelPlan plan_;
};

} // namespace

LabelPlan planLabels(const std::vector<QString>& labels, const LabelRoom& room, ChartFonts& fonts) {
    LabelPlanner planner(labels, room.width, fonts);
    for (double size = std::max<double>(room.largest, small); size >= small; size -= 1)
        if (planner.planWords(size, 1) || planner.planWords(size, 2))
            return planner.finish();
    for (double size = small; size > smallest; size -= 1)
        if (planner.planBrokenWords(size))
            return planner.finish();
    if (!planner.planBrokenWords(smallest))
        planner.cutDown();
    return planner.finish();
}

LabelFonts labelFonts(double size, ChartFonts& fonts) {
    const double bracketSize = std::min(size, std::clamp(size - 1, 11.0, 12.0));
    return {fonts.get(ChartFace::text, size, false),
            fonts.get(ChartFace::text, bracketSize, false)};
}

} // namespace vorna
