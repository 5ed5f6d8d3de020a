#include "desktop/binder.h"

#include "desktop/chart_view.h"
#include "desktop/list_table.h"
#include "desktop/masked_edit.h"
#include "desktop/picture_view.h"
#include "desktop/text_view.h"
#include "desktop/theme.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSignalBlocker>

#include <utility>

namespace vorna {
namespace {

QString objectNameOf(const Control& control) {
    const QString name = qt(control.name());
    return control.index() < 0 ? name : QString("%1(%2)").arg(name).arg(control.index());
}

// The text edit keeps its place when the text stands already.
void showText(QLineEdit& widget, const QString& text) {
    if (widget.text() == text)
        return;
    const QSignalBlocker quiet(widget);
    widget.setText(text);
    widget.setCursorPosition(0);
}

struct AltCaption {
    QString text;
    QChar key; // null where none is free
};

// The Alt key of a button: the first letter of a word that is not taken, else any other letter of
// the caption.
AltCaption withAltKey(const QString& caption, const QSet<QChar>& taken) {
    QString escaped = caption;
    escaped.replace('&', "&&");
    for (const bool wordsOnly : {true, false})
        for (int i = 0; i < escaped.size(); ++i) {
            const bool wordBegins = i == 0 || !escaped[i - 1].isLetterOrNumber();
            const QChar letter = escaped[i].toUpper();
            if (letter.isLetter() && (!wordsOnly || wordBegins) && !taken.contains(letter))
                return {escaped.insert(i, '&'), letter};
        }
    return {escaped, {}};
}

// A list that is closed must not change under a wheel that scrolls the page.
bool isWheelOnClosedList(QObject* watched, const QEvent& event) {
    if (event.type() != QEvent::Wheel)
        return false;
    const auto* const list = qobject_cast<QComboBox*>(watched);
    return list != nullptr && !list->view()->isVisible();
}

} // namespace

Binder::Binder(Window& window) : window_(window) {
    window.watcher = [this](Control* control) { note(control); };
    window.focusWatcher = [this](Control& control) {
        showChanges();
        if (QWidget* const widget = widgetOf(control))
            widget->setFocus();
    };
}

Binder::~Binder() {
    window_.watcher = {};
    window_.focusWatcher = {};
}

void Binder::note(Control* control) {
    if (control == nullptr)
        windowChanged_ = true;
    else
        changed_.insert(control);
    if (std::exchange(queued_, true))
        return;
    QMetaObject::invokeMethod(
        this, [this] { showChanges(); }, Qt::QueuedConnection);
}

void Binder::showChanges() {
    queued_ = false;
    for (const Control* const control : std::exchange(changed_, {}))
        if (const auto shows = shows_.find(control); shows != shows_.end())
            for (const auto& show : shows->second)
                show();
    if (std::exchange(windowChanged_, false) && windowChanged)
        windowChanged();
}

void Binder::onChange(Control& control, std::function<void()> show) {
    show();
    shows_[&control].push_back(std::move(show));
}

Control* Binder::controlOf(const QObject* widget) const {
    const auto at = controls_.find(widget);
    return at == controls_.end() ? nullptr : at->second;
}

QWidget* Binder::widgetOf(const Control& control) const {
    const auto at = widgets_.find(&control);
    return at == widgets_.end() ? nullptr : at->second;
}

void Binder::bind(Control& control, QWidget& widget) {
    widget.setObjectName(objectNameOf(control));
    controls_[&widget] = &control;
    widgets_[&control] = &widget;
    widget.installEventFilter(this);
    onChange(control, [&control, &widget] {
        setShown(widget, control.visible);
        widget.setEnabled(control.enabled);
    });
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
    Control* const control = controlOf(watched);
    if (control == nullptr)
        return QObject::eventFilter(watched, event);
    if (isWheelOnClosedList(watched, *event)) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::FocusIn && passive_.count(control) == 0)
        window_.activeControl = control;
    if (event->type() == QEvent::FocusOut)
        if (const auto* const box = dynamic_cast<TextBox*>(control))
            call(box->left);
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
        if (isEnter && control->enterPressed) {
            control->enterPressed();
            return true;
        }
        auto* const pressed = qobject_cast<QAbstractButton*>(watched);
        if (isEnter && pressed != nullptr && !pressed->isCheckable()) {
            pressed->click();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void Binder::bind(Label& control, QLabel& widget) {
    bind(static_cast<Control&>(control), widget);
    onChange(control, [&control, &widget] { widget.setText(qt(control.caption)); });
}

void Binder::bindButton(CaptionedControl& control, QAbstractButton& widget) {
    bind(static_cast<Control&>(control), widget);
    onChange(control,
             [&control, &widget, page = page_, shown = QString(), key = QChar()]() mutable {
                 const QString caption = qt(control.caption);
                 if (caption == shown)
                     return;
                 shown = caption;
                 widget.setAccessibleName(caption);
                 if (widget.text().isEmpty() && !widget.icon().isNull() &&
                     widget.property("iconAlone").toBool()) {
                     widget.setToolTip(caption);
                     return;
                 }
                 page->remove(key);
                 const AltCaption alt = withAltKey(caption, *page);
                 key = alt.key;
                 if (!key.isNull())
                     page->insert(key);
                 widget.setText(alt.text);
             });
}

void Binder::bind(Button& control, QAbstractButton& widget) {
    bindButton(control, widget);
    connect(&widget, &QAbstractButton::clicked, this, [&control] { control.click(); });
}

void Binder::bindPassive(Button& control, QAbstractButton& widget) {
    passive_.insert(&control);
    bind(control, widget);
}

void Binder::bind(CheckBox& control, QAbstractButton& widget) {
    widget.setCheckable(true);
    bindButton(control, widget);
    onChange(control, [&control, &widget] {
        const QSignalBlocker quiet(widget);
        widget.setChecked(control.checked);
    });
    // One of a group of options is also changed by another's click.
    connect(&widget, &QAbstractButton::toggled, this,
            [&control](bool checked) { control.checked = checked; });
    connect(&widget, &QAbstractButton::clicked, this, [&control] { call(control.clicked); });
}

void Binder::bind(TextBox& control, QLineEdit& widget) {
    bind(static_cast<Control&>(control), widget);
    onChange(control, [&control, &widget] { showText(widget, qt(control.text)); });
    connect(&widget, &QLineEdit::textEdited, this, [&control](const QString& text) {
        control.text = text.toStdString();
        call(control.edited);
    });
}

void Binder::bind(TextBox& control, QPlainTextEdit& widget) {
    bind(static_cast<Control&>(control), widget);
    onChange(control, [&control, &widget] {
        if (const QString text = qt(control.text); widget.toPlainText() != text) {
            const QSignalBlocker quiet(widget);
            widget.setPlainText(text);
        }
    });
    connect(&widget, &QPlainTextEdit::textChanged, this, [&control, &widget] {
        control.text = widget.toPlainText().toStdString();
        call(control.edited);
    });
}

void Binder::bind(TextBox& control, TextView& widget) {
    bind(static_cast<Control&>(control), widget);
    onChange(control, [&control, &widget] { widget.setText(qt(control.text)); });
}

void Binder::bind(MaskedBox& control, QLineEdit& widget) {
    bind(static_cast<Control&>(control), widget);
    onChange(control, [&control, &widget] { showText(widget, qt(control.text)); });
    connect(&widget, &QLineEdit::textEdited, this, [&control, &widget](const QString& text) {
        const MaskedEdit edit = maskedEdit(qt(control.text), text, widget.cursorPosition());
        control.type(edit.text.toStdString());
        showText(widget, qt(control.text));
        widget.setCursorPosition(edit.cursor);
    });
}

void Binder::bind(ComboBox& control, QComboBox& widget) {
    bind(static_cast<Control&>(control), widget);
    onChange(control, [&control, &widget] {
        const QSignalBlocker quiet(widget);
        QStringList rows;
        for (const std::string& row : control.rows.get())
            rows.append(qt(row));
        QStringList shown;
        for (int i = 0; i < widget.count(); ++i)
            shown.append(widget.itemText(i));
        if (rows != shown) {
            widget.clear();
            widget.addItems(rows);
        }
        widget.setCurrentIndex(control.index);
        if (control.index < 0)
            widget.setPlaceholderText(qt(control.text));
    });
    connect(&widget, &QComboBox::activated, this, [&control](int row) {
        if (row == control.index)
            return;
        control.index = row;
        call(control.chosen);
    });
}

void Binder::bind(ListView& control, ListTable& widget) {
    bind(static_cast<Control&>(control), widget);
    widget.show(control);
    onChange(control, [&widget] { widget.refresh(); });
}

void Binder::bind(Picture& control, PictureView& widget) {
    bind(static_cast<Control&>(control), widget);
    onChange(control, [&control, &widget] {
        widget.setPath(qt(control.path));
        widget.setName(qt(control.caption));
    });
    widget.pressed = [&control] { call(control.clicked); };
}

void Binder::bind(ProgressBar& control, QProgressBar& widget) {
    bind(static_cast<Control&>(control), widget);
    onChange(control, [&control, &widget] {
        widget.setRange(control.minimum, control.maximum);
        widget.setValue(control.value);
    });
}

void Binder::bind(ChartControl& control, ChartView& widget) {
    bind(static_cast<Control&>(control), widget);
    onChange(control, [&control, &widget] {
        if (control.rendered())
            widget.setDocument(control.dataXml, control.chartType);
    });
}

} // namespace vorna
