#include "platform/qt/pie_chart.h"
#include "platform/qt/pie_labels.h"
#include "platform/qt/pie_leaders.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace vorna {
namespace {

using std::numbers::pi;

constexpr std::array<QRgb, 8> slicePalette{0xff0082fb, 0xfffb5f55, 0xff17ab0c, 0xffff9900,
                                           0xff7a5cd6, 0xff00aadb, 0xffdbdb26, 0xff858282};

// What the labels leave of the radius that the pie would have without them, at least.
constexpr double smallestShare = 0.33;

// A slice with less of the rim than this is not pulled out, and no leader points at it.
constexpr double thinnest = 4;

QPointF direction(double angle) {
    return {std::cos(angle), -std::sin(angle)};
}

// The texts grow with both sides of the drawing, since labels stand beside the pie.
double pieScale(const QSizeF& size) {
    return std::clamp(std::min((size.width() + size.height()) / 1065, size.height() / 320), 1.0,
                      1.5);
}

class PieLayouter {
public:
    PieLayouter(const ChartModel& model, const QSizeF& size, double scale)
        : model_(model), size_(size), s_(scale),
          fonts_(model.baseFamily, model.captionStyle.family, scale), texts_(pieLabelTexts(model)) {
        out_.scale = scale;
        out_.header = layOutHeader(model, size.width(), fonts_);
        top_ = out_.header.bottom + 6 * s_;
        bottom_ = size.height() - 6 * s_;
        cutAngles();
        chooseSetting();
    }

    // True when the labels leave the pie a fair share of the drawing.
    [[nodiscard]] bool isRoomy() const { return radius_ >= 0.55 * roomRadius(); }

    // A leader without a clear way tries the other bend and then gives way to a sample of the
    // slice's colour.
    PieLayout layOut() {
        for (;;) {
            place();
            const std::vector<std::size_t> entangled = entangledSlices(out_);
            if (entangled.empty())
                return std::move(out_);
            for (const std::size_t slice : entangled)
                links_[slice] =
                    links_[slice] == Link::roundBend ? Link::straightBend : Link::sample;
            chooseSetting();
        }
    }

private:
    // What ties a label to its slice: a leader that bends on a circle round the pie, one that
    // leaves the rim at a right angle, or a sample of the colour.
    enum class Link { roundBend, straightBend, sample };

    // A label on its way to its place; `angle` is where its leader leaves the rim.
    struct Draft {
        std::size_t slice = 0;
        double angle = 0;
        double height = 0;
        double middle = 0; // of the box, from the pie's centre upwards
    };

    [[nodiscard]] double edge() const { return 6 * s_; }
    // From the rim of a pulled slice to the circle on which leaders bend, and on to the boxes.
    [[nodiscard]] double bendGap() const { return 13 * s_; }
    [[nodiscard]] double ring() const { return pull_ + bendGap() + 10 * s_; }

    [[nodiscard]] double roomRadius() const {
        const double high = (bottom_ - top_) / 2 - pull_ - 12 * s_;
        return std::min(high, size_.width() / 2 - pull_ - edge());
    }

    void place() {
        const double reach = radius_ + ring();
        const double left = sideWidth(false) + edge() + reach;
        const double right = size_.width() - sideWidth(true) - edge() - reach;
        out_.radius = radius_;
        out_.centre =
            QPointF(std::clamp(size_.width() / 2, std::min(left, right), std::max(left, right)),
                    (top_ + bottom_) / 2);
        placeSlices();
        out_.labels.clear();
        for (const bool onRight : {false, true})
            placeSide(onRight);
    }

