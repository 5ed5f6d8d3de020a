#include "content/pictures/point_pictures.h"

#include "content/pictures/label_places.h"
#include "content/pictures/marks.h"
#include "content/pictures/palette.h"

#include <QLineF>

#include <array>

namespace vorna {
namespace {

constexpr QSize figureSize{132, 316};
constexpr double figureMargin = 12;
constexpr double figureOutline = 1.6;

// How strongly the parts of a picture are drawn, in pixels.
struct Strength {
    double outline;
    double pathway;
    double arrowEvery;
    double mark; // radius
    double label;
};
constexpr Strength closeStrength{5, 7, 260, 30, 50};
constexpr Strength regionStrength{3.2, 5, 150, 19, 44};
constexpr Strength bodyStrength{2.8, 4, 150, 17, 44};

std::string meridianOf(const std::string& pointLong) {
    return pointLong.substr(0, 2);
}

QRectF picture() {
    return {QPointF(0, 0), QSizeF(pointPictureSize)};
}

QRectF around(const QPointF& at, double radius) {
    return {at.x() - radius, at.y() - radius, 2 * radius, 2 * radius};
}

// The corner for the small figure: the one farthest from the mark, rather below than above.
QRectF figureRoom(const QPointF& mark) {
    const QSizeF size(figureSize.width() + 2 * figureMargin,
                      figureSize.height() + 2 * figureMargin);
    QRectF room(QPointF(0, 0), size);
    const QRectF inside = picture().adjusted(14, 14, -14, -14);
    const bool left = mark.x() > picture().center().x();
    room.moveBottomLeft(left ? inside.bottomLeft()
                             : QPointF(inside.right() - size.width(), inside.bottom()));
    if (room.adjusted(-90, -90, 90, 90).contains(mark))
        room.moveTop(inside.top());
    return room;
}

} // namespace

struct PointPainter::Canvas {
    Canvas(const PointSubject& shown, const Stage& on, const Strength& strong)
        : subject(shown), stage(on), strength(strong), mark(on.place(shown.pointLong)),
          places(picture().adjusted(10, 10, -10, -10)) {}

    void begin(QImage backdrop) {
        image = std::move(backdrop);
        painter.begin(&image);
        painter.setRenderHint(QPainter::Antialiasing);
    }
    QImage end() {
        painter.end();
        return std::move(image);
    }

