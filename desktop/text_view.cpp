#include "desktop/text_view.h"

namespace vorna {

TextView::TextView(QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void TextView::setText(const QString& text) {
    if (text != toPlainText())
        setPlainText(text);
}

} // namespace vorna
