// A picture file, scaled into its place on paper. Where it does something it can be clicked, also
// by key.
#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>

#include <functional>

namespace vorna {

class PictureView final : public QWidget {
public:
    explicit PictureView(QWidget* parent = nullptr);

    // Empty or unreadable: nothing is shown.
    void setPath(const QString& path);
    // For those who cannot see it, and on hover.
    void setName(const QString& name);
    // Makes it a button: the hand over it, the ring when it has the keyboard.
    void setClickable(bool clickable);
    void setSizeWanted(const QSize& size) { wanted_ = size; }
    // Without the sheet of paper behind it.
    void setBare(bool bare) { bare_ = bare; }
    [[nodiscard]] bool hasPicture() const { return !picture_.isNull(); }

    std::function<void()> pressed;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString path_;
    QPixmap picture_;
    QPixmap scaled_; // of the last painting
    QSize wanted_;
    bool clickable_ = false;
    bool bare_ = false;
};

} // namespace vorna
