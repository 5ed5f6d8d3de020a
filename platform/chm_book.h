// A help book (.chm): its tree of contents, its index, its topics, and the search through them. The
// books are made from the texts under installation/help; contents and topics are UTF-8, and a book
// of elsewhere in Windows-1250 reads, too. Damaged files are a Failure or lack what cannot be read;
// none is read beyond the bounds of ChmArchive, and a list has at most 5,000 entries.
#pragma once

#include "platform/chm_archive.h"

#include <string>
#include <string_view>
#include <vector>

namespace vorna {

// A line of the contents or of the index.
struct BookEntry {
    std::string title;
    std::string topic; // "/start.html", with an anchor "/start.html#mode"; empty: a heading alone
    int level = 0;     // 0 for the outermost, at most 31

    bool operator==(const BookEntry&) const = default;
};

struct BookMatch {
    std::string title;
    std::string topic;
    std::string excerpt; // the words round the first place; the beginning when it is in the title
};

class ChmBook {
public:
    // Failure when the file is no sound .chm file.
    explicit ChmBook(const fs::path& file);

    [[nodiscard]] const std::string& title() const { return title_; }
    // The topic that opens first; empty when the book has no topic at all.
    [[nodiscard]] const std::string& startTopic() const { return startTopic_; }
    [[nodiscard]] const std::vector<BookEntry>& contents() const { return contents_; }
    [[nodiscard]] const std::vector<BookEntry>& index() const { return index_; }

    // The bytes of a topic, a style sheet or a picture. The path may lack the leading slash and may
    // have an anchor behind it. Failure when the book has none of that name.
    [[nodiscard]] std::string read(std::string_view topic) const;

    // A topic's page in UTF-8. Failure as for `read`.
    [[nodiscard]] std::string readPage(std::string_view topic) const;

    // The topics that hold all the words (parts of words count), without regard to case: first
    // those whose title holds them, each in the order of the contents. No words: nothing.
    [[nodiscard]] std::vector<BookMatch> find(std::string_view words) const;

private:
    void readSystemTable();
    [[nodiscard]] std::vector<BookEntry> readList(const std::string& path) const;
    void listTopics();

    ChmArchive archive_;
    std::string title_;
    std::string startTopic_;
    std::string contentsPath_;
    std::string indexPath_;
    std::vector<BookEntry> contents_;
    std::vector<BookEntry> index_;
    std::vector<BookEntry> topics_; // every page once, for the search
};

} // namespace vorna
