#include "content/pictures/teaching_pictures.h"

#include "content/pictures/element_star.h"
#include "content/pictures/label_places.h"
#include "content/pictures/marks.h"
#include "content/pictures/palette.h"
#include "content/pictures/panels.h"
#include "platform/failure.h"

#include <QFontMetricsF>
#include <QLineF>

#include <array>
#include <cmath>

namespace vorna {
namespace {

constexpr QSize starSize{1200, 1200};
constexpr int energyHeight = 1500;
constexpr int energyColumn = 680; // the width of one figure's room
constexpr double titleHeight = 110;

// A picture begun on paper.
struct Paper {
    explicit Paper(const QSize& size) : image(size, QImage::Format_RGB32) {
        image.fill(palette::paper);
        painter.begin(&image);
        painter.setRenderHint(QPainter::Antialiasing);
    }
    QImage finish() {
        painter.end();
        return std::move(image);
    }

    QImage image;
    QPainter painter;
};

struct Line {
    QString text;
    QPointF middle;
    double height;
    QColor colour = palette::ink;
    bool bold = true;
};

// Centred, and made smaller where it is wider than `room`; a room of 0 has no end.
void drawLine(QPainter& painter, const Line& line, double room = 0) {
    QFont font = pictureFont(line.height, line.bold);
    const double width = QFontMetricsF(font).horizontalAdvance(line.text);
    if (room > 0 && width > room)
        font = pictureFont(line.height * room / width, line.bold);
    const QFontMetricsF metrics(font);
    const QPointF base = line.middle + QPointF(-metrics.horizontalAdvance(line.text) / 2,
                                               (metrics.ascent() - metrics.descent()) / 2);
    drawLetters(painter, {.text = line.text, .font = font, .base = base, .colour = line.colour});
}

void drawNode(QPainter& painter, const QPointF& at, double radius, int element) {
    painter.setPen(QPen(palette::paper, 6));
    painter.setBrush(elementColour(element));
    painter.drawEllipse(at, radius, radius);
}

// The pathways of an element: of yin in the first line, of yang in the second.
QString pathwaysOf(const Vocabulary& words, int element, bool yang) {
    QStringList labels;
    for (const auto& [code, meridian] : words.texts.meridians)
        if (meridian.element == element && meridian.yang == yang)
            labels.append(words.label(meridian));
    return labels.join("  ");
}

void drawElement(QPainter& painter, const ElementCircle& circle, const Vocabulary& words,
                 int element) {
    const QPointF at = circle.node(element);
    const double room = circle.nodeRadius * 1.8;
    drawNode(painter, at, circle.nodeRadius, element);
    const QColor colour = onElementColour(element);
    drawLine(painter, {words.of(words.texts.elements.at(element)), at - QPointF(0, 34), 42, colour},
             room);
    drawLine(painter, {pathwaysOf(words, element, false), at + QPointF(0, 16), 27, colour, false},
             room);
    drawLine(painter, {pathwaysOf(words, element, true), at + QPointF(0, 54), 27, colour, false},
             room * 0.86);
}

// An arrow and its word, in the middle of the picture's foot.
void drawLegend(QPainter& painter, const QPointF& at, const QString& word, const QColor& colour) {
    QPainterPath arrow(at);
    arrow.lineTo(at + QPointF(90, 0));
    drawArrow(painter, arrow, {.width = 8, .colour = colour});
    drawLetters(painter, {.text = word,
                          .font = pictureFont(34, false),
                          .base = at + QPointF(130, 12),
                          .colour = palette::ink});
}

} // namespace

QString Vocabulary::word(const std::string& key) const {
    const auto found = texts.words.find(key);
    if (found == texts.words.end())
        throw Failure("the teaching pictures have no word " + key);
    return of(found->second);
}

QString Vocabulary::label(const MeridianTexts& meridian) const {
    const QString own = of(meridian.shortName).trimmed();
    const QString code = QString::fromStdString(meridian.code);
    return own == code ? code : own + "/" + code;
}

QImage starPicture(const Vocabulary& words) {
    Paper paper(starSize);
    QPainter& painter = paper.painter;
    const ElementCircle circle{.middle = {600, 640}, .radius = 390, .nodeRadius = 132};
    drawLine(painter, {words.word("star"), {600, 56}, 52, palette::accent});
    drawControl(painter, circle, 7);
    drawNourishing(painter, circle, 10);
    for (int element = 1; element <= elementCount; ++element)
        drawElement(painter, circle, words, element);
    drawLegend(painter, {170, 1150}, words.word("generates"), palette::accent);
    drawLegend(painter, {680, 1150}, words.word("controls"), palette::mark);
    return paper.finish();
}

// ---- Pathways of yin and yang

namespace {

std::vector<std::string> meridiansOf(const ReferenceTexts& texts, bool yang) {
    std::vector<std::string> found;
    for (const auto& [meridian, own] : texts.meridians)
        if (own.yang == yang)
            found.push_back(meridian);
    return found;
}

struct CourseName {
    QString text;
    QPainterPath course;
    QColor colour;
};

// At the middle of the course or, where there is more room, somewhat before or behind it, or at an
// end.
void drawName(QPainter& painter, LabelPlaces& places, const CourseName& name) {
    const QFont font = pictureFont(25, true);
    const QRectF extent = bareExtent(name.text, font);
    constexpr double middle = 0.5;
    constexpr double wandering = 6; // the drawback of a whole course's length
    constexpr std::array shares{middle, 0.45, 0.55, 0.4, 0.6, 0.35, 0.65, 0.0, 1.0};
    std::vector<LabelPlaces::Wish> wishes;
    wishes.reserve(shares.size());
    for (const double share : shares)
        wishes.push_back({.at = name.course.pointAtPercent(share),
                          .radius = 8,
                          .extent = extent,
                          .preferred = 0,
                          .drawback = wandering * std::abs(share - middle)});
    const LabelPlaces::Choice found = places.takeOneOf(wishes);
    drawLeader(painter, {.from = wishes[found.wish].at,
                         .radius = 2,
                         .to = extent.translated(found.middle),
                         .width = 2,
                         .colour = name.colour});
    drawLabel(painter,
              {.text = name.text, .font = font, .middle = found.middle, .colour = name.colour});
}

// Both sides where the view shows both, the left one with its name.
void drawCourses(QPainter& painter, const Stage& stage, const Vocabulary& words, bool yang) {
    drawView(painter, stage, 2.6);
    LabelPlaces places(stage.target);
    constexpr double otherCourses = 4; // under a name they would be taken for its own
    std::vector<CourseName> courseNames;
    painter.save();
    painter.setClipRect(stage.target);
    for (const std::string& meridian : meridiansOf(words.texts, yang)) {
        const auto found = stage.view.pathways.find(meridian);
        if (found == stage.view.pathways.end())
            continue;
        const MeridianTexts& own = words.texts.meridians.at(meridian);
        const PathwayStyle style{
            .width = 5, .arrowEvery = 190, .colour = elementColour(own.element)};
        const QPainterPath course = stage.transform().map(found->second);
        drawPathway(painter, course, style);
        places.avoid(course, otherCourses);
        courseNames.push_back({words.label(own), course, elementInk(own.element)});
        if (stage.view.name == "body_side" || own.element == 0)
            continue;
        const Stage other{.view = stage.view,
                          .part = stage.part,
                          .target = stage.target,
                          .mirrored = !stage.mirrored};
        const QPainterPath otherCourse = other.transform().map(found->second);
        drawPathway(painter, otherCourse, style);
        places.avoid(otherCourse, otherCourses);
    }
    painter.restore();
    for (const CourseName& name : courseNames)
        drawName(painter, places, name);
}

} // namespace

QImage energyPicture(const Atlas& atlas, const Vocabulary& words, bool yang) {
    std::vector<const AtlasView*> views{&atlas.view("body_front")};
    if (yang)
        views = {&atlas.view("body_side"), &atlas.view("body_back")};
    const QSize size(energyColumn * static_cast<int>(views.size()), energyHeight);
    Paper paper(size);
    const QRectF room = QRectF(QPointF(0, 0), QSizeF(size)).adjusted(16, titleHeight, -16, -16);
    drawLine(paper.painter,
             {words.word(yang ? "yang" : "yin"),
              {room.center().x(), titleHeight / 2},
              52,
              palette::accent},
             room.width());
    for (const Stage& stage : besideEachOther(views, room))
        drawCourses(paper.painter, stage, words, yang);
    return paper.finish();
}

// ---- The pentagram

namespace {

constexpr int hoursOfRound = 24;
constexpr int noon = 12;
constexpr int pathwaysOfRound = 12;
constexpr int firstHour = 3; // of the first pathway

// One pathway's place in the round: its sector, its name and its two hours.
void drawSector(QPainter& painter, const QPointF& middle, int number, const MeridianTexts& own) {
    constexpr double outer = 530;
    constexpr double inner = 425;
    constexpr double span = 360.0 / pathwaysOfRound;
    // Noon is at the top, the hours run clockwise.
    const int hour = (firstHour + 2 * number) % hoursOfRound;
    const double start = 90 - (hour - noon) * 360.0 / hoursOfRound;
    const auto frame = [&](double radius) {
        return QRectF(middle - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
    };
    QPainterPath sector;
    sector.arcMoveTo(frame(outer), start);
    sector.arcTo(frame(outer), start, -span);
    sector.arcTo(frame(inner), start - span, span);
    sector.closeSubpath();
    painter.setPen(QPen(palette::paper, 5));
    painter.setBrush(elementColour(own.element));
    painter.drawPath(sector);
    const auto at = [&](double radius, double degrees) {
        return QLineF::fromPolar(radius, degrees).translated(middle).p2();
    };
    drawLine(painter, {QString::fromStdString(own.code), at((inner + outer) / 2, start - span / 2),
                       44, onElementColour(own.element)});
    drawLine(painter,
             {QString::number(hour), at(outer + 32, start), 30, palette::secondInk, false});
}

} // namespace

QImage pentagramPicture(const ReferenceTexts& texts) {
    Paper paper(starSize);
    const QPointF middle(600, 600);
    int number = 0;
    for (const auto& [meridian, own] : texts.meridians)
        if (own.element != 0)
            drawSector(paper.painter, middle, number++, own);
    const ElementCircle circle{.middle = middle, .radius = 300, .nodeRadius = 62};
    drawControl(paper.painter, circle, 6);
    drawNourishing(paper.painter, circle, 8);
    for (int element = 1; element <= elementCount; ++element)
        drawNode(paper.painter, circle.node(element), circle.nodeRadius, element);
    return paper.finish();
}

} // namespace vorna
