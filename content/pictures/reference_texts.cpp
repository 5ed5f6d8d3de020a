#include "content/pictures/reference_texts.h"

#include "content/table_source.h"
#include "core/number.h"

namespace vorna {
namespace {

FourTexts fourTexts(const TableSource& table, const SourceRow& row, const char* column) {
    FourTexts texts;
    for (int language = 1; language <= sourceLanguages; ++language) {
        const auto at = table.find(column, language);
        if (!at)
            failAt(table.header, std::string("no column ") + column + " in every language");
        texts.at(static_cast<std::size_t>(language - 1)) =
            QString::fromStdString(row.cells.at(*at).value_or(""));
    }
    return texts;
}

int number(const TableSource& table, const SourceRow& row, const char* column) {
    return roundToInt32(numberOfDecimalText(table.text(row, column)));
}

void readMeridians(const fs::path& tables, ReferenceTexts& texts) {
    constexpr int yang = 2;
    constexpr std::size_t english = 1;
    const TableSource table = readTable(tables / "Meridians.tsv");
    for (const SourceRow& row : table.rows) {
        MeridianTexts meridian{.shortName = fourTexts(table, row, "shortName"),
                               .element = number(table, row, "Element"),
                               .yang = number(table, row, "Energy") == yang};
        meridian.code = meridian.shortName[english].trimmed().toStdString();
        texts.meridians.emplace(table.text(row, "meridian"), meridian);
    }
}

void readElements(const fs::path& tables, ReferenceTexts& texts) {
    const TableSource elements = readTable(tables / "Elements.tsv");
    for (const SourceRow& row : elements.rows)
        texts.elements.emplace(number(elements, row, "id"),
                               fourTexts(elements, row, "elementname"));
    const TableSource energies = readTable(tables / "EnergyTypes.tsv");
    for (const SourceRow& row : energies.rows)
        (number(energies, row, "id") == 1 ? texts.yin : texts.yang) =
            fourTexts(energies, row, "energy");
}

} // namespace

ReferenceTexts readReferenceTexts(const fs::path& sources) {
    const fs::path tables = sources / "tables";
    ReferenceTexts texts;
    readMeridians(tables, texts);
    readElements(tables, texts);
    const TableSource points = readTable(tables / "Points.tsv");
    for (const SourceRow& row : points.rows)
        texts.points.push_back(points.text(row, "pointLong"));
    const TableSource words = readTable(sources / "pictures" / "words.tsv");
    for (const SourceRow& row : words.rows)
        texts.words.emplace(words.text(row, "key"), fourTexts(words, row, "word"));
    const TableSource sets = readTable(tables / "sadymereni.tsv");
    for (const SourceRow& row : sets.rows)
        texts.setRows.push_back({.sada = number(sets, row, "sada"),
                                 .extIndex = sets.text(row, "extIndex"),
                                 .pointLong = sets.text(row, "longpoint")});
    return texts;
}

bool isMidline(const std::string& pointLong) {
    return pointLong.starts_with("13") || pointLong.starts_with("14");
}

} // namespace vorna
