#include "acquisition/reading_buffer.h"
#include "acquisition/reading_line.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace vorna {
namespace {

// All reading characters that the buffer gives until it has no line end any more; "-" where the
// text began later than they would.
std::vector<std::string> takeAll(ReadingBuffer& buffer) {
    std::vector<std::string> taken;
    while (buffer.findLineEnd() != 0) {
        const std::string characters = buffer.takeReadingCharacters();
        taken.push_back(characters.empty() ? "-" : characters);
    }
    return taken;
}

// The same by the rule itself, over the whole text at once.
std::vector<std::string> takeAllByTheRule(const std::string& text) {
    std::vector<std::string> taken;
    std::size_t lastLineEnd = 1; // positions count from 1
    while (true) {
        const std::size_t found = text.find("\r\n", lastLineEnd) + 1;
        if (found == std::string::npos + 1)
            return taken;
        lastLineEnd = found;
        taken.push_back(found > 7 ? text.substr(found - 8, 7) : "-");
    }
}

TEST(ReadingBuffer, GivesTheSevenCharactersInFrontOfEachLineEnd) {
    struct Case {
        const char* rule;
        std::string text;
        std::vector<std::string> taken;
    };
    const Case cases[] = {
        {"a line", "xx1.234\r\n", {"xx1.234"}},
        {"only the last seven count", "abcdef xx0.456\r\n", {"xx0.456"}},
        {"a first line of fewer has none", "x1.234\r\nxx2.345\r\n", {"-", "xx2.345"}},
        {"a later one reaches over the line end", "xx1.234\r\nx5.678\r\n", {"xx1.234", "\nx5.678"}},
        {"a line end at the start is not found", "\r\nxx1.234\r\n", {"xx1.234"}},
        {"nor counts at position 2 as a line", "x\r\nxx1.234\r\n", {"-", "xx1.234"}},
        {"a lone half of a line end is none", "xx1.234\rxx1.235\nxx1.236\r\n", {"xx1.236"}},
        {"a carriage return too many", "xx1.234\r\r\n", {"x1.234\r"}},
        {"empty lines", "xx1.234\r\n\r\n\r\n", {"xx1.234", "1.234\r\n", "234\r\n\r\n"}},
        {"zero bytes are characters", std::string("xx\0.234\r\n", 9), {std::string("xx\0.234", 7)}},
        {"no line end", "xx1.234", {}},
    };
    for (const Case& c : cases) {
        ReadingBuffer buffer;
        buffer.append(c.text);
        EXPECT_EQ(takeAll(buffer), c.taken) << c.rule;
        EXPECT_EQ(takeAllByTheRule(c.text), c.taken) << c.rule;
    }
}

TEST(ReadingBuffer, ArrivalInPiecesAndReadingInBetweenChangeNothing) {
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        std::string text(random() % 80, ' ');
        for (char& c : text)
            c = std::string_view("\r\n\r\n0123.x\0\xff", 13)[random() % 13];
        ReadingBuffer buffer;
        std::vector<std::string> taken;
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t length = 1 + random() % 12;
            buffer.append(std::string_view(text).substr(at, length));
            at += length;
            if (random() % 2 == 0)
                for (const std::string& characters : takeAll(buffer))
                    taken.push_back(characters);
        }
        for (const std::string& characters : takeAll(buffer))
            taken.push_back(characters);
        ASSERT_EQ(taken, takeAllByTheRule(text)) << "round " << round;
    }
}

TEST(ReadingBuffer, ClearingBeginsAnew) {
    ReadingBuffer buffer;
    buffer.append("xx1.234\r\nxx2.3");
    EXPECT_EQ(takeAll(buffer), std::vector<std::string>{"xx1.234"});
    buffer.clear();
    buffer.append("45\r\nxx3.456\r\n");
    EXPECT_EQ(takeAll(buffer), (std::vector<std::string>{"-", "xx3.456"}));
}

TEST(ReadingBuffer, OfALineWithoutEndOnlyWhatIsNeededStays) {
    ReadingBuffer buffer;
    for (int i = 0; i < 1024; ++i) {
        buffer.append(std::string(1024, 'x'));
        EXPECT_EQ(buffer.findLineEnd(), 0U);
        ASSERT_LE(buffer.size(), readingCharacters + 1);
    }
    buffer.append("xx1.234\r");
    EXPECT_EQ(buffer.findLineEnd(), 0U);
    buffer.append("\n");
    EXPECT_EQ(buffer.findLineEnd(), ReadingBuffer::Position{1024} * 1024 + 8);
    EXPECT_EQ(buffer.takeReadingCharacters(), "xx1.234");
}

TEST(ReadingBuffer, UsedLinesGo) {
    ReadingBuffer buffer;
    for (int i = 0; i < 5000; ++i) {
        buffer.append(formatReadingLine(i));
        ASSERT_NE(buffer.findLineEnd(), 0U);
        EXPECT_EQ(readingDigits(buffer.takeReadingCharacters()),
                  formatReadingLine(i).substr(2, 1) + formatReadingLine(i).substr(4, 3));
        ASSERT_LE(buffer.size(), 2 * formatReadingLine(0).size());
    }
}

// Unread text of more than the limit, in lines: whole lines go, from the oldest on.
TEST(ReadingBuffer, TheOldestUnreadLinesGoAtTheLimit) {
    std::string lines;
    for (int i = 0; i < 10'000; ++i)
        lines += formatReadingLine(i);
    ReadingBuffer buffer;
    std::size_t appended = 0;
    while (appended < ReadingBuffer::unreadLimit + lines.size()) {
        buffer.append(lines);
        appended += lines.size();
        ASSERT_LE(buffer.size(), ReadingBuffer::unreadLimit);
    }
    EXPECT_GT(buffer.size(), ReadingBuffer::unreadLimit - (std::size_t{2} << 20U));
    const ReadingBuffer::Position first = buffer.findLineEnd();
    EXPECT_GT(first, ReadingBuffer::Position{lines.size()});
    const std::size_t line = first / formatReadingLine(0).size() % 10'000;
    EXPECT_EQ(buffer.takeReadingCharacters() + "\r\n", formatReadingLine(static_cast<int>(line)));
    EXPECT_EQ(buffer.findLineEnd(), first + formatReadingLine(0).size());
}

// Nobody reads, and no line end comes: nothing of it is worth keeping but its end.
TEST(ReadingBuffer, AnUnreadLineBeyondTheLimitIsShortened) {
    ReadingBuffer buffer;
    buffer.append("xx0.001\r\n");
    const std::string text(ReadingBuffer::unreadLimit, 'y');
    buffer.append(text);
    EXPECT_LE(buffer.size(), readingCharacters + 1);
    buffer.append("1.234\r\n");
    EXPECT_EQ(takeAll(buffer), std::vector<std::string>{"yy1.234"});
}

} // namespace
} // namespace vorna
