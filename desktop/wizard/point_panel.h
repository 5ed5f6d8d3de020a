// What is shown of the point: its names and place on the body, where to put the probe, and its
// pictures, to which all room goes that is left.
#pragma once

#include <QWidget>

class QBoxLayout;
class QLabel;

namespace vorna {

class Binder;
class PictureView;
struct PointDisplay;

// The large picture and the two small ones. In a narrow window the small ones stand below the large
// one wherever that lets it grow.
class PointPictures final : public QWidget {
public:
    PointPictures(Binder& binder, PointDisplay& point);
    void setNarrow(bool narrow);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();

    QBoxLayout* line_;
    QWidget* side_;
    QBoxLayout* smallOnes_;
    PictureView* second_;
    PictureView* third_;
    QWidget* hint_;
    bool narrow_ = false;
};

class PointPanel final : public QWidget {
public:
    PointPanel(Binder& binder, PointDisplay& point);
    // Names side by side and smaller type for the description.
    void setNarrow(bool narrow);

private:
    QLayout* makeHead(Binder& binder);

    PointDisplay& point_;
    QLayout* names_ = nullptr;
    QBoxLayout* head_ = nullptr;
    QWidget* chinese_ = nullptr;
    QWidget* description_ = nullptr;
    PointPictures* pictures_ = nullptr;
    bool narrow_ = false;
};

} // namespace vorna
