// The one binder between a window's view model and its widgets. It carries every property of a
// control to its widget, and the user's actions back to the control's handlers. Changes are shown
// together when the event loop comes to them, so that a list filled row by row is laid out once.
#pragma once

#include "core/window.h"

#include <QObject>
#include <QSet>
#include <QString>

#include <functional>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

class QAbstractButton;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QWidget;

namespace vorna {

class ChartView;
class ListTable;
class PictureView;
class TextView;

class Binder final : public QObject {
public:
    // Watches the window until it goes. The window and the bound widgets must outlive it, or go
    // with it.
    explicit Binder(Window& window);
    Binder(const Binder&) = delete;
    Binder& operator=(const Binder&) = delete;
    ~Binder() override;

    void bind(Label& control, QLabel& widget);
    void bind(Button& control, QAbstractButton& widget);
    // A press that does not make the button the active control, by mouse or key.
    void bindPassive(Button& control, QAbstractButton& widget);
    void bind(CheckBox& control, QAbstractButton& widget);
    void bind(TextBox& control, QLineEdit& widget);
    void bind(TextBox& control, QPlainTextEdit& widget);
    // Shown, not edited.
    void bind(TextBox& control, TextView& widget);
    void bind(MaskedBox& control, QLineEdit& widget);
    void bind(ComboBox& control, QComboBox& widget);
    void bind(ListView& control, ListTable& widget);
    void bind(Picture& control, PictureView& widget);
    void bind(ProgressBar& control, QProgressBar& widget);
    void bind(ChartControl& control, ChartView& widget);
    // Name, visibility and whether it is enabled.
    void bind(Control& control, QWidget& widget);

    // Called once now and after every change of the control.
    void onChange(Control& control, std::function<void()> show);
    // Called after a change of the window's caption or when it is closed.
    std::function<void()> windowChanged;

    // Buttons bound from here on share no Alt key among each other; those of another page may.
    void beginPage() { page_ = std::make_shared<AltKeys>(); }

    // Shows at once what has changed.
    void showChanges();

    // The control of a widget; null when none is bound to it.
    [[nodiscard]] Control* controlOf(const QObject* widget) const;
    [[nodiscard]] QWidget* widgetOf(const Control& control) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void note(Control* control);
    using AltKeys = QSet<QChar>; // of the buttons of a page
    void bindButton(CaptionedControl& control, QAbstractButton& widget);

    Window& window_;
    std::unordered_map<const Control*, std::vector<std::function<void()>>> shows_;
    std::unordered_set<const Control*> changed_;
    bool windowChanged_ = false;
    bool queued_ = false;
    std::unordered_map<const QObject*, Control*> controls_;
    std::unordered_map<const Control*, QWidget*> widgets_;
    std::unordered_set<const Control*> passive_;
    std::shared_ptr<AltKeys> page_ = std::make_shared<AltKeys>();
};

inline QString qt(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace vorna