    const PointSubject& subject;
    const Stage stage;
    const Strength& strength;
    const QPointF mark;
    LabelPlaces places;
    QPointF label; // its middle
    QImage image;
    QPainter painter;
};

QString PointPainter::labelOf(const std::string& pointLong) const {
    return QString::fromStdString(codes_.at(meridianOf(pointLong))) +
           QString::number(QString::fromStdString(pointLong.substr(2)).toInt());
}

const QImage& PointPainter::backdrop(const Stage& stage, const QSize& size, double outline) {
    QImage& image = backdrops_[{stage.view.name, stage.mirrored, size.height()}];
    if (image.isNull()) {
        image = QImage(size, QImage::Format_RGB32);
        image.fill(palette::paper);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        drawView(painter, stage, outline);
    }
    return image;
}

void PointPainter::drawCourse(Canvas& canvas) const {
    const auto& pathways = canvas.stage.view.pathways;
    const auto found = pathways.find(meridianOf(canvas.subject.pointLong));
    if (found == pathways.end())
        return;
    const QPainterPath course = canvas.stage.transform().map(found->second);
    canvas.painter.save();
    canvas.painter.setClipRect(canvas.stage.target);
    drawPathway(canvas.painter, course,
                {.width = canvas.strength.pathway,
                 .arrowEvery = canvas.strength.arrowEvery,
                 .colour = palette::accent});
    canvas.painter.restore();
    canvas.places.avoid(course);
}

void PointPainter::drawFigure(Canvas& canvas) {
    const QRectF room = figureRoom(canvas.mark);
    canvas.places.keepFree(room);
    QPainter& painter = canvas.painter;
    painter.setPen(QPen(palette::line, 2));
    painter.setBrush(palette::paper);
    painter.drawRoundedRect(room, 14, 14);
    const AtlasView& body = views_.viewOf(canvas.subject.pointLong, ViewUse::Body);
    const QRectF inner(QPointF(0, 0), QSizeF(figureSize));
    const Stage stage = wholeView(body, inner, canvas.subject.right);
    const QPointF corner = room.topLeft() + QPointF(figureMargin, figureMargin);
    painter.drawImage(corner, backdrop(stage, figureSize, figureOutline));
    drawDot(painter, corner + stage.place(canvas.subject.pointLong), 8, palette::mark);
}

void PointPainter::drawNeighbours(Canvas& canvas) const {
    struct Neighbour {
        QPointF at;
        QString label;
    };
    constexpr double dot = 9;
    constexpr double farEnough = 24;
    const QRectF room = canvas.stage.target.adjusted(20, 20, -20, -20);
    std::vector<Neighbour> neighbours;
    for (const auto& [pointLong, place] : canvas.stage.view.points) {
        const QPointF at = canvas.stage.map(place.at);
        if (meridianOf(pointLong) == meridianOf(canvas.subject.pointLong) &&
            pointLong != canvas.subject.pointLong && room.contains(at) &&
            QLineF(at, canvas.mark).length() > canvas.strength.mark + farEnough)
            neighbours.push_back({at, labelOf(pointLong)});
    }
    for (const Neighbour& neighbour : neighbours) {
        drawDot(canvas.painter, neighbour.at, dot, palette::accent);
        canvas.places.keepFree(around(neighbour.at, dot * 1.5));
    }
    const QFont font = pictureFont(26, false);
    for (const Neighbour& neighbour : neighbours) {
        const QPointF middle = canvas.places.take({.at = neighbour.at,
                                                   .radius = dot * 1.5,
                                                   .extent = labelExtent(neighbour.label, font),
                                                   .preferred = 15});
        drawLabel(canvas.painter, {.text = neighbour.label,
                                   .font = font,
                                   .middle = middle,
                                   .colour = palette::secondInk});
    }
}

// The label's place is taken before the neighbours', which have to give way.
void PointPainter::placeLabel(Canvas& canvas) const {
    const double radius = canvas.strength.mark;
    canvas.places.keepFree(around(canvas.mark, radius * 1.3));
    const QFont font = pictureFont(canvas.strength.label, true);
    const bool leftHalf = canvas.mark.x() < picture().center().x();
    canvas.label =
        canvas.places.take({.at = canvas.mark,
                            .radius = radius * 2.1,
                            .extent = labelExtent(labelOf(canvas.subject.pointLong), font),
                            .preferred = leftHalf ? 30.0 : 150.0});
}

void PointPainter::drawSubject(Canvas& canvas) const {
    const double radius = canvas.strength.mark;
    const QString text = labelOf(canvas.subject.pointLong);
    const QFont font = pictureFont(canvas.strength.label, true);
    drawLeader(canvas.painter, {.from = canvas.mark,
                                .radius = radius * 1.25,
                                .to = labelExtent(text, font).translated(canvas.label),
                                .width = radius * 0.18,
                                .colour = palette::mark});
    drawMark(canvas.painter, canvas.mark, radius);
    drawLabel(canvas.painter, {.text = text,
                               .font = font,
                               .middle = canvas.label,
                               .colour = palette::mark,
                               .boxed = true});
}

QImage PointPainter::close(const PointSubject& subject) {
    const AtlasView& view = views_.viewOf(subject.pointLong, ViewUse::Close);
    const Surroundings surroundings{.at = view.points.at(subject.pointLong).at,
                                    .width = views_.closeWidth(view)};
    const Stage stage = closeView(view, surroundings, picture(), subject.right);
    Canvas canvas(subject, stage, closeStrength);
    QImage paper(pointPictureSize, QImage::Format_RGB32);
    paper.fill(palette::paper);
    canvas.begin(std::move(paper));
    drawView(canvas.painter, stage, closeStrength.outline);
    drawCourse(canvas);
    drawFigure(canvas);
    placeLabel(canvas);
    drawNeighbours(canvas);
    drawSubject(canvas);
    return canvas.end();
}

QImage PointPainter::region(const PointSubject& subject) {
    const AtlasView& view = views_.viewOf(subject.pointLong, ViewUse::Region);
    const Stage stage = wholeView(view, picture(), subject.right);
    Canvas canvas(subject, stage, regionStrength);
    canvas.begin(backdrop(stage, pointPictureSize, regionStrength.outline));
    drawCourse(canvas);
    drawFigure(canvas);
    placeLabel(canvas);
    drawSubject(canvas);
    return canvas.end();
}

QImage PointPainter::body(const PointSubject& subject) {
    const AtlasView& view = views_.viewOf(subject.pointLong, ViewUse::Body);
    const Stage stage = wholeView(view, picture().adjusted(0, 12, 0, -12), subject.right);
    Canvas canvas(subject, stage, bodyStrength);
    canvas.begin(backdrop(stage, pointPictureSize, bodyStrength.outline));
    drawCourse(canvas);
    placeLabel(canvas);
    drawSubject(canvas);
    return canvas.end();
}

} // namespace vorna
