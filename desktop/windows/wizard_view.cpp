#include "acquisition/measurement_wizard.h"
#include "application/main_window.h"
#include "desktop/binder.h"
#include "desktop/card.h"
#include "desktop/picture_view.h"
#include "desktop/texts.h"
#include "desktop/theme.h"
#include "desktop/windows/views.h"
#include "desktop/wizard/action_bar.h"
#include "desktop/wizard/point_boxes.h"
#include "desktop/wizard/point_panel.h"
#include "desktop/wizard/run_panel.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

namespace vorna {
namespace {

constexpr int wizardWidth = 1280;
constexpr int wizardHeight = 800;
constexpr int leastWizardWidth = 700;
constexpr int leastWizardHeight = 520;
// Below these, in pixels of the 15 px body text, the window is narrow or low.
constexpr int narrowWizard = 1100;
constexpr int lowWizard = 700;
// The columns of the boxes and of the run: their share of the width, and its ends.
constexpr double boxesShare = 0.24;
constexpr double leastBoxes = 228;
constexpr double mostBoxes = 306;
constexpr double runShare = 0.2735;
constexpr double leastRun = 250;
constexpr double mostRun = 350;

bool isEnter(const QEvent& event) {
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

class WizardView final : public WindowView {
public:
    WizardView(const Session& session, MeasurementWizard& wizard);

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void takeFirstSize();
    // Whether the key was taken.
    bool pressEnter(QObject* focus);

    MeasurementWizard& wizard_;
    ActionBar* actions_;
    Card* boxes_;
    PointPanel* point_;
    RunPanel* run_;
    bool sized_ = false;
};

WizardView::WizardView(const Session& session, MeasurementWizard& wizard)
    : WindowView(wizard), wizard_(wizard) {
    QVBoxLayout* const lines = column(0);
    setLayout(lines);
    actions_ = new ActionBar(binder(), wizard);
    lines->addWidget(actions_);
    QHBoxLayout* const body = row(16);
    body->setContentsMargins(px(18), px(16), px(18), px(16));
    boxes_ = makePointBoxes(binder(), wizard);
    point_ = new PointPanel(binder(), wizard.point, Texts(session, wizard)("Image1.empty"));
    run_ = new RunPanel(binder(), wizard.run);
    body->addWidget(boxes_);
    body->addWidget(point_, 1);
    body->addWidget(run_);
    lines->addLayout(body, 1);

    // The columns follow the width, so that their present ones are no lower bound.
    setMinimumSize(px(leastWizardWidth), px(leastWizardHeight));
    QPushButton& start = actions_->start();
    connect(new QShortcut(Qt::Key_F5, this), &QShortcut::activated, &start,
            [&start] { start.click(); });
    installEventFilter(this);
    for (QWidget* const child : findChildren<QWidget*>())
        child->installEventFilter(this);
    start.setFocus();
}

void WizardView::showEvent(QShowEvent* event) {
    if (!sized_)
        takeFirstSize();
    sized_ = true;
    WindowView::showEvent(event);
}

void WizardView::takeFirstSize() {
    setFirstSize(wizardWidth, wizardHeight);
    const auto pixels = [](const std::optional<float>& twips, int otherwise, int most) {
        return twips ? std::min(static_cast<int>(*twips / twipsPerPixel), most) : otherwise;
    };
    const QSize room = screen()->availableSize();
    resize(pixels(wizard_.width, width(), room.width()),
           pixels(wizard_.height, height(), room.height()));
}

void WizardView::resizeEvent(QResizeEvent* event) {
    WindowView::resizeEvent(event);
    const auto columnWidth = [this](double share, double least, double most) {
        return std::clamp(static_cast<int>(width() * share), px(least), px(most));
    };
    boxes_->setFixedWidth(columnWidth(boxesShare, leastBoxes, mostBoxes));
    run_->setFixedWidth(columnWidth(runShare, leastRun, mostRun));
    const bool narrow = width() < px(narrowWizard);
    const bool low = height() < px(lowWizard);
    point_->setRoom(narrow, low);
    run_->setLow(low);
}

bool WizardView::eventFilter(QObject* watched, QEvent* event) {
    const auto* const widget = qobject_cast<const QWidget*>(watched);
    if (widget == nullptr || widget->window() != this || !isEnter(*event))
        return WindowView::eventFilter(watched, event);
    // Held down it is one press: one point is skipped, not a row of them.
    return static_cast<QKeyEvent*>(event)->isAutoRepeat() || pressEnter(watched);
}

// Enter presses the button that the keyboard is on; elsewhere it skips the point that is measured,
// or presses the leading button. In the fields of the top strip it does nothing.
bool WizardView::pressEnter(QObject* focus) {
    Control* const control = binder().controlOf(focus);
    const PointState state = wizard_.run.progress.state;
    const bool measures = state == PointState::Waiting || state == PointState::Contact;
    if (control == &wizard_.setChooser || (measures && control == &wizard_.run.startIndex))
        return true;
    auto* const box = dynamic_cast<PointBox*>(control);
    if (auto* const pressed = qobject_cast<QAbstractButton*>(focus); pressed && box == nullptr) {
        pressed->click();
        return true;
    }
    if (measures) {
        call(box != nullptr ? box->enterPressed : wizard_.run.box(1).enterPressed);
        return true;
    }
    if (dynamic_cast<PictureView*>(focus) != nullptr)
        return false;
    if (const Button* const leading = wizard_.leadingAction())
        leading->click();
    return true;
}

} // namespace

std::unique_ptr<WindowView> makeWizardView(const Session& session, MeasurementWizard& window) {
    return std::make_unique<WizardView>(session, window);
}

} // namespace vorna
