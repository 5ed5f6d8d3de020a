#include "platform/qt/chart_text.h"

#include <QFontInfo>
#include <QPainter>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace vorna {
namespace {

// The family that the system really uses for the first of these.
QString presentFamily(const QString& wanted, const QStringList& substitutes) {
    QFont font(QStringList{wanted} + substitutes);
    return QFontInfo(font).family();
}

// The words of a label; with `breakWords` pieces that stand together carry no blank between them.
struct Piece {
    QString text;
    bool blankBefore = false;
};

void appendPieces(std::vector<Piece>& pieces, const QString& word) {
    qsizetype begin = 0;
    for (qsizetype i = 0; i < word.size(); ++i) {
        const bool last = i + 1 == word.size();
        if (last || word[i] == u'/' || word[i] == u'-') {
            pieces.push_back({word.mid(begin, i + 1 - begin), begin == 0});
            begin = i + 1;
        }
    }
}

std::vector<Piece> piecesOf(const QString& text, bool breakWords) {
    std::vector<Piece> pieces;
    for (const QString& word : text.split(u' ', Qt::SkipEmptyParts)) {
        if (breakWords)
            appendPieces(pieces, word);
        else
            pieces.push_back({word, true});
    }
    return pieces;
}

QStringList wrappedPieces(const std::vector<Piece>& pieces, const ChartFont& font, double width) {
    QStringList lines;
    QString line;
    for (const Piece& piece : pieces) {
        const QString longer =
            line.isEmpty() ? piece.text
                           : line + QLatin1String(piece.blankBefore ? " " : "") + piece.text;
        if (!line.isEmpty() && font.width(longer) > width) {
            lines.append(line);
            line = piece.text;
        } else {
            line = longer;
        }
    }
    if (!line.isEmpty())
        lines.append(line);
    return lines;
}

} // namespace

double ChartFont::width(const QString& text) const {
    const auto known = widths_.constFind(text);
    if (known != widths_.constEnd())
        return *known;
    return *widths_.insert(text, metrics_.horizontalAdvance(text));
}

ChartFonts::ChartFonts(const std::string& textFamily, const std::string& headingFamily,
                       double scale)
    : textFamily_(
          presentFamily(textFamily.empty() ? u"Arial"_qs : chartText(textFamily),
                        {u"Arial"_qs, u"Liberation Sans"_qs, u"Noto Sans"_qs, u"DejaVu Sans"_qs})),
      headingFamily_(presentFamily(headingFamily.empty() ? u"Verdana"_qs : chartText(headingFamily),
                                   {u"Verdana"_qs, u"DejaVu Sans"_qs, u"Noto Sans"_qs})),
      scale_(scale) {}

const ChartFont& ChartFonts::get(ChartFace face, double size, bool bold) {
    const int pixels = std::max(qRound(size * scale_), 1);
    const Key key{face, pixels, bold};
    if (const auto found = fonts_.find(key); found != fonts_.end())
        return found->second;
    QFont font(face == ChartFace::heading ? headingFamily_ : textFamily_);
    font.setPixelSize(pixels);
    font.setBold(bold);
    // The same widths on the screen, in a picture of any density and in a drawing of lines.
    font.setHintingPreference(QFont::PreferNoHinting);
    // Kerning is worth its time in the title only; scripts that need shaping get it all the same.
    font.setStyleStrategy(face == ChartFace::heading
                              ? QFont::NoSubpixelAntialias
                              : static_cast<QFont::StyleStrategy>(QFont::NoSubpixelAntialias |
                                                                  QFont::PreferNoShaping));
    return fonts_.emplace(key, ChartFont(font)).first->second;
}

QString chartText(std::string_view text) {
    QString result = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    for (QChar& c : result)
        if (c.category() == QChar::Other_Control || c.unicode() >= 0xFFFE)
            c = u' ';
    return result.simplified().normalized(QString::NormalizationForm_C);
}

QString elided(const QString& text, const ChartFont& font, double width, Qt::TextElideMode place) {
    if (font.width(text) <= width)
        return text;
    const QString cut = font.cut(text, place, std::max(width, 0.0));
    return cut.size() > 1 && font.width(cut) <= width ? cut : QString();
}

QString tidyLabel(const QString& label) {
    QString tidy;
    for (const QChar c : label) {
        if ((c == u',' || c == u')') && tidy.endsWith(u' '))
            tidy.chop(1);
        if (tidy.endsWith(u',') && c != u' ')
            tidy.append(u' ');
        tidy.append(c);
    }
    return tidy;
}

std::vector<LabelLine> wrapped(const QString& label, const LabelFonts& fonts, double width,
                               const WrapRules& rules) {
    const qsizetype bracket = label.indexOf(u" (");
    if (fonts.main.width(label) <= width && !(rules.splitBrackets && bracket >= 0))
        return label.isEmpty() ? std::vector<LabelLine>() : std::vector<LabelLine>{{label}};
    std::vector<LabelLine> lines;
    const auto add = [&](const QString& part, bool bracketed) {
        const ChartFont& font = bracketed ? fonts.bracket : fonts.main;
        if (font.width(part) <= width)
            lines.push_back({part, bracketed});
        else
            for (const QString& line : wrappedPieces(piecesOf(part, rules.breakWords), font, width))
                lines.push_back({line, bracketed});
    };
    add(label.left(bracket), false);
    if (bracket >= 0)
        add(label.mid(bracket + 1), true);
    return lines;
}

ChartTextLine centredLine(const QString& text, const ChartFont& font, double centreX,
                          double baseline) {
    const double width = font.width(text);
    return {.text = text,
            .font = font.font(),
            .baseline = QPointF(centreX - width / 2, std::round(baseline)),
            .width = width};
}

void drawLine(QPainter& painter, const ChartTextLine& line) {
    if (line.text.isEmpty())
        return;
    painter.setFont(line.font);
    painter.setPen(line.colour);
    painter.drawText(line.baseline, line.text);
}

} // namespace vorna
