#include "content/pictures/point_pictures.h"

#include "content/pictures/dot_labels.h"
#include "content/pictures/marks.h"
#include "content/pictures/palette.h"

#include <QLineF>

#include <array>

namespace vorna {
namespace {

constexpr QSize figureSize{132, 316};
constexpr double figureMargin = 12;
constexpr double figureOutline = 1.6;
constexpr double neighbourRadius = 9;

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

// The corner for the small figure: where it covers least, rather below than above, rather on the
// side away from the mark.
QRectF figureRoom(const QPointF& mark, const LabelPlaces& places) {
    const QSizeF size(figureSize.width() + 2 * figureMargin,
                      figureSize.height() + 2 * figureMargin);
    const QRectF inside = picture().adjusted(14, 14, -14, -14);
    constexpr double nearMark = 100;
    QRectF best;
    double least = 0;
    for (const bool above : {false, true})
        for (const bool left : {false, true}) {
            const QRectF room(left ? inside.left() : inside.right() - size.width(),
                              above ? inside.top() : inside.bottom() - size.height(), size.width(),
                              size.height());
            const bool sameSide = left == (mark.x() < picture().center().x());
            const double price =
                places.cost(room) + (above ? 1.5 : 0) + (sameSide ? 1 : 0) +
                (room.adjusted(-nearMark, -nearMark, nearMark, nearMark).contains(mark) ? 50 : 0);
            if (best.isNull() || price < least) {
                best = room;
                least = price;
            }
        }
    return best;
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
    PointPicture end() {
        painter.end();
        return {.image = std::move(image), .mark = mark, .label = label};
    }

    const PointSubject& subject;
    const Stage stage;
    const Strength& strength;
    const QPointF mark;
    LabelPlaces places;
    QRectF label;  // the box of the subject's label
    QRectF figure; // the small figure's box
    std::vector<NamedDot> neighbours;
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
    std::vector<QRectF> clear{around(canvas.mark, canvas.strength.mark * 2.2)};
    for (const NamedDot& neighbour : canvas.neighbours)
        clear.push_back(around(neighbour.at, neighbourRadius * 2.6));
    canvas.painter.save();
    canvas.painter.setClipRect(canvas.stage.target);
    drawPathway(canvas.painter, course,
                {.width = canvas.strength.pathway,
                 .arrowEvery = canvas.strength.arrowEvery,
                 .colour = palette::accent,
                 .clear = std::move(clear)});
    canvas.painter.restore();
    canvas.places.avoid(course);
}

void PointPainter::drawFigure(Canvas& canvas) {
    LabelPlaces places = canvas.places;
    places.avoidLandmarks(canvas.stage);
    const QRectF room = figureRoom(canvas.mark, places);
    canvas.figure = room;
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

void PointPainter::findNeighbours(Canvas& canvas) const {
    constexpr double farEnough = 24;
    const QRectF room = canvas.stage.target.adjusted(20, 20, -20, -20);
    for (const auto& [pointLong, place] : canvas.stage.view.points) {
        const QPointF at = canvas.stage.map(place.at);
        if (meridianOf(pointLong) != meridianOf(canvas.subject.pointLong) ||
            pointLong == canvas.subject.pointLong || !room.contains(at) ||
            QLineF(at, canvas.mark).length() <= canvas.strength.mark + farEnough)
            continue;
        canvas.neighbours.push_back({at, neighbourRadius * 1.5, labelOf(pointLong)});
        canvas.places.keepFree(at, neighbourRadius * 1.5);
    }
}

void PointPainter::drawNeighbours(Canvas& canvas) const {
    std::erase_if(canvas.neighbours, [&](const NamedDot& neighbour) {
        return canvas.figure.adjusted(-20, -20, 20, 20).contains(neighbour.at);
    });
    for (const NamedDot& neighbour : canvas.neighbours)
        drawDot(canvas.painter, neighbour.at, neighbourRadius, palette::accent);
    drawDotLabels(canvas.painter, canvas.places, canvas.neighbours,
                  {.font = pictureFont(28, false), .colour = palette::secondInk});
}

// The label's place is taken before the neighbours', which have to give way. Unlike the small
// figure, which has its corner by now, labels keep off the lines of the drawing.
void PointPainter::placeLabel(Canvas& canvas) const {
    const double radius = canvas.strength.mark;
    canvas.places.avoid(canvas.stage);
    canvas.places.keepFree(canvas.mark, radius * 1.3);
    const QFont font = pictureFont(canvas.strength.label, true);
    const bool leftHalf = canvas.mark.x() < picture().center().x();
    const QRectF extent = boxedExtent(labelOf(canvas.subject.pointLong), font);
    canvas.label = extent.translated(canvas.places.take({.at = canvas.mark,
                                                         .radius = radius * 2.1,
                                                         .extent = extent,
                                                         .preferred = leftHalf ? 30.0 : 150.0}));
}

void PointPainter::drawSubject(Canvas& canvas) const {
    const double radius = canvas.strength.mark;
    const QString text = labelOf(canvas.subject.pointLong);
    const QFont font = pictureFont(canvas.strength.label, true);
    drawLeader(canvas.painter, {.from = canvas.mark,
                                .radius = radius * 1.25,
                                .to = canvas.label,
                                .width = radius * 0.18,
                                .colour = palette::mark});
    drawMark(canvas.painter, canvas.mark, radius);
    drawLabel(canvas.painter, {.text = text,
                               .font = font,
                               .middle = canvas.label.center(),
                               .colour = palette::mark,
                               .boxed = true});
}

PointPicture PointPainter::close(const PointSubject& subject) {
    const AtlasView& view = views_.viewOf(subject.pointLong, ViewUse::Close);
    const Surroundings surroundings{.at = view.points.at(subject.pointLong).at,
                                    .width = views_.closeWidth(view)};
    const Stage stage = closeView(view, surroundings, picture(), subject.right);
    Canvas canvas(subject, stage, closeStrength);
    QImage paper(pointPictureSize, QImage::Format_RGB32);
    paper.fill(palette::paper);
    canvas.begin(std::move(paper));
    drawView(canvas.painter, stage, closeStrength.outline);
    findNeighbours(canvas);
    drawCourse(canvas);
    drawFigure(canvas);
    placeLabel(canvas);
    drawNeighbours(canvas);
    drawSubject(canvas);
    return canvas.end();
}

PointPicture PointPainter::region(const PointSubject& subject) {
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

PointPicture PointPainter::body(const PointSubject& subject) {
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
