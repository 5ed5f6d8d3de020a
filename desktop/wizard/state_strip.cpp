#include "desktop/wizard/state_strip.h"

#include "acquisition/guided_run.h"
#include "desktop/binder.h"
#include "desktop/card.h"
#include "desktop/theme.h"

#include <QPainter>
#include <QVBoxLayout>

namespace vorna {
namespace {

constexpr double stateHeight = 50;
constexpr double stateCorner = 8;
constexpr double signShare = 1.3;

struct StripLook {
    QColor ground;
    QColor outline;
    QColor ink;
    const char* sign;
};

class StateText final : public FittedLabel {
public:
    explicit StateText(const StripLook& look)
        : FittedLabel(
              {.largest = 19, .smallest = 11, .bold = true, .ink = look.ink, .sign = signShare},
              look.sign),
          look_(look) {
        setAlignment(Qt::AlignCenter);
        setContentsMargins(px(6), 0, px(6), 0);
        setFixedHeight(px(stateHeight));
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(look_.outline);
        painter.setBrush(look_.ground);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), stateCorner,
                                stateCorner);
        painter.end();
        FittedLabel::paintEvent(event);
    }

private:
    StripLook look_;
};

} // namespace

StateStrip::StateStrip(Binder& binder, RunControls& run) {
    QVBoxLayout* const lines = column(0);
    setLayout(lines);
    const Theme& t = theme();
    const auto add = [&](Label& text, const StripLook& look) {
        auto* const shown = new StateText(look);
        binder.bind(text, *shown);
        lines->addWidget(shown);
    };
    add(run.ready, {t.raised, t.line, t.ink2, "probe"});
    add(run.applyProbe, {t.surface, t.edge, t.ink, "ring"});
    add(run.holdProbe, {t.contact, t.contact, t.contactInk, "probe"});
    add(run.pointMeasured, {t.done, t.edge, t.ink, "check"});
    setFixedHeight(px(stateHeight));
}

} // namespace vorna
