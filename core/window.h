// Windows as view models: records of controls that are keyed by their control names, which the
// language files use. The logic writes properties; whoever shows the window (the desktop's
// widgets, the headless tool) watches them and hands the user's actions back through the handlers.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorna {

class Window;
class Control;

using Handler = std::function<void()>;

inline void call(const Handler& handler) {
    if (handler)
        handler();
}

// A value whose change is told to the window's watcher. Reads and is assigned like its value.
template <class T>
class Property {
public:
    explicit Property(Control& owner, T initial = {}) : owner_(owner), value_(std::move(initial)) {}
    Property(const Property&) = delete;

    Property& operator=(T value);
    Property& operator=(const Property& other) { return *this = other.value_; }
    operator const T&() const { return value_; } // NOLINT: reads like its value
    [[nodiscard]] const T& get() const { return value_; }

private:
    Control& owner_;
    T value_;
};

class Control {
public:
    // Adds itself to the window, which must outlive it. `index` is the place in a control array,
    // whose members share one name, and -1 for a single control.
    Control(Window& window, std::string name, int index = -1);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] int index() const { return index_; }
    [[nodiscard]] Window& window() const { return window_; }
    void changed();

    Handler enterPressed; // the Enter key in the control

    // The properties that the language pass sets; null when the control has none of the kind.
    virtual Property<std::string>* captionProperty() { return nullptr; }
    virtual Property<std::string>* textProperty() { return nullptr; }

private:
    Window& window_;
    std::string name_;
    int index_;

public:
    Property<bool> visible{*this, true};
    Property<bool> enabled{*this, true};
};

template <class T>
Property<T>& Property<T>::operator=(T value) {
    value_ = std::move(value);
    owner_.changed();
    return *this;
}

class CaptionedControl : public Control {
public:
    using Control::Control;
    Property<std::string>* captionProperty() override { return &caption; }
    Property<std::string> caption{*this};
};

class Label : public CaptionedControl {
public:
    using CaptionedControl::CaptionedControl;
    Handler clicked;
};

class Frame : public CaptionedControl {
public:
    using CaptionedControl::CaptionedControl;
};

class Button : public CaptionedControl {
public:
    using CaptionedControl::CaptionedControl;
    void click() const { call(clicked); }
    Handler clicked;
};

// A check box, or one of a group of option buttons.
class CheckBox : public CaptionedControl {
public:
    using CaptionedControl::CaptionedControl;
    Property<bool> checked{*this, false};
    Handler clicked;
};

// The colours that a told state has; how they look is the desktop's matter.
enum class BackColour : std::uint8_t { Plain, White, Red, Green, Yellow, Magenta };

class TextBox : public Control {
public:
    using Control::Control;
    Property<std::string>* textProperty() override { return &text; }
    Property<std::string> text{*this};
    Property<BackColour> backColour{*this, BackColour::Plain};
    Handler edited; // the user changed the text
    Handler left;   // the focus went elsewhere
};

// A text box whose digits stand between fixed signs: "##.##.####" with "_" where no digit is.
class MaskedBox : public Control {
public:
    // `mask` has "#" for each digit.
    MaskedBox(Window& window, std::string name, std::string mask)
        : Control(window, std::move(name)), mask_(std::move(mask)), text{*this, emptyText()} {}

    Property<std::string>* textProperty() override { return nullptr; }
    // The mask without any digit.
    [[nodiscard]] std::string emptyText() const;
    // Takes of a text what the mask has room for, as if it were typed from the first place on: a
    // digit fills the next place, "_" leaves it empty, a sign of the mask goes on behind that sign,
    // all else is dropped.
    void type(std::string_view typed);
    void clear() { text = emptyText(); }

private:
    std::string mask_;

public:
    Property<std::string> text;
};

class ComboBox : public Control {
public:
    using Control::Control;
    Property<std::string>* textProperty() override { return &text; }
    Property<std::string> text{*this};
    Property<std::vector<std::string>> rows{*this};
    Property<int> index{*this, -1}; // from 0; -1 when no row is chosen
    // Chooses a row; Failure when there is no such row and it is not -1.
    void choose(int row);
    Handler chosen;
};

struct ListRow {
    std::string text;
    std::vector<std::string> sub; // column k is sub[k - 1]; short when the rest was never set
    std::string tag;
    bool checked = false;
    bool finished = false; // whether the list's `finishRow` saw it

    // Column k from 1 on; empty text where nothing was set.
    [[nodiscard]] std::string_view subItem(std::size_t column) const;
    void setSubItem(std::size_t column, std::string text);
};

// A list with columns, or a plain list of texts. Rows count from 0.
class ListView : public Control {
public:
    using Control::Control;

    // All rows, finished.
    [[nodiscard]] const std::vector<ListRow>& rows() const;
    [[nodiscard]] std::size_t size() const { return rows_.size(); }
    // One row, finished. Failure when there is none.
    [[nodiscard]] const ListRow& row(std::size_t row) const;
    // All rows as they were set: a column that `finishRow` fills may still be empty.
    [[nodiscard]] const std::vector<ListRow>& unfinishedRows() const { return rows_; }
    // Drops the selection.
    void setRows(std::vector<ListRow> rows);
    void clear() { setRows({}); }
    void add(ListRow row);
    // Changes one row and tells the watcher.
    void change(std::size_t row, const std::function<void(ListRow&)>& edit);
    void remove(std::size_t row);

