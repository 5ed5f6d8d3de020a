// What the windows in front of the main window have in common: the title above the figures of a
// measurement, the row of buttons at the foot, text in its sizes, a column that scrolls.
#pragma once

#include "core/window.h"
#include "desktop/style.h"

#include <QColor>
#include <QWidget>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace vorna {

class Binder;
class FlowLayout;
class PictureView;

// The column that fills a window, with the margins of the program.
QVBoxLayout* windowColumn(QWidget& view);

// A wrapping text in a size for the body text of 15 pixels.
QLabel* textLabel(double size, bool bold, const QColor& ink);

// An icon that stands for itself, of such a size too.
QLabel* signLabel(const QString& iconName, const QColor& colour, double size);

// The title in large type and the subtitle below it.
QWidget* titleBlock(Binder& binder, Label& title, Label& subtitle);

// The label stands as long as there is something to read in it.
void bindUnlessEmpty(Binder& binder, Label& control, QLabel& label);

// The picture stands as long as it has a file that can be read.
void bindUnlessEmpty(Binder& binder, Picture& control, PictureView& picture);

QPushButton* boundButton(Binder& binder, Button& control, const QString& iconName,
                         ButtonRole role = ButtonRole::Plain);

// A picture control that opens something: a button with its caption.
QPushButton* boundButton(Binder& binder, Picture& control, const QString& iconName);

// Scrolls up and down where the room ends, by the page keys of the window too; the content is as
// wide as it.
QScrollArea* scrollingColumn(QWidget* content);

// Buttons at the left, which go on in the next line where the room ends, and buttons at the right.
class WindowFoot final : public QWidget {
public:
    WindowFoot();
    void addLeft(QPushButton* button);
    void addRight(QPushButton* button);
    // A button that drops to its icon first; it stands in the foot.
    void setGivingWay(QPushButton* button) { giving_ = button; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    FlowLayout* left_;
    QHBoxLayout* right_;
    QPushButton* giving_ = nullptr;
    QString givingText_;
    int givingWidth_ = 0;
};

} // namespace vorna
