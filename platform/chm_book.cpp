#include "platform/chm_book.h"

#include "platform/encoding.h"
#include "platform/failure.h"
#include "platform/html_text.h"
#include "platform/text.h"

#include <algorithm>
#include <cstdint>
#include <set>

namespace vorna {
namespace {

constexpr std::size_t mostEntries = 5'000;
constexpr int deepestLevel = 31;

// A path as the archive has it: with a leading slash and no anchor.
std::string objectPath(std::string_view topic) {
    topic = topic.substr(0, topic.find('#'));
    return topic.starts_with('/') ? std::string(topic) : "/" + std::string(topic);
}

bool isPage(std::string_view path) {
    const std::string folded = foldCase(path);
    return folded.ends_with(".html") || folded.ends_with(".htm");
}

std::size_t wordAt(std::string_view bytes, std::size_t at) {
    const auto byte = [&](std::size_t i) {
        return static_cast<std::size_t>(static_cast<unsigned char>(bytes[at + i]));
    };
    return byte(0) | byte(1) << 8U;
}

// A list of contents or index entries: an unordered list of objects, lists within it a level down.
class ListReader {
public:
    std::vector<BookEntry> read(std::string_view page) {
        HtmlScanner scanner(page);
        while (const auto piece = scanner.next()) {
            if (entries_.size() >= mostEntries)
                break;
            take(*piece);
        }
        return std::move(entries_);
    }

private:
    void take(const HtmlPiece& piece) {
        const bool open = piece.kind == HtmlPiece::Kind::Open;
        if (piece.name == "ul")
            depth_ += open ? 1 : -1;
        else if (piece.name == "object" && open)
            entry_ = {};
        else if (piece.name == "object" && piece.kind == HtmlPiece::Kind::Close)
            close();
        else if (piece.name == "param" && open)
            takeParameter(attributeOf(piece, "name"), attributeOf(piece, "value"));
    }

    // An index entry has the keyword first, then the titles and paths of its topics: the first of
    // each counts.
    void takeParameter(const std::string& name, std::string value) {
        if (equalFolded(name, "Name") && entry_.title.empty())
            entry_.title = std::move(value);
        else if (equalFolded(name, "Local") && entry_.topic.empty() && !value.empty())
            entry_.topic = value.starts_with('/') ? value : "/" + value;
    }

    void close() {
        if (!entry_.title.empty()) {
            entry_.level = std::clamp(depth_ - 1, 0, deepestLevel);
            entries_.push_back(std::move(entry_));
        }
        entry_ = {};
    }

    std::vector<BookEntry> entries_;
    BookEntry entry_;
    int depth_ = 0;
};

std::vector<std::string> foldedWords(std::string_view text) {
    std::vector<std::string> words;
    const std::string folded = foldCase(text);
    for (const std::string_view word : split(folded, ' ')) {
        if (!trimmed(word).empty())
            words.emplace_back(trimmed(word));
    }
    return words;
}

bool holdsAll(const std::string& folded, const std::vector<std::string>& words) {
    return std::all_of(words.begin(), words.end(), [&](const std::string& word) {
        return folded.find(word) != std::string::npos;
    });
}

// Some words before the first that holds the sought one, and some behind it.
std::string excerptOf(std::string_view text, const std::string& sought) {
    constexpr std::size_t before = 6;
    constexpr std::size_t whole = 24;
    const std::vector<std::string_view> words = split(text, ' ');
    const auto found = std::find_if(words.begin(), words.end(), [&](std::string_view word) {
        return foldCase(word).find(sought) != std::string::npos;
    });
    const auto at = found == words.end() ? 0 : static_cast<std::size_t>(found - words.begin());
    const std::size_t from = at > before ? at - before : 0;
    const std::size_t to = std::min(from + whole, words.size());
    std::string result = from > 0 ? "… " : "";
    for (std::size_t i = from; i < to; ++i) {
        result += words[i];
        if (i + 1 < to)
            result += ' ';
    }
    return to < words.size() ? result + " …" : result;
}

} // namespace

ChmBook::ChmBook(const fs::path& file) : archive_(file) {
    attempt([&] { readSystemTable(); });
    attempt([&] { contents_ = readList(contentsPath_); });
    attempt([&] { index_ = readList(indexPath_); });
    listTopics();
    if (startTopic_.empty() && !topics_.empty())
        startTopic_ = topics_.front().topic;
}

// A version number, then entries: a code and a length of two bytes each, and the data.
void ChmBook::readSystemTable() {
    const std::string table = archive_.read("/#SYSTEM");
    for (std::size_t at = 4; at + 4 <= table.size();) {
        const std::size_t code = wordAt(table, at);
        const std::size_t length = wordAt(table, at + 2);
        at += 4;
        std::string text = table.substr(std::min(at, table.size()), length);
        text = decodeTextFile(text.substr(0, text.find('\0'))).text;
        if (code == 0 && !text.empty())
            contentsPath_ = objectPath(text);
        else if (code == 1 && !text.empty())
            indexPath_ = objectPath(text);
        else if (code == 2 && !text.empty())
            startTopic_ = objectPath(text);
        else if (code == 3)
            title_ = std::string(trimmed(text));
        at += length;
    }
}

std::vector<BookEntry> ChmBook::readList(const std::string& path) const {
    return ListReader().read(readPage(path));
}

void ChmBook::listTopics() {
    std::set<std::string> known;
    for (const BookEntry& entry : contents_) {
        if (!entry.topic.empty() && known.insert(foldCase(objectPath(entry.topic))).second)
            topics_.push_back({entry.title, objectPath(entry.topic), 0});
    }
    for (const std::string& path : archive_.paths()) {
        if (isPage(path) && known.insert(foldCase(path)).second)
            topics_.push_back({{}, path, 0});
    }
}

std::string ChmBook::read(std::string_view topic) const {
    return archive_.read(objectPath(topic));
}

std::string ChmBook::readPage(std::string_view topic) const {
    return decodeTextFile(read(topic)).text;
}

std::vector<BookMatch> ChmBook::find(std::string_view words) const {
    const std::vector<std::string> sought = foldedWords(words);
    std::vector<BookMatch> inTitle;
    std::vector<BookMatch> inText;
    if (sought.empty())
        return inTitle;
    for (const BookEntry& topic : topics_) {
        attempt([&] {
            const std::string page = readPage(topic.topic);
            const std::string text = pageText(page);
            BookMatch match{topic.title.empty() ? pageTitle(page) : topic.title, topic.topic, {}};
            const std::string title = foldCase(match.title);
            const bool titled = holdsAll(title, sought);
            if (!titled && !holdsAll(title + ' ' + foldCase(text), sought))
                return;
            match.excerpt = excerptOf(text, sought.front());
            (titled ? inTitle : inText).push_back(std::move(match));
        });
    }
    inTitle.insert(inTitle.end(), std::make_move_iterator(inText.begin()),
                   std::make_move_iterator(inText.end()));
    return inTitle;
}

} // namespace vorna
