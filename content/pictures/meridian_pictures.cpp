#include "content/pictures/meridian_pictures.h"

#include "content/pictures/dot_labels.h"
#include "content/pictures/marks.h"
#include "content/pictures/palette.h"
#include "content/pictures/panels.h"
#include "content/table_source.h"

#include <QtMath>

#include <algorithm>
#include <iterator>

namespace vorna {
namespace {

constexpr QSize figurePictureSize{1200, 1400};
constexpr QSize partsPictureSize{1800, 1600};
constexpr double headingHeight = 92; // with its distance from the top and from the views
constexpr int margin = 16;
constexpr double insetMargin = 12; // between an inset and its frame

QRectF roomIn(const QSize& size) {
    return QRectF(QPointF(0, 0), QSizeF(size)).adjusted(margin, margin, -margin, -margin);
}

std::vector<std::string> wordsOf(const std::string& text) {
    std::vector<std::string> words;
    for (const QString& word : QString::fromStdString(text).split(' ', Qt::SkipEmptyParts))
        words.push_back(word.toStdString());
    return words;
}

std::vector<const AtlasView*> viewsOf(const Atlas& atlas,
                                      const std::vector<std::string>& viewNames) {
    std::vector<const AtlasView*> found;
    found.reserve(viewNames.size());
    for (const std::string& name : viewNames)
        found.push_back(&atlas.view(name));
    return found;
}

int numberOf(const std::string& pointLong) {
    return QString::fromStdString(pointLong.substr(2)).toInt();
}

// A picture on which views are drawn and their points labelled.
class Sheet {
public:
    Sheet(const MeridianSubject& subject, const QSize& size)
        : subject_(subject), image_(size, QImage::Format_RGB32), places_(roomIn(size)) {
        image_.fill(palette::paper);
        painter_.begin(&image_);
        painter_.setRenderHint(QPainter::Antialiasing);
    }

    void drawBackground(const Stage& stage, double outline) {
        drawView(painter_, stage, outline);
        places_.avoid(stage);
    }

    void drawFrame(const Stage& stage) {
        painter_.setPen(QPen(palette::line, 2));
        painter_.setBrush(palette::paper);
        painter_.drawRoundedRect(
            stage.target.adjusted(-insetMargin, -insetMargin, insetMargin, insetMargin), 14, 14);
    }

    void drawCourse(const Stage& stage, const PathwayStyle& style) {
        const auto found = stage.view.pathways.find(subject_.meridian);
        if (found == stage.view.pathways.end())
            return;
        const QPainterPath course = stage.transform().map(found->second);
        painter_.save();
        painter_.setClipRect(stage.target);
        drawPathway(painter_, course, style);
        painter_.restore();
        places_.avoid(course);
    }

    // The points that the view shows: face on, or at its rim when no other view shows them better.
    void collectPoints(const Stage& stage, const std::vector<const AtlasView*>& others) {
        for (const auto& [pointLong, place] : stage.view.points) {
            if (!pointLong.starts_with(subject_.meridian))
                continue;
            const auto isFaceOn = [&, key = pointLong](const AtlasView* view) {
                const auto found = view->points.find(key);
                return found != view->points.end() && !found->second.edge;
            };
            if (place.edge && std::any_of(others.begin(), others.end(), isFaceOn))
                continue;
            points_.push_back({stage.map(place.at), pointLong});
        }
    }

    // Forgets the points for which the test does not hold.
    template <class IsKept>
    void keepPoints(IsKept&& isKept) {
        std::erase_if(points_, [&](const Point& point) { return !isKept(point.pointLong); });
    }

    struct PointStyle {
        double dot;
        double label;
        bool withCode;
    };
    template <class IsLabelled>
    void drawPoints(const PointStyle& style, IsLabelled&& isLabelled) {
        std::vector<NamedDot> named;
        for (const Point& point : points_) {
            const double radius = dotRadius(point, style.dot);
            drawDot(painter_, point.at, radius, palette::mark);
            places_.keepFree(point.at, radius * 1.4);
            if (isLabelled(point.pointLong))
                named.push_back(
                    {point.at, radius * 1.5,
                     (style.withCode ? QString::fromStdString(subject_.code) : QString()) +
                         QString::number(numberOf(point.pointLong))});
        }
        drawDotLabels(painter_, places_, named,
                      {.font = pictureFont(style.label, true), .colour = palette::ink});
    }

    void drawHeading() {
        const QString code = QString::fromStdString(subject_.code);
        const QFont font = pictureFont(50, true);
        const QRectF box = boxedExtent(code, font);
        const QPointF middle(24 + box.width() / 2, 24 + box.height() / 2);
        places_.keepFree(box.translated(middle));
        drawLabel(painter_, {.text = code,
                             .font = font,
                             .middle = middle,
                             .colour = palette::accent,
                             .boxed = true});
    }

    // The highest point collected.
    [[nodiscard]] std::string lastPoint() const {
        std::string last;
        for (const Point& point : points_)
            last = std::max(last, point.pointLong);
        return last;
    }

    QImage finish() {
        painter_.end();
        return std::move(image_);
    }

private:
    struct Point {
        QPointF at;
        std::string pointLong;
    };

    // The radius of a dot: less than usual where it would hide the next one, unless both are one.
    [[nodiscard]] double dotRadius(const Point& point, double usual) const {
        double radius = usual;
        for (const Point& other : points_)
            if (const double apart = QLineF(point.at, other.at).length(); apart > usual)
                radius = std::min(radius, 0.4 * apart);
        return radius;
    }

