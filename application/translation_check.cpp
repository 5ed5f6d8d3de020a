#include "application/translation_check.h"

#include "core/session.h"
#include "platform/text.h"

#include <algorithm>
#include <array>

namespace vorna {
namespace {

using Faults = std::vector<std::string>;

// ---- Words

// Common words that the other languages do not have.
struct CommonWords {
    std::int16_t language;
    std::vector<std::string_view> words;
};

const std::vector<CommonWords>& commonWords() {
    static const std::vector<CommonWords> words{
        {languageCzech,
         {"nebo", "při", "není", "jsou", "které", "která", "který", "před", "podle", "také",
          "bolest", "dráha", "dráhy", "strana", "pod", "nad", "mezi", "bod"}},
        {languageEnglish,
         {"the", "and", "with", "from", "this", "that", "which", "pain", "below", "above",
          "between", "side", "point", "points", "measurement"}},
        {languageGerman,
         {"und", "der", "das", "nicht", "eine", "oder", "bei", "mit", "von", "zwischen",
          "schmerzen", "seite", "punkt", "punkte", "messung"}}};
    return words;
}

// A Russian text of Latin letters alone is a name or a sign.
constexpr std::size_t longestLatinText = 16;

bool hasCyrillic(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= 0xD0 && byte <= 0xD3; // begins a letter of the block from U+0400
    });
}

// Letters of any alphabet; dashes, quotation marks and the like, which begin with these bytes in
// UTF-8, are none.
bool belongsToWord(char c) {
    const auto byte = static_cast<unsigned char>(c);
    constexpr unsigned char lead2 = 0xC2;
    constexpr unsigned char lead3 = 0xE2;
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= 0x80 && byte != lead2 && byte != lead3);
}

bool isStrange(const std::string& word, std::int16_t language) {
    if (hasCyrillic(word))
        return language != languageRussian;
    const auto holds = [&](const CommonWords& common) {
        return std::find(common.words.begin(), common.words.end(), word) != common.words.end();
    };
    return std::any_of(commonWords().begin(), commonWords().end(), [&](const CommonWords& common) {
        return common.language != language && holds(common);
    });
}

// ---- Tables

struct TranslatedColumn {
    std::string_view name;
    std::int64_t longest; // characters
};

// The translated columns of the sister tables; each text of the first language must stand in every
// other.
struct Translation {
    std::string_view plain;
    std::string_view sister;
    std::vector<std::string_view> keys;
    std::vector<TranslatedColumn> texts;
};

const std::vector<Translation>& translations() {
    static const std::vector<Translation> tables{
        {"Meridians",
         "_Meridians",
         {"j-meridian"},
         {{"j-meridianName", 45},
          {"j-shortName", 3},
          {"j-descr-short", 140},
          {"j-description", 700}}},
        {"Elements", "_elements", {"j-id"}, {{"j-elementname", 10}}},
        {"EnergyTypes", "_EnergyTypes", {"j-id"}, {{"j-energy", 10}}},
        {"GrafyTypy",
         "_GrafyTypy",
         {"j-id", "j-sloupec"},
         {{"j-nazevGrafu", 28}, {"j-nazevSloupce", 40}}},
        {"Points", "_Points", {"j-pointLong"}, {{"j-descr", 260}}},
        {"PointTypes", "_pointTypes", {"j-id"}, {{"j-type", 60}}},
        {"ProblemTypes", "_ProblemTypes", {"j-problem"}, {{"j-descr", 30}}},
        {"Skelet", "_skelet", {"j-ID"}, {{"j-hodnota", 24}}},
        {"Therapy_APM", "_Therapy_APM", {"j-graf", "j-column"}, {{"j-text", 640}}},
        {"Therapy_e", "_Therapy_e", {"j-therapy"}, {{"j-therapyText", 220}}},
        {"Therapy_m",
         "_Therapy_m",
         {"j-therapy"},
         {{"j-therapytext", 160}, {"j-adtherapytext", 220}}}};
    return tables;
}

