#include "acquisition/reading_buffer.h"

#include "acquisition/reading_line.h"
#include "platform/log.h"

#include <algorithm>

namespace vorna {
namespace {

// Of text without a line end, the next line end's reading can need this much: its characters, and
// a carriage return whose line feed is still to come.
constexpr ReadingBuffer::Position neededOfOpenLine = readingCharacters + 1;

// The next line end stands two characters or more behind the one used, and its reading begins
// seven characters before it.
constexpr ReadingBuffer::Position neededBeforeUsedEnd = readingCharacters - lineEnd.size();

// Let go at once beyond what must, so that a full buffer is not shortened at every byte.
constexpr ReadingBuffer::Position droppedAtOnce = ReadingBuffer::Position{1} << 20U;

} // namespace

void ReadingBuffer::append(std::string_view received) {
    text_.insert(text_.end(), received.begin(), received.end());
    if (text_.size() > unreadLimit)
        dropOldestLines();
}

void ReadingBuffer::clear() {
    *this = {};
}

ReadingBuffer::Position ReadingBuffer::findLineEnd() {
    lineEndFound_ = lineEndFrom(std::max(lastLineEnd_, searched_) + 1);
    if (lineEndFound_ != 0) {
        searched_ = lineEndFound_ - 1;
    } else if (end() > searched_) {
        searched_ = end() - 1; // the last character can be half a line end
        keepFrom(end() - std::min(end(), neededOfOpenLine) + 1);
    }
    return lineEndFound_;
}

std::string ReadingBuffer::takeReadingCharacters() {
    lastLineEnd_ = lineEndFound_;
    std::string characters;
    if (lastLineEnd_ > readingCharacters)
        for (Position p = lastLineEnd_ - readingCharacters; p < lastLineEnd_; ++p)
            characters += at(p);
    keepFrom(lastLineEnd_ - std::min(lastLineEnd_, neededBeforeUsedEnd));
    return characters;
}

ReadingBuffer::Position ReadingBuffer::lineEndFrom(Position position) const {
    if (position <= dropped_ || position >= end())
        return 0;
    const auto from = text_.begin() + static_cast<std::ptrdiff_t>(position - dropped_ - 1);
    const auto found = std::search(from, text_.end(), lineEnd.begin(), lineEnd.end());
    return found == text_.end() ? 0 : position + static_cast<Position>(found - from);
}

void ReadingBuffer::keepFrom(Position position) {
    if (position <= dropped_ + 1)
        return;
    const Position gone = std::min<Position>(position - dropped_ - 1, text_.size());
    text_.erase(text_.begin(), text_.begin() + static_cast<std::ptrdiff_t>(gone));
    dropped_ += gone;
}

void ReadingBuffer::dropOldestLines() {
    logLine("the device sends faster than it is read: the oldest lines are dropped");
    const Position excess = text_.size() - unreadLimit;
    const Position lineEndKept =
        lineEndFrom(std::max(dropped_ + excess + droppedAtOnce, lastLineEnd_ + 1));
    if (lineEndKept != 0) {
        lastLineEnd_ = lineEndKept; // as if it had been used
        searched_ = lineEndKept;
        keepFrom(lineEndKept - neededBeforeUsedEnd);
    } else {
        searched_ = end() - 1;
        keepFrom(end() - neededOfOpenLine + 1);
    }
}

} // namespace vorna
