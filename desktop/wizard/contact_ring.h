// The ring that fills while the probe is held, round the value of the point: how long still to
// hold, and what stands for the point now.
#pragma once

#include <QString>
#include <QVariantAnimation>
#include <QWidget>

namespace vorna {

class ContactRing final : public QWidget {
public:
    explicit ContactRing(QWidget* parent = nullptr);

    // Which part is over, 0 to 1. It grows smoothly and falls at once.
    void setShare(double share);
    // Empty: a dash stands in the ring.
    void setValue(const QString& value);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double share_ = 0;
    double shown_ = 0; // on its way to the share
    QString value_;
    QVariantAnimation growth_;
};

} // namespace vorna