    void cutAngles() {
        double total = 0;
        for (const ChartValue& slice : model_.slices)
            total += std::max(slice.value, 0.0);
        out_.empty = total <= 0;
        double angle = model_.startAngle * pi / 180;
        for (std::size_t i = 0; i < model_.slices.size(); ++i) {
            const ChartValue& value = model_.slices[i];
            const double part = out_.empty ? 1.0 / static_cast<double>(model_.slices.size())
                                           : std::max(value.value, 0.0) / total;
            QColor fill = value.colour ? toColor(*value.colour)
                                       : QColor(slicePalette[i % slicePalette.size()]);
            out_.slices.push_back({.from = angle,
                                   .span = part * 2 * pi,
                                   .apex = {},
                                   .shape = {},
                                   .fill = fill,
                                   .outlined = isPale(fill),
                                   .toolText = value.toolText});
            angle += part * 2 * pi;
            links_.push_back(isThin(i) ? Link::sample : Link::roundBend);
        }
        for (std::size_t i = 0; i < out_.slices.size(); ++i)
            if (isPulled(i))
                pull_ = model_.slicingDistance * s_;
        pull_ = std::min(pull_, 0.12 * std::max(bottom_ - top_, 0.0));
    }

    [[nodiscard]] bool isThin(std::size_t slice) const {
        return out_.empty || out_.slices[slice].span * roomRadius() < thinnest * s_;
    }

    [[nodiscard]] bool isPulled(std::size_t slice) const {
        return model_.slices[slice].sliced && !isThin(slice) && !out_.slices[slice].isWhole();
    }

    [[nodiscard]] bool isOnRight(std::size_t slice) const {
        return std::cos(out_.slices[slice].middle()) > -1e-9;
    }

    // The first setting that leaves the pie most of its room, else the one that leaves the most.
    void chooseSetting() {
        constexpr std::array<PieLabelSetting, 6> settings{
            {{12, 1}, {12, 2}, {12, 3}, {11, 2}, {11, 3}, {10, 4}}};
        double best = -1;
        PieLabelSetting chosen = settings.front();
        for (const PieLabelSetting& setting : settings) {
            useSetting(setting);
            const double radius = radiusBesideLabels();
            if (radius > best * 1.1) {
                best = radius;
                chosen = setting;
            }
            if (best >= 0.6 * roomRadius())
                break;
        }
        useSetting(chosen);
        if (best < smallestShare * roomRadius())
            shortenLabels();
        radius_ = std::max(radiusBesideLabels(), 1.0);
    }

    void useSetting(const PieLabelSetting& setting) {
        setting_ = setting;
        lines_ = setPieLabels(texts_, setting, fonts_);
    }

    const ChartFont& font() { return fonts_.get(ChartFace::text, setting_.size, true); }

    double widthOf(std::size_t slice) {
        double widest = 0;
        for (const QString& line : lines_[slice])
            widest = std::max(widest, font().width(line));
        return lines_[slice].isEmpty() ? 0 : std::ceil(widest + 10 * s_ + sampleRoom(slice));
    }

    [[nodiscard]] bool hasSample(std::size_t slice) const { return links_[slice] == Link::sample; }

    [[nodiscard]] double sampleRoom(std::size_t slice) const {
        return hasSample(slice) ? 13 * s_ : 0;
    }

    double heightOf(const QStringList& lines) {
        const double pitch = std::round(font().font().pixelSize() * 1.25);
        return std::round(17 * s_) + pitch * static_cast<double>(lines.size() - 1);
    }

    double sideWidth(bool onRight) {
        double widest = 0;
        for (std::size_t i = 0; i < lines_.size(); ++i)
            if (isOnRight(i) == onRight)
                widest = std::max(widest, widthOf(i));
        return widest;
    }

    double radiusBesideLabels() {
        const double sides = sideWidth(false) + sideWidth(true);
        if (sides <= 0)
            return roomRadius();
        return std::min((size_.width() - sides - 2 * edge()) / 2 - ring(), roomRadius());
    }

    // Cuts the labels, in their middle to keep the numbers; in a drawing too small for that, there
    // are none.
    void shortenLabels() {
        const double wanted = smallestShare * roomRadius();
        const double width = size_.width() / 2 - edge() - ring() - wanted - 23 * s_;
        for (QStringList& lines : lines_)
            for (QString& line : lines)
                line = elided(line, font(), width, Qt::ElideMiddle);
        for (QStringList& lines : lines_)
            if (width < 14 * s_ || lines.contains(QString()))
                lines.clear();
    }

