// The box that tells how a calibration stands: in words, by an icon and by a tint.
#pragma once

#include "core/window.h"

#include <QFrame>

class QLabel;

namespace vorna {

class Binder;

class StateBox final : public QFrame {
public:
    StateBox(Binder& binder, TextBox& box);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showState();

    TextBox& box_;
    QLabel* sign_;
    QLabel* words_;
};

} // namespace vorna
