// What the device sent since the last clear, and the place up to which it was read. Positions are
// those of the whole text, counted from 1, while only what can still be needed is kept: used lines
// go, and of a line without an end all but its last characters. When nobody reads, the oldest
// lines go at `unreadLimit`. Any bytes are welcome, and no operation costs more than the bytes that
// it is given, passes over or lets go.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace vorna {

class ReadingBuffer {
public:
    using Position = std::uint64_t;

    static constexpr std::size_t unreadLimit = std::size_t{64} << 20U; // bytes

    void append(std::string_view received);

    // Empties the buffer; reading begins anew.
    void clear();

    // The position of the first line end behind the one used last, or 0 when there is none. The
    // search begins at position 2: a line end at the very start is never found.
    Position findLineEnd();

    // Uses the line end that findLineEnd gave last: the seven characters in front of it, which can
    // reach back over an earlier line end. Empty when the text began later than they would.
    std::string takeReadingCharacters();

    [[nodiscard]] Position lastLineEnd() const { return lastLineEnd_; }
    // Bytes kept.
    [[nodiscard]] std::size_t size() const { return text_.size(); }

private:
    [[nodiscard]] Position end() const { return dropped_ + text_.size(); }
    [[nodiscard]] char at(Position position) const { return text_[position - dropped_ - 1]; }
    [[nodiscard]] Position lineEndFrom(Position position) const;
    void keepFrom(Position position);
    void dropOldestLines();

    std::deque<char> text_;     // positions dropped_ + 1 to end()
    Position dropped_ = 0;      // characters that are gone
    Position searched_ = 1;     // behind lastLineEnd_, no line end begins up to here
    Position lastLineEnd_ = 1;  // the newest line end used
    Position lineEndFound_ = 1; // what the last search gave
};

} // namespace vorna