    void placeSlices() {
        for (std::size_t i = 0; i < out_.slices.size(); ++i) {
            PieSlice& slice = out_.slices[i];
            slice.apex = out_.centre;
            slice.shape.clear();
            if (isPulled(i))
                slice.apex += direction(slice.middle()) * pull_;
            if (out_.empty || slice.span <= 0)
                continue;
            const QRectF circle(slice.apex.x() - radius_, slice.apex.y() - radius_, 2 * radius_,
                                2 * radius_);
            if (slice.isWhole()) {
                slice.shape.addEllipse(circle);
                continue;
            }
            slice.shape.moveTo(slice.apex);
            slice.shape.arcTo(circle, slice.from * 180 / pi, slice.span * 180 / pi);
            slice.shape.closeSubpath();
        }
    }

    void placeSide(bool onRight) {
        std::vector<Draft> drafts = draftsOf(onRight);
        dropSmallest(drafts);
        spreadDots(drafts, onRight);
        spreadBoxes(drafts);
        for (const Draft& draft : drafts)
            addLabel(draft, onRight);
    }

    // From the top of the pie down; of slices without value in the order that the others have.
    std::vector<Draft> draftsOf(bool onRight) {
        std::vector<Draft> drafts;
        for (std::size_t i = 0; i < lines_.size(); ++i)
            if (isOnRight(i) == onRight && !lines_[i].isEmpty())
                drafts.push_back(
                    {.slice = i, .angle = out_.slices[i].middle(), .height = heightOf(lines_[i])});
        if (onRight)
            std::reverse(drafts.begin(), drafts.end());
        std::stable_sort(drafts.begin(), drafts.end(), [&](const Draft& a, const Draft& b) {
            return fromTop(a.angle, onRight) < fromTop(b.angle, onRight);
        });
        return drafts;
    }

    // The angle between twelve o'clock and this one, measured on its own side: 0 to pi.
    static double fromTop(double angle, bool onRight) {
        const double turned = std::remainder(onRight ? pi / 2 - angle : angle - pi / 2, 2 * pi);
        return std::abs(turned) > pi - 1e-6 ? pi : std::max(turned, 0.0);
    }

    void dropSmallest(std::vector<Draft>& drafts) const {
        const auto needed = [&] {
            double height = 0;
            for (const Draft& draft : drafts)
                height += draft.height + 1;
            return height;
        };
        while (!drafts.empty() && needed() > bottom_ - top_)
            drafts.erase(
                std::min_element(drafts.begin(), drafts.end(), [&](const Draft& a, const Draft& b) {
                    return model_.slices[a.slice].value < model_.slices[b.slice].value;
                }));
    }

    // Leaders of thin slices leave the rim a little apart from each other.
    void spreadDots(std::vector<Draft>& drafts, bool onRight) const {
        std::vector<SpreadItem> items;
        std::vector<Draft*> leading;
        for (Draft& draft : drafts) {
            if (hasSample(draft.slice))
                continue;
            items.push_back({.wanted = fromTop(draft.angle, onRight) * radius_, .height = 0});
            leading.push_back(&draft);
        }
        const auto arcs = spreadApart(items, 5 * s_, 0, pi * radius_);
        for (std::size_t i = 0; i < leading.size(); ++i) {
            const double turned = arcs[i] / radius_;
            leading[i]->angle = onRight ? pi / 2 - turned : pi / 2 + turned;
        }
    }

    void spreadBoxes(std::vector<Draft>& drafts) const {
        const double bend = radius_ + pull_ + bendGap();
        std::vector<SpreadItem> items;
        items.reserve(drafts.size());
        for (const Draft& draft : drafts)
            items.push_back(
                {.wanted = out_.centre.y() - bend * std::sin(draft.angle), .height = draft.height});
        const auto middles = spreadApart(items, 5 * s_, top_, bottom_);
        for (std::size_t i = 0; i < drafts.size(); ++i)
            drafts[i].middle = out_.centre.y() - middles[i];
    }

