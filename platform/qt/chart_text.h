// The texts of a chart drawing: which fonts stand for those that the document names, how wide a
// text is, and how it is wrapped, shrunk or cut to a width. All lengths are logical pixels.
#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QPointF>
#include <QString>

#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

class QPainter;

namespace vorna {

// A font with its measures.
class ChartFont {
public:
    explicit ChartFont(const QFont& font) : font_(font), metrics_(font) {}

    [[nodiscard]] const QFont& font() const { return font_; }
    [[nodiscard]] double width(const QString& text) const;
    // From the baseline up to the top of a capital letter or figure.
    [[nodiscard]] double capHeight() const { return metrics_.capHeight(); }
    // As QFontMetricsF::elidedText.
    [[nodiscard]] QString cut(const QString& text, Qt::TextElideMode place, double width) const {
        return metrics_.elidedText(text, place, width);
    }

private:
    QFont font_;
    QFontMetricsF metrics_;
    // Measuring is most of the work of a layout, and the same text is measured several times.
    mutable QHash<QString, double> widths_;
};

// One line of text in its place.
struct ChartTextLine {
    QString text;
    QFont font;
    QPointF baseline; // of its left end
    double width = 0;
    QColor colour = Qt::black;
};

enum class ChartFace { text, heading };

// The fonts of one drawing, each made once. The document's family comes first, then the nearest
// that Debian has.
class ChartFonts {
public:
    // Empty families stand for Arial and Verdana. `scale` multiplies every size asked for.
    ChartFonts(const std::string& textFamily, const std::string& headingFamily, double scale);

    // `size` is at scale 1; fonts come in whole pixels. The reference holds as long as this object.
    const ChartFont& get(ChartFace face, double size, bool bold);

    [[nodiscard]] double scale() const { return scale_; }

private:
    using Key = std::tuple<ChartFace, int, bool>; // face, pixels, bold

    QString textFamily_;
    QString headingFamily_;
    double scale_;
    std::map<Key, ChartFont> fonts_;
};

// A document's text for drawing: UTF-8 (other bytes become U+FFFD), every run of blanks and
// control characters one blank, none at the ends, accents joined to their letters, no character
// that XML bars.
QString chartText(std::string_view text);

// The text with an ellipsis where it is wider than `width`; empty when not even one character
// fits beside it.
QString elided(const QString& text, const ChartFont& font, double width,
               Qt::TextElideMode place = Qt::ElideRight);

// A category's text for wrapping: no blank before a comma or closing bracket, one behind a comma.
QString tidyLabel(const QString& label);

// One line of a wrapped label; what stands in brackets is set in the smaller, finer type.
struct LabelLine {
    QString text;
    bool bracketed = false;
};

// The two types of a label.
struct LabelFonts {
    const ChartFont& main;
    const ChartFont& bracket;

    [[nodiscard]] const ChartFont& of(const LabelLine& line) const {
        return line.bracketed ? bracket : main;
    }
};

struct WrapRules {
    bool breakWords = false;    // words also break behind a slash or hyphen
    bool splitBrackets = false; // what stands in brackets gets its own line even if all fits in one
};

// The label in lines of at most `width` where its words allow it. What stands in brackets begins a
// line when the whole does not fit in one.
std::vector<LabelLine> wrapped(const QString& label, const LabelFonts& fonts, double width,
                               const WrapRules& rules = {});

// A line centred at x; `font` must be of this text's size.
ChartTextLine centredLine(const QString& text, const ChartFont& font, double centreX,
                          double baseline);

void drawLine(QPainter& painter, const ChartTextLine& line);

} // namespace vorna
