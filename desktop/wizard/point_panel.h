// What is shown of the point: its names and place on the body, where to put the probe, and its
// pictures, to which all room goes that is left.
#pragma once

#include <QString>
#include <QWidget>

class QBoxLayout;
class QLayout;

namespace vorna {

class Binder;
class FittedLabel;
class PictureView;
class PointDescription;
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
    // `empty` is the sentence that stands there before any point is shown.
    PointPanel(Binder& binder, PointDisplay& point, const QString& empty);
    // A narrow window has the place on a line of its own, and a smaller description; a low one
    // too makes that smaller still.
    void setRoom(bool narrow, bool low);

private:
    QLayout* makeHead(Binder& binder);

    PointDisplay& point_;
    QWidget* shown_;
    QBoxLayout* head_;
    QBoxLayout* names_;
    FittedLabel* place_ = nullptr;
    PointDescription* description_ = nullptr;
    PointPictures* pictures_ = nullptr;
};

} // namespace vorna
