// The plain parts that pages are made of: cards, headings, labelled fields, buttons with icons.
#pragma once

#include "desktop/style.h"

#include <QFrame>
#include <QString>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace vorna {

// A bold heading with its icon at the left and a note in the second text at the right.
class Heading final : public QWidget {
public:
    Heading(const QString& iconName, const QString& text, QWidget* parent = nullptr);
    void setText(const QString& text);
    void setNote(const QString& note);
    [[nodiscard]] QLabel& label() const { return *text_; }
    [[nodiscard]] QLabel& note() const { return *note_; }

private:
    QLabel* text_;
    QLabel* note_;
};

// A sheet with round corners. Its content goes into `body`.
class Card : public QFrame {
public:
    explicit Card(QWidget* parent = nullptr);
    Card(const QString& iconName, const QString& heading, QWidget* parent = nullptr);
    [[nodiscard]] QVBoxLayout& body() const { return *body_; }
    // Null without a heading.
    [[nodiscard]] Heading* heading() const { return heading_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* body_;
    Heading* heading_ = nullptr;
};

// A label above its field; the label's Alt key leads to the field.
QWidget* field(const QString& label, QWidget& edited);

QPushButton* button(const QString& iconName, ButtonRole role = ButtonRole::Plain);

// A small sentence in the second text, with its icon.
QWidget* hint(const QString& iconName, const QString& text);

QLabel* wrappingLabel(const QString& text = {});

// A row and a column without margins, with the usual gap.
QHBoxLayout* row(int gap = 12);
QVBoxLayout* column(int gap = 14);

} // namespace vorna
