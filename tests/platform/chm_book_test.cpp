// Books made by the compiler that makes the real ones.
#include "platform/chm_book.h"
#include "platform/failure.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace vorna {
namespace {

struct Part {
    std::string name;
    std::string bytes;
};

std::string listed(const std::string& title, const std::string& topic) {
    return "<li><object type=\"text/sitemap\"><param name=\"Name\" value=\"" + title + "\">" +
           (topic.empty() ? "" : "<param name=\"Local\" value=\"" + topic + "\">") + "</object>";
}

std::string page(const std::string& title, const std::string& body) {
    return "<!DOCTYPE html><html><head><meta charset=\"utf-8\"><title>" + title +
           "</title></head><body>" + body + "</body></html>";
}

const std::string contents = "<html><body><ul>" + listed("Začínáme &amp; měříme", "start.html") +
                             "<ul>" + listed("Подключение датчика", "probe.html") + "</ul>" +
                             listed("Ohne Seite", "") + "</ul></body></html>";

// The keyword comes first, then the title of its topic.
const std::string keywords = "<html><body><ul><li><object type=\"text/sitemap\">"
                             "<param name=\"Name\" value=\"Щуп\">"
                             "<param name=\"Name\" value=\"Подключение датчика\">"
                             "<param name=\"Local\" value=\"probe.html\"></object></ul>"
                             "</body></html>";

const std::string startPage =
    page("Začínáme", "<p>Žluťoučký <b>kůň</b>stvo &lt;3 &#269;&#x159;</p><!-- unseen -->"
                     "<script>unseen</script><p>jedna dvě tři čtyři pět šest sedm Sonda konec</p>");

fs::path makeBook(const ScratchFolder& folder, const std::vector<Part>& more = {}) {
    std::vector<Part> parts{{"contents.hhc", contents},
                            {"index.hhk", keywords},
                            {"start.html", startPage},
                            {"probe.html", page("Датчик", "<p>ПОДКЛЮЧИТЕ sondu</p>")},
                            {"alone.html", page("Nowhere listed", "<p>lonely</p>")},
                            {"help.css", std::string("p { }\n\0\xFF", 8)}};
    parts.insert(parts.end(), more.begin(), more.end());
    std::string project = "[OPTIONS]\nCompiled file=book.chm\nContents file=contents.hhc\n"
                          "Index file=index.hhk\nDefault topic=start.html\n"
                          "Title=VORNA – справка\nLanguage=0x419\n\n[FILES]\n";
    for (const Part& part : parts) {
        folder.write(part.name, part.bytes);
        project += part.name + "\n";
    }
    folder.write("book.hhp", project);
    const std::string command = "cd '" + pathText(folder.path()) +
                                "' && '" VORNA_TEST_CHMCMD "' --no-html-scan book.hhp >told 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << readWholeFile(folder / "told");
    return folder / "book.chm";
}

TEST(ChmBook, GivesItsListsAndTopicsWhole) {
    const ScratchFolder folder;
    const ChmBook book(makeBook(folder));
    EXPECT_EQ(book.title(), "VORNA – справка");
    EXPECT_EQ(book.startTopic(), "/start.html");
    EXPECT_EQ(book.contents(), (std::vector<BookEntry>{{"Začínáme & měříme", "/start.html", 0},
                                                       {"Подключение датчика", "/probe.html", 1},
                                                       {"Ohne Seite", "", 0}}));
    EXPECT_EQ(book.index(), (std::vector<BookEntry>{{"Щуп", "/probe.html", 0}}));
    for (const char* name : {"start.html", "/start.html", "/Start.html", "start.html#somewhere"})
        EXPECT_EQ(book.read(name), startPage) << name;
    EXPECT_EQ(book.read("/help.css"), std::string("p { }\n\0\xFF", 8));
    for (const char* name : {"", "/", "/missing.html", "../start.html", "::DataSpace/NameList/.."})
        EXPECT_THROW(static_cast<void>(book.read(name)), Failure) << name;
}

TEST(ChmBook, FindsWordsInTitlesAndTexts) {
    const ScratchFolder folder;
    const ChmBook book(makeBook(folder));
    struct Case {
        const char* words;
        std::vector<std::string> topics;
    };
    const Case cases[] = {
        {"подключите", {"/probe.html"}},  {"SOND", {"/start.html", "/probe.html"}},
        {"sond ДАТЧИК", {"/probe.html"}}, {"koňstvo", {}},
        {"kůňSTVO čř", {"/start.html"}},  {"unseen", {}},
        {"lonely", {"/alone.html"}},      {"  ", {}},
    };
    for (const Case& c : cases) {
        std::vector<std::string> topics;
        for (const BookMatch& match : book.find(c.words))
            topics.push_back(match.topic);
        EXPECT_EQ(topics, c.topics) << c.words;
    }
    EXPECT_EQ(book.find("konec").at(0).excerpt, "… tři čtyři pět šest sedm Sonda konec");
    EXPECT_EQ(book.find("lonely").at(0).title, "Nowhere listed");
    EXPECT_EQ(book.find("датчик").at(0).topic, "/probe.html") << "the title's match comes first";
}

TEST(ChmBook, ADirectoryOfManyPagesIsFollowed) {
    const ScratchFolder folder;
    std::vector<Part> topics;
    for (int i = 100; i < 350; ++i)
        topics.push_back({"topic-with-a-long-name-" + std::to_string(i) + ".html",
                          page("Topic " + std::to_string(i), "<p>text</p>")});
    const ChmBook book(makeBook(folder, topics));
    for (const Part& topic : topics)
        EXPECT_EQ(book.read(topic.name), topic.bytes);
    EXPECT_EQ(book.find("text").size(), topics.size());
}

void readAll(const fs::path& file) {
    attempt([&] {
        const ChmBook book(file);
        for (const BookMatch& match : book.find("e"))
            static_cast<void>(book.read(match.topic));
        const ChmArchive archive(file);
        for (const std::string& path : archive.paths())
            attempt([&] { static_cast<void>(archive.read(path)); });
    });
}

// Most of the damage goes where the numbers are: headers, the directory, the tables.
TEST(ChmBook, DamagedFilesDoNoHarm) {
    const ScratchFolder folder;
    const std::string sound = readWholeFile(makeBook(folder));
    std::mt19937 random(20);
    const auto below = [&](std::size_t bound) { return std::size_t(random()) % bound; };
    const std::size_t tables = sound.find("ITSP") + 0x1054;
    for (int i = 0; i < 500; ++i) {
        std::string bytes = sound;
        for (std::size_t hits = 1 + below(3); hits > 0; --hits) {
            const std::size_t places[] = {below(0xE0), 0xE0 + below(0x300), tables + below(0x220),
                                          below(bytes.size())};
            const char values[] = {0, 1, 0x7F, char(0x80), char(0xFF), char(below(256))};
            bytes[std::min(places[below(4)], bytes.size() - 1)] = values[below(6)];
        }
        if (below(12) == 0)
            bytes.resize(below(bytes.size()));
        readAll(folder.write("damaged.chm", bytes));
    }
    // What the library itself would trip over.
    for (const char* name : {"/ControlData", "/ResetTable"}) {
        std::string bytes = sound;
        bytes[bytes.find(name) + std::string_view(name).size()] = 1; // said to be compressed
        EXPECT_THROW(ChmArchive(folder.write("damaged.chm", bytes)), Failure) << name;
    }
    EXPECT_THROW(ChmBook(folder / "missing.chm"), Failure);
    EXPECT_THROW(ChmBook(folder.path()), Failure);
}

} // namespace
} // namespace vorna
