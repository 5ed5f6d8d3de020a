#include "content/sources.h"

#include "platform/text.h"

namespace vorna {
namespace {

std::string_view withoutComment(std::string_view line) {
    line = trimmed(line.substr(0, line.find("--")));
    return line.ends_with('\r') ? trimmed(line.substr(0, line.size() - 1)) : line;
}

} // namespace

void failAt(const SourcePlace& place, std::string_view what) {
    throw Failure(place.file + ":" + std::to_string(place.line) + ": " + std::string(what));
}

std::string readSource(const fs::path& file) {
    return naming(file, [&] { return readWholeFile(file); });
}

void runScript(Database& database, const fs::path& file) {
    const std::string script = readSource(file);
    SourcePlace place{pathText(file), 0};
    std::size_t lineNumber = 0;
    std::string statement;
    for (const std::string_view line : split(script, '\n')) {
        ++lineNumber;
        const std::string_view code = withoutComment(line);
        if (code.empty())
            continue;
        if (statement.empty())
            place.line = lineNumber;
        statement.append(line) += '\n';
        if (!code.ends_with(';'))
            continue;
        if (!attempt([&] { database.executeScript(statement); }))
            failAt(place, "the statement that begins here does not run");
        statement.clear();
    }
    if (!statement.empty())
        failAt(place, "the statement that begins here has no end");
}

} // namespace vorna
