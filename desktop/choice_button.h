// One of a few choices of which one holds: a sign over or beside a word; the chosen one has the
// accent's border, its tint and a check mark.
#pragma once

#include <QAbstractButton>
#include <QPixmap>

namespace vorna {

class ChoiceButton final : public QAbstractButton {
public:
    enum class Form { Beside, Above };

    // The sign is an icon of the program; with `plain` as it is, else in the text's colour.
    ChoiceButton(const QString& sign, Form form, bool plain, QWidget* parent = nullptr);
    // The word where the caption is not it.
    void setWord(const QString& word);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString word() const;

    QString sign_;
    Form form_;
    bool plain_;
    QString word_;
};

} // namespace vorna