    void addLabel(const Draft& draft, bool onRight) {
        const QStringList& lines = lines_[draft.slice];
        const double width = widthOf(draft.slice);
        const double away = radius_ + ring();
        const double left = onRight ? out_.centre.x() + away : out_.centre.x() - away - width;
        PieLabel label{.slice = draft.slice, .box = {}, .leader = {}, .sample = {}};
        ChartBox& box = label.box;
        box.rect = QRectF(left, std::round(out_.centre.y() - draft.middle - draft.height / 2),
                          width, draft.height);
        box.ground = valueGround(model_);
        box.radius = 2 * s_;
        setBoxLines(box, lines, font(), valueInk(model_));
        for (ChartTextLine& line : box.lines)
            line.baseline.rx() += sampleRoom(draft.slice) / 2;
        const double middle = box.rect.center().y();
        if (hasSample(draft.slice))
            label.sample = QRectF(left + 5 * s_, middle - 5 * s_, 10 * s_, 10 * s_);
        else
            label.leader = leaderOf(draft, onRight, QPointF(onRight ? left : left + width, middle));
        out_.labels.push_back(std::move(label));
    }

    // From the dot at the rim over one bend to the box, the last part horizontal.
    [[nodiscard]] QPolygonF leaderOf(const Draft& draft, bool onRight, const QPointF& end) const {
        const double side = onRight ? 1 : -1;
        const QPointF dot =
            out_.slices[draft.slice].apex + direction(draft.angle) * (radius_ + 2.5 * s_);
        const QPointF fromCentre((dot.x() - out_.centre.x()) * side, out_.centre.y() - dot.y());
        const double height = out_.centre.y() - end.y();
        const double x = links_[draft.slice] == Link::straightBend
                             ? straightBend(draft, fromCentre, height)
                             : roundBend(draft, fromCentre, height);
        const double furthest = radius_ + ring() - 4 * s_;
        return {{dot, QPointF(out_.centre.x() + side * std::min(x, furthest), end.y()), end}};
    }

    // The bend's distance from the vertical through the centre, for a dot and a height relative to
    // the centre (outwards and upwards): on a circle round the whole pie, but never nearer than the
    // dot, and so that the slanting part stays off the rim.
    [[nodiscard]] double roundBend(const Draft& draft, const QPointF& dot, double height) const {
        const double circle = radius_ + pull_ + bendGap();
        const double x =
            std::max(std::sqrt(std::max(circle * circle - height * height, 0.0)), dot.x());
        const double across = std::abs(std::cos(draft.angle));
        const double up = std::sin(draft.angle);
        if (across < 0.05)
            return x;
        return std::max(x, (dot.x() * across + dot.y() * up + 1 - height * up) / across);
    }

    // As above, where the line from the centre through the dot comes to that height.
    [[nodiscard]] static double straightBend(const Draft& draft, const QPointF& dot,
                                             double height) {
        const double up = std::sin(draft.angle);
        const double rise = (height - dot.y()) / (std::abs(up) < 0.05 ? 0.05 : up);
        return dot.x() + std::max(rise, 0.0) * std::abs(std::cos(draft.angle));
    }

    const ChartModel& model_;
    QSizeF size_;
    double s_;
    ChartFonts fonts_;
    std::vector<QString> texts_;
    std::vector<QStringList> lines_; // of each slice's label, as set
    std::vector<Link> links_;
    PieLabelSetting setting_;
    double top_ = 0;
    double bottom_ = 0;
    double pull_ = 0;
    double radius_ = 1;
    PieLayout out_;
};

} // namespace

PieLayout layOutPie(const ChartModel& model, const QSizeF& size) {
    for (double scale = pieScale(size); scale > 1; scale -= 0.1) {
        PieLayouter layouter(model, size, scale);
        if (layouter.isRoomy())
            return layouter.layOut();
    }
    return PieLayouter(model, size, 1).layOut();
}

} // namespace vorna
