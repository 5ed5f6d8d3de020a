#include "platform/qt/category_labels.h"

#include <algorithm>

namespace vorna {
namespace {

constexpr double small = 11;   // the smallest type of whole words
constexpr double smallest = 9; // and of broken ones
constexpr std::size_t mostRows = 3;

class LabelPlanner {
public:
    LabelPlanner(const std::vector<QString>& labels, double width, ChartFonts& fonts)
        : labels_(labels), width_(width), fonts_(fonts) {}

    LabelPlan planAt(double size, bool breakWords) {
        LabelPlan plan;
        plan.size = size;
        plan.bracketSize = std::min(size, std::clamp(size - 1, 11.0, 12.0));
        plan.cut.assign(labels_.size(), false);
        const LabelFonts fonts = labelFonts(plan, fonts_);
        for (const QString& label : labels_) {
            plan.lines.push_back(wrapped(label, fonts, width_, breakWords));
            plan.rows = std::max(plan.rows, plan.lines.back().size());
        }
        return plan;
    }

    bool fits(const LabelPlan& plan) {
        const LabelFonts fonts = labelFonts(plan, fonts_);
        const auto isNarrow = [&](const LabelLine& line) {
            return fonts.of(line).width(line.text) <= width_;
        };
        return std::all_of(plan.lines.begin(), plan.lines.end(), [&](const auto& lines) {
            return std::all_of(lines.begin(), lines.end(), isNarrow);
        });
    }

    void cutDown(LabelPlan& plan) {
        const LabelFonts fonts = labelFonts(plan, fonts_);
        for (std::size_t i = 0; i < plan.lines.size(); ++i) {
            auto& lines = plan.lines[i];
            if (lines.size() > mostRows) {
                lines.resize(mostRows);
                lines.back().text += QChar(0x2026);
                plan.cut[i] = true;
            }
            for (LabelLine& line : lines) {
                const QString whole = line.text;
                line.text = elided(whole, fonts.of(line), width_);
                plan.cut[i] = plan.cut[i] || line.text != whole;
            }
        }
        plan.rows = std::min(plan.rows, mostRows);
    }

private:
    const std::vector<QString>& labels_;
    double width_;
    ChartFonts& fonts_;
};

} // namespace

LabelPlan planLabels(const std::vector<QString>& labels, const LabelRoom& room, ChartFonts& fonts) {
    LabelPlanner planner(labels, room.width, fonts);
    for (double size = std::max<double>(room.largest, small); size >= small; size -= 1)
        if (LabelPlan plan = planner.planAt(size, false); plan.rows <= 2 && planner.fits(plan))
            return plan;
    for (double size = small; size > smallest; size -= 1)
        if (LabelPlan plan = planner.planAt(size, true);
            plan.rows <= mostRows && planner.fits(plan))
            return plan;
    LabelPlan plan = planner.planAt(smallest, true);
    planner.cutDown(plan);
    return plan;
}

LabelFonts labelFonts(const LabelPlan& plan, ChartFonts& fonts) {
    return {fonts.get(ChartFace::text, plan.size, false),
            fonts.get(ChartFace::text, plan.bracketSize, false)};
}

} // namespace vorna