std::string quoted(std::string_view name) {
    return "\"" + std::string(name) + "\"";
}

// How many texts of a column stand in the first language and not in this one.
std::int64_t missingTexts(Database& database, const Translation& table, const std::string& column,
                          std::int16_t language) {
    std::string same;
    for (const std::string_view key : table.keys)
        same += " and f." + quoted(key) + " = s." + quoted(key);
    return database
        .query("select count(*) as n from " + std::string(table.sister) + " f left join " +
                   std::string(table.sister) + " s on s.jazyk = ?" + same +
                   " where f.jazyk = 1 and coalesce(f." + column + ", '') <> '' and coalesce(s." +
                   column + ", '') = ''",
               {std::int64_t{language}})
        .number("n");
}

class ColumnCheck {
public:
    ColumnCheck(Database& database, std::int16_t language, std::string where, Faults& faults)
        : database_(database), language_(language), where_(std::move(where)), faults_(faults) {}

    void check(const Translation& table, const TranslatedColumn& column) const {
        const std::string name = quoted(column.name);
        if (const std::int64_t missing = missingTexts(database_, table, name, language_))
            fault(std::to_string(missing) + " texts are missing or empty", table);
        Recordset texts =
            database_.query("select " + name + " as text from " + std::string(table.sister) +
                                " where jazyk = ? and " + name + " <> ''",
                            {std::int64_t{language_}});
        for (; !texts.atEnd(); texts.moveNext())
            checkText(table, column, texts.text("text"));
    }

    void fault(const std::string& text, const Translation& table) const {
        faults_.push_back(where_ + ": " + std::string(table.plain) + ": " + text);
    }

private:
    void checkText(const Translation& table, const TranslatedColumn& column,
                   const std::string& text) const {
        constexpr std::size_t begin = 40;
        const std::string named = "\"" + std::string(firstCharacters(text, begin)) + "\"";
        const auto longest = static_cast<std::size_t>(column.longest);
        if (firstCharacters(text, longest).size() != text.size())
            fault("longer than " + std::to_string(longest) + " characters: " + named, table);
        if (const std::string word = strangeWord(text, language_); !word.empty())
            fault("in another language (" + word + "): " + named, table);
    }

    Database& database_;
    std::int16_t language_;
    std::string where_;
    Faults& faults_;
};

} // namespace

std::string strangeWord(std::string_view text, std::int16_t language) {
    if (language == languageRussian && text.size() > longestLatinText && !hasCyrillic(text))
        return std::string(split(text, ' ').front());
    for (std::size_t at = 0; at < text.size();) {
        if (!belongsToWord(text[at])) {
            // The rest of a sign that is no letter goes with it.
            for (++at; at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80;)
                ++at;
            continue;
        }
        const std::size_t begin = at;
        while (at < text.size() && belongsToWord(text[at]))
            ++at;
        std::string word = foldCase(text.substr(begin, at - begin));
        if (isStrange(word, language))
            return word;
    }
    return {};
}

// A row without a text in a language would show the language of the start before.
void checkTranslations(Database& database, std::int16_t language, const std::string& where,
                       Faults& faults) {
    const ColumnCheck check(database, language, where, faults);
    for (const Translation& table : translations()) {
        const auto count = [&](const std::string& name, const std::string& condition) {
            return database.query("select count(*) as n from " + name + condition).number("n");
        };
        const std::int64_t rows = count(std::string(table.plain), "");
        const std::int64_t translated =
            count(std::string(table.sister), " where jazyk = " + std::to_string(language));
        if (rows != translated)
            check.fault(std::to_string(translated) + " of " + std::to_string(rows) +
                            " rows have a text",
                        table);
        for (const TranslatedColumn& column : table.texts)
            check.check(table, column);
    }
}

} // namespace vorna
