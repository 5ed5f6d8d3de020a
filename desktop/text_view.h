// A text that is read, not edited: it wraps, scrolls when it is long, and can be copied.
#pragma once

#include <QPlainTextEdit>

namespace vorna {

class TextView final : public QPlainTextEdit {
public:
    explicit TextView(QWidget* parent = nullptr);
    void setText(const QString& text);
};

} // namespace vorna
