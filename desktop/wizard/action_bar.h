// The strip on top of the measurement: set, start index and the actions of the run. Where the room
// ends the actions go below.
#pragma once

#include <QWidget>

class QBoxLayout;
class QPushButton;

namespace vorna {

class Binder;
struct MeasurementWizard;

class ActionBar final : public QWidget {
public:
    ActionBar(Binder& binder, MeasurementWizard& wizard);

    [[nodiscard]] QPushButton& start() const { return *start_; }
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* makeSetGroup(Binder& binder);
    QWidget* makeActions(Binder& binder);
    void showLeading();

    MeasurementWizard& wizard_;
    QBoxLayout* line_;
    QWidget* left_;
    QWidget* right_;
    QPushButton* start_ = nullptr;
    QPushButton* save_ = nullptr;
};

} // namespace vorna
