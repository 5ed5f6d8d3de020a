// The manual itself: the books that the build has made, held against the texts of the windows.
#include "content/table_source.h"
#include "core/file_names.h"
#include "core/settings_file.h"
#include "platform/chm_book.h"
#include "platform/encoding.h"
#include "platform/html_text.h"
#include "platform/text.h"

#include <gtest/gtest.h>

#include <set>

namespace vorna {
namespace {

fs::path helpSources() {
    return fs::path(VORNA_TEST_SOURCE) / "installation";
}

ChmBook bookOf(int language) {
    return ChmBook(fs::path(VORNA_TEST_INSTALLATION) /
                   names::helpFile(static_cast<std::int16_t>(language)));
}

// Without what the windows put round a caption or behind it.
std::string bare(std::string_view caption) {
    caption = trimmed(caption);
    while (caption.ends_with(':') || caption.ends_with('"'))
        caption.remove_suffix(1);
    while (caption.starts_with('"'))
        caption.remove_prefix(1);
    return std::string(trimmed(caption));
}

std::set<std::string> captionsOf(int language) {
    std::set<std::string> captions;
    const std::string file = readWholeFile(
        helpSources() / "lang" / names::languageFile(static_cast<std::int16_t>(language)));
    const CodePage otherwise = language == 4 ? CodePage::Windows1251 : CodePage::Windows1250;
    for (const IniEntry& entry : parseIniEntries(decodeTextFile(file, otherwise).text))
        captions.insert(bare(entry.value));
    const TableSource charts = readTable(helpSources() / "tables" / "GrafyTypy.tsv");
    const std::size_t name = charts.find("nazevGrafu", language).value();
    for (const SourceRow& row : charts.rows)
        captions.insert(row.cells[name].value_or(""));
    return captions;
}

// The texts within an element's tags, one blank between words.
std::vector<std::string> textsWithin(const std::string& page, std::string_view element) {
    std::vector<std::string> texts;
    HtmlScanner scanner(page);
    while (const auto piece = scanner.next()) {
        if (piece->kind != HtmlPiece::Kind::Open || piece->name != element)
            continue;
        const auto text = scanner.next();
        if (text && text->kind == HtmlPiece::Kind::Text)
            texts.push_back(pageText(text->rest));
    }
    return texts;
}

std::vector<std::string> linksOf(const std::string& page) {
    std::vector<std::string> links;
    HtmlScanner scanner(page);
    while (const auto piece = scanner.next()) {
        for (const char* attribute : {"href", "src"}) {
            if (const std::string link = attributeOf(*piece, attribute); !link.empty())
                links.push_back(link);
        }
    }
    return links;
}

std::vector<std::string> topicsOf(const ChmBook& book) {
    std::vector<std::string> topics;
    for (const BookEntry& entry : book.contents())
        topics.push_back(entry.topic);
    return topics;
}

class HelpBooks : public testing::TestWithParam<int> {};

TEST_P(HelpBooks, CallsEveryControlByItsCaption) {
    const std::set<std::string> captions = captionsOf(GetParam());
    const ChmBook book = bookOf(GetParam());
    for (const std::string& topic : topicsOf(book)) {
        for (const std::string& text : textsWithin(book.readPage(topic), "b"))
            EXPECT_TRUE(captions.contains(text)) << topic << ": " << text;
    }
}

TEST_P(HelpBooks, LeadsNowhereDead) {
    const ChmBook book = bookOf(GetParam());
    for (const std::string& topic : topicsOf(book)) {
        for (const std::string& link : linksOf(book.readPage(topic))) {
            EXPECT_NO_THROW(static_cast<void>(book.read(link))) << topic << ": " << link;
        }
    }
    for (const BookEntry& entry : book.index())
        EXPECT_NO_THROW(static_cast<void>(book.read(entry.topic))) << entry.title;
    // Each topic is in the contents under its own title.
    for (const BookEntry& entry : book.contents())
        EXPECT_EQ(pageTitle(book.readPage(entry.topic)), entry.title);
}

TEST_P(HelpBooks, HasTheTopicsOfTheOtherLanguages) {
    const ChmBook book = bookOf(GetParam());
    EXPECT_EQ(topicsOf(book), topicsOf(bookOf(2)));
    EXPECT_GE(book.index().size(), 50U);
    const std::size_t files =
        listFiles(helpSources() / "help" / std::to_string(GetParam()), "*.html").size();
    EXPECT_EQ(files, topicsOf(book).size()) << "a topic stands outside the contents";
}

TEST_P(HelpBooks, IsFoundInItsOwnLetters) {
    const char* const words[] = {"Rovnováha PRŮMĚR", "balance MEAN", "gleichgewicht MITTELWERT",
                                 "равновесие СРЕДНЕЕ"};
    EXPECT_FALSE(bookOf(GetParam()).find(words[GetParam() - 1]).empty());
}

INSTANTIATE_TEST_SUITE_P(Languages, HelpBooks, testing::Values(1, 2, 3, 4));

} // namespace
} // namespace vorna
