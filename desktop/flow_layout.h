// A row of widgets that goes on in the next line where the room ends.
#pragma once

#include <QLayout>
#include <QList>

namespace vorna {

class FlowLayout final : public QLayout {
public:
    explicit FlowLayout(int gap);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    // The height taken; moves the widgets unless it only asks.
    int layOut(const QRect& rect, bool move) const;

    int gap_;
    QList<QLayoutItem*> items_;
};

} // namespace vorna
