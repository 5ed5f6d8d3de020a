#include "platform/qt/pie_labels.h"

#include <algorithm>

namespace vorna {
namespace {

// A hyphen that stands for a minus becomes one; a single letter keeps to the word behind it, and
// the number at the end to the word before.
QString typeset(QString text) {
    for (qsizetype i = 0; i + 1 < text.size(); ++i)
        if (text[i] == u'-' && text[i + 1].isDigit() && (i == 0 || text[i - 1] == u' '))
            text[i] = QChar(0x2212);
    for (qsizetype i = 1; i + 1 < text.size(); ++i)
        if (text[i] == u' ' && text[i - 1].isLetter() && (i == 1 || text[i - 2] == u' '))
            text[i] = QChar(QChar::Nbsp);
    const qsizetype blank = text.lastIndexOf(u' ');
    if (blank > 0 && text.back().isDigit())
        text[blank] = QChar(QChar::Nbsp);
    return text;
}

QString valueText(const ChartModel& model, const ChartValue& slice, double total) {
    if (!model.showPercentages)
        return QString::number(slice.value, 'g', 10);
    const double percent = total > 0 ? std::max(slice.value, 0.0) * 100 / total : 0;
    return QString::number(percent, 'f', model.decimals) + QChar(QChar::Nbsp) + u'%';
}

QString labelText(const ChartModel& model, const ChartValue& slice, double total) {
    const bool hidden =
        !slice.shown.value_or(true) || (total > 0 && slice.value <= 0 && !model.showZeroSlices);
    if (hidden)
        return {};
    if (slice.displayValue)
        return typeset(chartText(*slice.displayValue));
    QString text = model.showLabels ? chartText(slice.label) : QString();
    if (model.showValues)
        text += QLatin1String(text.isEmpty() ? "" : " ") + valueText(model, slice, total);
    return text;
}

QStringList linesOf(const std::vector<LabelLine>& wrappedLines) {
    QStringList lines;
    for (const LabelLine& line : wrappedLines)
        lines.append(line.text);
    return lines;
}

} // namespace

std::vector<QString> pieLabelTexts(const ChartModel& model) {
    double total = 0;
    for (const ChartValue& slice : model.slices)
        total += std::max(slice.value, 0.0);
    std::vector<QString> texts;
    for (const ChartValue& slice : model.slices)
        texts.push_back(labelText(model, slice, total));
    return texts;
}

std::vector<QStringList> setPieLabels(const std::vector<QString>& texts,
                                      const PieLabelSetting& setting, ChartFonts& fonts) {
    const ChartFont& font = fonts.get(ChartFace::text, setting.size, true);
    const LabelFonts both{font, font};
    std::vector<QStringList> result;
    for (const QString& text : texts) {
        const double whole = font.width(text);
        QStringList lines = text.isEmpty() ? QStringList() : QStringList(text);
        // From an even share of the width upwards until the words fit into the lines.
        for (double width = whole / setting.lines; width < whole; width += whole / 20) {
            QStringList tried = linesOf(wrapped(text, both, width));
            if (tried.size() <= setting.lines) {
                lines = std::move(tried);
                break;
            }
        }
        result.push_back(std::move(lines));
    }
    return result;
}

} // namespace vorna
