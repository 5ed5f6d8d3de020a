#include "content/pictures/atlas.h"

#include "content/pictures/svg_path.h"
#include "content/sources.h"
#include "content/table_source.h"
#include "core/number.h"

#include <QXmlStreamReader>

namespace vorna {
namespace {

// ---- The drawing

QString attribute(const QXmlStreamAttributes& own, const QXmlStreamAttributes& group,
                  const char* name) {
    const QString key = QString::fromLatin1(name);
    return own.hasAttribute(key) ? own.value(key).toString() : group.value(key).toString();
}

QColor colourOf(const QString& text) {
    return text.isEmpty() || text == "none" ? QColor() : QColor(text);
}

QPen penOf(const QXmlStreamAttributes& own, const QXmlStreamAttributes& group) {
    const QColor colour = colourOf(attribute(own, group, "stroke"));
    if (!colour.isValid())
        return QPen(Qt::NoPen);
    const double width = attribute(own, group, "stroke-width").toDouble();
    QPen pen(colour, width);
    pen.setCapStyle(attribute(own, group, "stroke-linecap") == "round" ? Qt::RoundCap
                                                                       : Qt::FlatCap);
    pen.setJoinStyle(Qt::RoundJoin);
    QList<qreal> dashes; // in widths of the pen
    for (const QString& dash :
         attribute(own, group, "stroke-dasharray").split(' ', Qt::SkipEmptyParts))
        dashes.append(dash.toDouble() / width);
    if (!dashes.isEmpty())
        pen.setDashPattern(dashes);
    return pen;
}

Layer layerOf(const QString& group) {
    static const std::map<QString, Layer> layers{{"skin", Layer::Skin},
                                                 {"bones", Layer::Bones},
                                                 {"nails", Layer::Nails},
                                                 {"hair", Layer::Hair},
                                                 {"landmarks", Layer::Landmarks}};
    const auto found = layers.find(group);
    return found == layers.end() ? Layer::Form : found->second;
}

void readDrawing(const fs::path& file, AtlasView& view) {
    QXmlStreamReader xml(QByteArray::fromStdString(readSource(file)));
    QXmlStreamAttributes group;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes attributes = xml.attributes();
        if (xml.name() == QStringLiteral("svg")) {
            const QStringList box = attributes.value("viewBox").toString().split(' ');
            if (box.size() == 4)
                view.canvas = {box[2].toDouble(), box[3].toDouble()};
        } else if (xml.name() == QStringLiteral("g")) {
            group = attributes;
        } else if (xml.name() == QStringLiteral("path")) {
            view.drawing.push_back(
                {.path = parseSvgPath(attributes.value("d").toString().toStdString()),
                 .pen = penOf(attributes, group),
                 .fill = colourOf(attribute(attributes, group, "fill")),
                 .layer = layerOf(group.value("id").toString())});
        }
    }
    if (xml.hasError())
        throw Failure(xml.errorString().toStdString());
    if (view.canvas.isEmpty() || view.drawing.empty())
        throw Failure("no drawing with a viewBox");
}

// ---- The tables

void readPoints(const fs::path& file, AtlasView& view) {
    const TableSource table = readTable(file);
    for (const SourceRow& row : table.rows) {
        const auto number = [&](std::string_view column) {
            return numberOfDecimalText(table.text(row, column));
        };
        const PlacedPoint point{.at = {number("x"), number("y")}, .edge = number("vis") > 1};
        if (!view.area().contains(point.at))
            failAt(table.placeOf(row), "the point lies beside the canvas");
        if (!view.points.emplace(table.text(row, "pointLong"), point).second)
            failAt(table.placeOf(row), "the point stands twice");
    }
}

void readPathways(const fs::path& file, AtlasView& view) {
    const TableSource table = readTable(file);
    for (const SourceRow& row : table.rows) {
        const QPainterPath path = parseSvgPath(table.text(row, "path"));
        // A straight course has an empty bound, which meets nothing.
        if (!view.area().intersects(path.boundingRect().adjusted(-1, -1, 1, 1)))
            failAt(table.placeOf(row), "the pathway lies beside the canvas");
        view.pathways[table.text(row, "meridian")].addPath(path);
    }
}

} // namespace

Atlas::Atlas(const fs::path& folder) {
    for (const std::string& file : listFiles(folder, "*.svg")) {
        AtlasView view{.name = fs::path(file).stem().string()};
        naming(folder / file, [&] { readDrawing(folder / file, view); });
        readPoints(folder / (view.name + ".tsv"), view);
        readPathways(folder / (view.name + ".paths.tsv"), view);
        views_.emplace(view.name, std::move(view));
    }
    if (views_.empty())
        throw Failure(pathText(folder) + ": no drawings");
}

const AtlasView& Atlas::view(const std::string& name) const {
    const auto found = views_.find(name);
    if (found == views_.end())
        throw Failure("the atlas has no view " + name);
    return found->second;
}

} // namespace vorna
