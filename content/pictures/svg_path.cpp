#include "content/pictures/svg_path.h"

#include "platform/failure.h"

#include <array>
#include <charconv>
#include <string>

namespace vorna {
namespace {

// Reads the commands and numbers of path data one behind the other.
class PathReader {
public:
    explicit PathReader(std::string_view data) : data_(data) { skipBlanks(); }

    [[nodiscard]] bool atEnd() const { return at_ == data_.size(); }
    [[nodiscard]] bool atNumber() const {
        return !atEnd() && std::string_view("+-.0123456789").find(data_[at_]) != data_.npos;
    }
    char command() {
        const char letter = data_[at_++];
        skipBlanks();
        return letter;
    }
    QPointF point() {
        const double x = number();
        return {x, number()};
    }

private:
    double number() {
        double value = 0;
        const char* const end = data_.data() + data_.size();
        const auto [behind, fault] = std::from_chars(data_.data() + at_, end, value);
        if (fault != std::errc{})
            throw Failure("a number is missing in the path data");
        at_ = static_cast<std::size_t>(behind - data_.data());
        skipBlanks();
        return value;
    }
    void skipBlanks() {
        while (!atEnd() && std::string_view(" ,\t\r\n").find(data_[at_]) != data_.npos)
            ++at_;
    }

    std::string_view data_;
    std::size_t at_ = 0;
};

void addStep(QPainterPath& path, char command, PathReader& reader) {
    const QPointF first = reader.point();
    if (command == 'M') {
        path.moveTo(first);
    } else if (command == 'L') {
        path.lineTo(first);
    } else {
        const QPointF second = reader.point();
        path.cubicTo(first, second, reader.point());
    }
}

} // namespace

QPainterPath parseSvgPath(std::string_view data) {
    QPainterPath path;
    PathReader reader(data);
    while (!reader.atEnd()) {
        const char command = reader.command();
        if (std::string_view("MLCZ").find(command) == std::string_view::npos ||
            (path.elementCount() == 0 && command != 'M'))
            throw Failure(std::string("an unexpected '") + command + "' in the path data");
        if (command == 'Z') {
            path.closeSubpath();
            continue;
        }
        addStep(path, command, reader);
        // Further steps of a move are lines.
        while (reader.atNumber())
            addStep(path, command == 'M' ? 'L' : command, reader);
    }
    return path;
}

} // namespace vorna
