#include "platform/qt/value_boxes.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vorna {
namespace {

constexpr double normalSize = 12;
constexpr double narrowSize = 11;
constexpr double smallestSize = 9;

// A number that is cut reads as another number.
bool isNumber(const QString& text) {
    bool number = false;
    static_cast<void>(text.toDouble(&number));
    return number;
}

class SlotPlacer {
public:
    SlotPlacer(const SlotRoom& room, ChartFonts& fonts)
        : room_(room), fonts_(fonts), scale_(fonts.scale()), height_(std::round(16 * scale_)) {}

    std::vector<ValueBox> place(const std::vector<ValueBoxWish>& wishes) {
        for (const ValueBoxWish& wish : wishes)
            if (Draft draft = draftOf(wish); !draft.text.isEmpty())
                drafts_.push_back(std::move(draft));
        if (drafts_.size() == 2 && overlap(drafts_[0], drafts_[1]))
            separatePair(drafts_[0], drafts_[1]);
        dropMisplaced();
        std::vector<ValueBox> boxes;
        for (const Draft& draft : drafts_)
            boxes.push_back(finished(draft));
        return boxes;
    }

private:
    struct Draft {
        std::size_t bar = 0;
        QString text;
        double size = normalSize;
        double width = 0;
        double centre = 0;
        double top = 0;
    };

    const ChartFont& font(const Draft& draft) {
        return fonts_.get(ChartFace::text, draft.size, true);
    }

    void resize(Draft& draft, double size) {
        draft.size = size;
        draft.width = std::ceil(font(draft).width(draft.text) + 4 * scale_);
    }

    [[nodiscard]] bool overlap(const Draft& a, const Draft& b) const {
        return std::abs(a.top - b.top) < height_ + 1 &&
               std::abs(a.centre - b.centre) < (a.width + b.width) / 2 + 0.5;
    }

    void clamp(Draft& draft) const {
        draft.centre = std::clamp(
            draft.centre, room_.rect.left() + draft.width / 2,
            std::max(room_.rect.right() - draft.width / 2, room_.rect.left() + draft.width / 2));
    }

    Draft draftOf(const ValueBoxWish& wish) {
        Draft draft{.bar = wish.bar, .text = wish.text};
        resize(draft, normalSize);
        while (draft.width > room_.rect.width() && draft.size > smallestSize)
            resize(draft, draft.size - 1);
        if (draft.width > room_.rect.width() && isNumber(draft.text)) {
            draft.text.clear(); // no box: the tool text tells the value
            return draft;
        }
        if (draft.width > room_.rect.width()) {
            draft.text = elided(draft.text, font(draft), room_.rect.width() - 4 * scale_ - 1);
            resize(draft, draft.size);
        }
        const QRectF& bar = room_.bars[wish.bar];
        draft.top = std::round(bar.top() - 2 * scale_ - height_);
        if (wish.inside || draft.top < room_.rect.top() + 1)
            draft.top = std::round(bar.top() + 3 * scale_);
        growOutwards(draft);
        return draft;
    }

    // True when a bar beside this box's own one reaches up to the box.
    [[nodiscard]] bool reaches(std::size_t neighbour, const Draft& draft) const {
        return neighbour < room_.bars.size() && room_.bars[neighbour].top() < draft.top + height_;
    }

    void growOutwards(Draft& draft) {
        const QRectF& bar = room_.bars[draft.bar];
        const bool first = draft.bar == 0;
        const bool last = draft.bar + 1 == room_.bars.size();
        draft.centre = bar.center().x();
        const bool hit = draft.width > bar.width() && first != last &&
                         reaches(first ? draft.bar + 1 : draft.bar - 1, draft);
        if (hit) {
            const double outwards =
                first ? bar.right() - room_.rect.left() : room_.rect.right() - bar.left();
            if (draft.width > outwards && draft.size > narrowSize)
                resize(draft, narrowSize);
            draft.centre = first ? bar.right() - draft.width / 2 : bar.left() + draft.width / 2;
        }
        clamp(draft);
    }

    void separatePair(Draft& left, Draft& right) {
        const double room = room_.rect.width();
        const double sizes[] = {left.size, right.size};
        if (left.width + right.width + 1 > room) {
            resize(left, std::min(left.size, narrowSize));
            resize(right, std::min(right.size, narrowSize));
        }
        if (left.width + right.width + 1 <= room) {
            const double border =
                std::clamp((left.centre + right.centre) / 2, room_.rect.left() + left.width + 0.5,
                           room_.rect.right() - right.width - 0.5);
            left.centre = std::min(left.centre, border - left.width / 2 - 0.5);
            right.centre = std::max(right.centre, border + right.width / 2 + 0.5);
            clamp(left);
            clamp(right);
            return;
        }
        resize(left, sizes[0]);
        resize(right, sizes[1]);
        clamp(left);
        clamp(right);
        const bool leftAbove = room_.bars[left.bar].top() < room_.bars[right.bar].top();
        stack(leftAbove ? left : right, leftAbove ? right : left);
    }

    void stack(Draft& upper, Draft& lower) const {
        const double pitch = height_ + std::round(2 * scale_);
        upper.top = std::min(upper.top, lower.top - pitch);
        if (upper.top < room_.rect.top() + 1) {
            upper.top = std::ceil(room_.rect.top() + 1);
            lower.top = upper.top + pitch;
        }
    }

    // The last resort, for documents with many series and for tiny drawings.
    void dropMisplaced() {
        std::vector<Draft> kept;
        for (const Draft& draft : drafts_) {
            const bool fits = !draft.text.isEmpty() && draft.width <= room_.rect.width() &&
                              draft.top >= room_.rect.top() &&
                              draft.top + height_ <= room_.rect.bottom();
            if (fits && std::none_of(kept.begin(), kept.end(),
                                     [&](const Draft& other) { return overlap(draft, other); }))
                kept.push_back(draft);
        }
        drafts_ = std::move(kept);
    }

    ValueBox finished(const Draft& draft) {
        ValueBox result{.bar = draft.bar, .box = {}};
        result.box.rect = QRectF(draft.centre - draft.width / 2, draft.top, draft.width, height_);
        result.box.radius = 2 * scale_;
        setBoxLines(result.box, {draft.text}, font(draft), Qt::white);
        return result;
    }

    const SlotRoom& room_;
    ChartFonts& fonts_;
    double scale_;
    double height_;
    std::vector<Draft> drafts_;
};

} // namespace

std::vector<ValueBox> placeValueBoxes(const std::vector<ValueBoxWish>& wishes, const SlotRoom& room,
                                      ChartFonts& fonts) {
    return SlotPlacer(room, fonts).place(wishes);
}

} // namespace vorna
