// The card with the 24 boxes of the points, laid out as a body: a meridian's name between its left
// and its right box. Each box tells by ground, outline and sign how its point stands.
#pragma once

#include "acquisition/guided_run.h"

#include <QAbstractButton>

namespace vorna {

class Binder;
class Card;
struct BoxLook;
struct MeasurementWizard;

// One box. A press shows its point; the measuring goes on with the current one.
class PointBoxView final : public QAbstractButton {
public:
    // Shows the box of a run. Both must outlive it.
    PointBoxView(const PointBox& box, const PointProgress& progress);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void paintContent(QPainter& painter, const QRectF& box, const BoxLook& look) const;

    const PointBox& box_;
    const PointProgress& progress_;
    bool keyboardRing_ = false; // the user came by key; the run's own focus has no ring
};

Card* makePointBoxes(Binder& binder, MeasurementWizard& wizard);

} // namespace vorna
