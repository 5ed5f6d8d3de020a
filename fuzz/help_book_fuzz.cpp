// Any bytes as a help book: its lists, every object in it, and the search. Bytes that do not begin
// as a book are the text of one that is made here: its lists and its only topic. A real book packs
// its texts, so that no change of its bytes is a sensible change of them.
#include "fuzz/support.h"
#include "platform/chm_book.h"
#include "platform/encoding.h"
#include "platform/failure.h"
#include "tests/support/scratch_folder.h"

#include <algorithm>

namespace {

using namespace vorna;
using fuzz::require;

// The lowest byte first.
void put(std::string& bytes, std::uint64_t number, int width) {
    for (int i = 0; i < width; ++i)
        bytes += static_cast<char>(number >> (8 * i));
}

// Places and lengths have seven bits a byte, the highest first.
void putObject(std::string& page, const std::string& path, std::size_t start, std::size_t length) {
    page += static_cast<char>(path.size());
    page += path;
    page += '\0'; // not packed
    for (const std::size_t number : {start, length}) {
        page += static_cast<char>(0x80 | (number >> 14));
        page += static_cast<char>(0x80 | (number >> 7 & 0x7F));
        page += static_cast<char>(number & 0x7F);
    }
}

// A page of the directory with what tells the contents, the index and the topic.
std::string directoryPage(std::size_t system, std::size_t text) {
    constexpr std::size_t pageBytes = 512;
    std::string entries;
    putObject(entries, "/#SYSTEM", 0, system);
    putObject(entries, "/a.hhc", system, text);
    putObject(entries, "/a.html", system, text);
    std::string page = "PMGL";
    put(page, pageBytes - 20 - entries.size(), 4);
    put(page, 0, 4);
    put(page, ~std::uint64_t{0}, 8); // no page before or behind it
    page += entries;
    page.resize(pageBytes, '\0');
    return page;
}

std::string bookOf(std::string_view text) {
    constexpr std::size_t header = 0x60;
    constexpr std::size_t directoryHeader = 0x54;
    std::string system("\3\0\0\0\0\0\6\0a.hhc\0\1\0\6\0a.hhc\0", 24);
    const std::string page = directoryPage(system.size(), text.size());
    std::string book = "ITSF";
    for (const unsigned number : {3U, unsigned{header}, 1U})
        put(book, number, 4);
    book.resize(0x48, '\0');
    put(book, header, 8);
    put(book, directoryHeader + page.size(), 8);
    put(book, header + directoryHeader + page.size(), 8);
    book += "ITSP";
    for (const unsigned number :
         {1U, unsigned{directoryHeader}, 10U, unsigned(page.size()), 2U, 1U, ~0U, 0U, 0U, ~0U, 1U})
        put(book, number, 4);
    book.resize(header + directoryHeader, '\0');
    return book + page + system + std::string(text);
}

constexpr std::size_t enough = 40; // objects and matches that are read

void checkList(const std::vector<BookEntry>& list) {
    require(list.size() <= 5'000);
    for (const BookEntry& entry : list) {
        require(!entry.title.empty() && entry.level >= 0 && entry.level <= 31);
        require(entry.topic.empty() || entry.topic.front() == '/');
    }
}

void checkBook(const fs::path& file) {
    const ChmBook book(file);
    checkList(book.contents());
    checkList(book.index());
    for (const BookEntry& entry : book.contents())
        attempt([&] { static_cast<void>(book.readPage(entry.topic)); });
    const std::vector<BookMatch> matches = book.find("e");
    for (std::size_t i = 0; i < std::min(matches.size(), enough); ++i)
        require(attempt([&] { static_cast<void>(book.readPage(matches[i].topic)); }));
}

void checkArchive(const fs::path& file, std::size_t fileSize) {
    const ChmArchive archive(file);
    const std::vector<std::string> paths = archive.paths();
    require(paths.size() <= fileSize);
    for (std::size_t i = 0; i < std::min(paths.size(), enough); ++i) {
        require(paths[i].front() == '/');
        attempt([&] { require(archive.read(paths[i]).size() <= std::size_t{8} << 20U); });
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const ScratchFolder folder;
    const fs::path file = folder / "book.chm";
    const std::string_view bytes = fuzz::textOf(data, size);
    const bool isBook = bytes.starts_with("ITSF");
    fuzz::writeScratch(file, isBook ? bytes : bookOf(bytes));
    const bool sound = attempt([&] {
        checkArchive(file, size + 1024);
        checkBook(file);
    });
    require(isBook || sound);
    return 0;
}