    const MeridianSubject& subject_;
    QImage image_;
    QPainter painter_;
    LabelPlaces places_;
    std::vector<Point> points_;
};

// A part of the body between the whole figures.
bool isInset(const AtlasView& view) {
    return !view.name.starts_with("body_");
}

// Front and back show both sides of the body, the side view and an inset the left one alone.
bool showsBothSides(const Stage& stage) {
    return stage.view.name != "body_side" && !isInset(stage.view);
}

// The whole figures beside each other and, between their feet, the inset.
std::vector<Stage> figureStages(const Atlas& atlas, const MeridianViews& views) {
    constexpr QSizeF insetSize(216, 324);
    const QRectF room = roomIn(figurePictureSize);
    std::vector<Stage> stages = besideEachOther(viewsOf(atlas, views.figures), room);
    if (views.inset.empty())
        return stages;
    QRectF inset(QPointF(0, 0), insetSize);
    inset.moveCenter({room.center().x(), room.bottom() - insetSize.height() / 2 - insetMargin});
    stages.push_back(wholeView(atlas.view(views.inset), inset, false));
    return stages;
}

std::vector<const AtlasView*> viewsOf(const std::vector<Stage>& stages) {
    std::vector<const AtlasView*> found;
    found.reserve(stages.size());
    for (const Stage& stage : stages)
        found.push_back(&stage.view);
    return found;
}

Stage mirrorImage(const Stage& stage) {
    return {.view = stage.view,
            .part = stage.part,
            .target = stage.target,
            .mirrored = !stage.mirrored};
}

} // namespace

std::map<std::string, MeridianViews> readMeridianViews(const Atlas& atlas, const fs::path& file) {
    const TableSource table = readTable(file);
    std::map<std::string, MeridianViews> all;
    for (const SourceRow& row : table.rows) {
        const MeridianViews views{.figures = wordsOf(table.text(row, "figures")),
                                  .inset = table.text(row, "inset"),
                                  .parts = wordsOf(table.text(row, "parts"))};
        for (const auto* list : {&views.figures, &views.parts}) {
            if (list->empty())
                failAt(table.placeOf(row), "no views");
            for (const std::string& view : *list)
                naming(file, [&] { return atlas.view(view).canvas; });
        }
        if (!views.inset.empty()) {
            if (views.figures.size() < 2)
                failAt(table.placeOf(row), "an inset stands between two figures");
            naming(file, [&] { return atlas.view(views.inset).canvas; });
        }
        all.emplace(table.text(row, "meridian"), views);
    }
    return all;
}

QImage coursePicture(const Atlas& atlas, const MeridianSubject& subject) {
    Sheet sheet(subject, figurePictureSize);
    const std::vector<Stage> stages = figureStages(atlas, subject.views);
    const std::vector<const AtlasView*> views = viewsOf(stages);
    const PathwayStyle style{.width = 6, .arrowEvery = 130, .colour = palette::accent};
    sheet.drawHeading();
    for (const Stage& stage : stages) {
        if (isInset(stage.view))
            sheet.drawFrame(stage);
        sheet.drawBackground(stage, 2.8);
        if (showsBothSides(stage))
            sheet.drawCourse(mirrorImage(stage), style);
        sheet.drawCourse(stage, style);
        sheet.collectPoints(stage, views);
    }
    const std::string ends[] = {subject.meridian + "01", sheet.lastPoint()};
    sheet.keepPoints([&](const std::string& point) {
        return std::find(std::begin(ends), std::end(ends), point) != std::end(ends);
    });
    sheet.drawPoints({.dot = 9, .label = 36, .withCode = true},
                     [](const std::string&) { return true; });
    return sheet.finish();
}

QImage bodyPointsPicture(const Atlas& atlas, const MeridianSubject& subject) {
    constexpr int everyFifth = 5;
    Sheet sheet(subject, figurePictureSize);
    const std::vector<Stage> stages = figureStages(atlas, subject.views);
    const std::vector<const AtlasView*> views = viewsOf(stages);
    sheet.drawHeading();
    for (const Stage& stage : stages) {
        if (isInset(stage.view))
            sheet.drawFrame(stage);
        sheet.drawBackground(stage, 2.8);
        sheet.drawCourse(stage, {.width = 4, .colour = palette::accent});
        sheet.collectPoints(stage, views);
    }
    const std::string last = sheet.lastPoint();
    sheet.drawPoints({.dot = 5, .label = 25, .withCode = false}, [&](const std::string& point) {
        return numberOf(point) == 1 || numberOf(point) % everyFifth == 0 || point == last;
    });
    return sheet.finish();
}

QImage regionPointsPicture(const Atlas& atlas, const MeridianSubject& subject) {
    const std::vector<const AtlasView*> views = viewsOf(atlas, subject.views.parts);
    const QRectF room = roomIn(partsPictureSize).adjusted(0, headingHeight, 0, 0);
    const std::vector<Stage> stages = packed(views, room);
    const QRectF used = covered(stages);
    Sheet sheet(subject, {qCeil(used.right()) + margin, qCeil(used.bottom()) + margin});
    sheet.drawHeading();
    for (const Stage& stage : stages) {
        sheet.drawBackground(stage, 2.8);
        sheet.drawCourse(stage, {.width = 4.5, .colour = palette::accent});
        sheet.collectPoints(stage, views);
    }
    sheet.drawPoints({.dot = 6.5, .label = 24, .withCode = false},
                     [](const std::string&) { return true; });
    return sheet.finish();
}

} // namespace vorna
