// The cross diagram of the balance: a figure that faces the viewer, the two axes across it with
// their ends named, and the marker with a dashed line to either axis. Always square.
#pragma once

#include "evaluation/balance_window.h"

#include <QString>
#include <QWidget>

#include <optional>

namespace vorna {

class CrossDiagram final : public QWidget {
public:
    struct Ends {
        QString left, right, top, bottom;
    };

    explicit CrossDiagram(QWidget* parent = nullptr);

    void setEnds(Ends ends);
    // None draws no marker; one beyond the square stands at its edge.
    void setMarker(const std::optional<CrossMarker>& marker);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    // The room that the names take at the sides, and above and below.
    [[nodiscard]] QSizeF namesRoom() const;
    void paintNames(QPainter& painter, const QRectF& square) const;
    void paintMarker(QPainter& painter, const QRectF& square) const;

    Ends ends_;
    std::optional<CrossMarker> marker_;
};

} // namespace vorna