    // Null when no row is selected.
    [[nodiscard]] const ListRow* selectedRow() const;
    // Another number after every change of which rows there are; not after a change within a row.
    [[nodiscard]] unsigned rowsVersion() const { return rowsVersion_; }

    // Fills the columns that take time to know; called once for each row, when it is first looked
    // at. Long lists show a few rows and never pay for the others.
    std::function<void(ListRow&)> finishRow;

    Property<std::vector<std::string>> headers{*this};
    Property<int> selected{*this, -1}; // -1 when none
    Handler clicked;                   // on the selected row
    Handler doubleClicked;
    Handler deletePressed; // the delete key

private:
    void finish(std::size_t row) const;

    mutable std::vector<ListRow> rows_;
    unsigned rowsVersion_ = 0;
};

// A list whose rows are records, of which one is the current, and which can have buttons in its
// cells.
class DataGrid : public ListView {
public:
    using ListView::ListView;
    // Makes a row the current one and tells of the change, as a click or an arrow key does.
    void goTo(int row);
    Handler rowChanged;
    // A press of the button in a column of the current row.
    std::function<void(int column)> buttonClicked;
};

struct Tab {
    std::string caption;
    bool visible = true;
    bool enabled = true;
};

class TabStrip : public Control {
public:
    TabStrip(Window& window, std::string name, std::size_t count)
        : Control(window, std::move(name)), tabs_(count) {}

    [[nodiscard]] const std::vector<Tab>& tabs() const { return tabs_; }
    // Changes one tab and tells the watcher.
    void change(std::size_t tab, const std::function<void(Tab&)>& edit);
    // Brings a tab to the front; `tabChanged` follows when it was another one.
    void select(std::size_t tab);

    Property<int> selected{*this, 0};
    Handler tabChanged;

private:
    std::vector<Tab> tabs_;
};

// The caption of a picture is its name for those who cannot see it, and its hover text.
class Picture : public CaptionedControl {
public:
    using CaptionedControl::CaptionedControl;
    Property<std::string> path{*this}; // empty: no picture
    Handler clicked;
};

class ProgressBar : public Control {
public:
    using Control::Control;
    Property<std::int32_t> value{*this, 0};
    std::int32_t minimum = 0;
    std::int32_t maximum = 100;
};

// The chart control: takes a chart document and draws it.
class ChartControl : public Control {
public:
    using Control::Control;

    Property<std::string> chartPath{*this};
    Property<std::int32_t> chartType{*this, 0}; // 11 columns, 4 pie
    Property<std::string> dataXml{*this};       // what was handed over as setDataXML

    // Draws the document; the render-complete event follows.
    void renderChart();
    [[nodiscard]] bool rendered() const { return rendered_; }
    Handler renderComplete;

private:
    bool rendered_ = false;
};

class Window {
public:
    // `section` names the window in the language files.
    explicit Window(std::string section) : section_(std::move(section)) {}
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window() = default;

    [[nodiscard]] const std::string& section() const { return section_; }
    // In the order in which they were made, which is the control order.
    [[nodiscard]] const std::vector<Control*>& controls() const { return controls_; }
    // Null when there is none of that name (and index).
    [[nodiscard]] Control* find(std::string_view name, int index = -1) const;

    [[nodiscard]] const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);

    // What the window does as it comes up, before it is seen.
    virtual void load() {}
    [[nodiscard]] bool closed() const { return closed_; }
    virtual void close();
    // Called by the host as it shows the window.
    void open() { closed_ = false; }

    // Null as long as the user has touched no control.
    const Control* activeControl = nullptr;
    // Makes a control the active one; whoever shows the window gives it the keyboard.
    void focus(Control& control);

    // Told of every change; a null control means the window itself.
    std::function<void(Control*)> watcher;
    // Told where the keyboard is to go.
    std::function<void(Control&)> focusWatcher;

private:
    friend class Control;
    std::string section_;
    std::string caption_;
    std::vector<Control*> controls_;
    bool closed_ = false;
};

// Members of a control array share their name and are told apart by their index.
template <class T>
struct ControlArray {
    ControlArray(Window& window, std::string_view name, std::initializer_list<int> indices) {
        for (const int index : indices)
            members.push_back(std::make_unique<T>(window, std::string(name), index));
    }
    // Null when the array has no such member.
    [[nodiscard]] T* at(int index) const {
        for (const auto& member : members)
            if (member->index() == index)
                return member.get();
        return nullptr;
    }
    std::vector<std::unique_ptr<T>> members;
};

// Shows windows. Real: the desktop's dialogs. In the headless tool and in tests: whoever looks.
class WindowHost {
public:
    virtual ~WindowHost() = default;
    // Calls the window's load, shows it and comes back when it is closed.
    virtual void showModal(Window& window) = 0;
};

} // namespace vorna
