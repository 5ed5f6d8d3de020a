#include "core/settings_file.h"

#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

#include <algorithm>
#include <optional>

namespace vorna {
namespace {

std::string_view withoutLineEnd(std::string_view line) {
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r'))
        line.remove_suffix(1);
    return line;
}

// Cuts the text behind each line feed; the pieces keep their line ends, so that they join to the
// same text again.
std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::size_t length = end == std::string_view::npos ? text.size() : end + 1;
        lines.emplace_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return lines;
}

std::optional<std::string_view> sectionOf(std::string_view line) {
    line = trimmed(withoutLineEnd(line));
    if (!line.starts_with('['))
        return std::nullopt;
    return trimmed(line.substr(1, line.find(']') == std::string_view::npos ? std::string_view::npos
                                                                           : line.find(']') - 1));
}

struct KeyAndValue {
    std::string_view key;
    std::string_view value;
};

std::optional<KeyAndValue> entryOf(std::string_view line) {
    line = trimmed(withoutLineEnd(line));
    const std::size_t equals = line.find('=');
    if (line.starts_with(';') || equals == std::string_view::npos)
        return std::nullopt;
    std::string_view value = trimmed(line.substr(equals + 1));
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    if (quoted)
        value = value.substr(1, value.size() - 2);
    return KeyAndValue{trimmed(line.substr(0, equals)), value};
}

// Where a key stands or would have to stand among the lines.
struct Place {
    std::optional<std::size_t> entry;      // the line that holds the key
    std::optional<std::size_t> sectionEnd; // behind the last written line of the first section
};

Place findPlace(const std::vector<std::string>& lines, std::string_view section,
                std::string_view key) {
    Place place;
    bool inside = false;
    bool insideFirst = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (const auto name = sectionOf(lines[i])) {
            inside = equalFolded(*name, section);
            insideFirst = inside && !place.sectionEnd;
            if (insideFirst)
                place.sectionEnd = i + 1;
            continue;
        }
        if (!inside)
            continue;
        const auto entry = entryOf(lines[i]);
        if (entry && equalFolded(entry->key, key)) {
            place.entry = i;
            return place;
        }
        if (insideFirst && !trimmed(withoutLineEnd(lines[i])).empty())
            place.sectionEnd = i + 1;
    }
    return place;
}

std::string inOneLine(std::string_view value) {
    std::string line;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '\r' && i + 1 < value.size() && value[i + 1] == '\n')
            continue;
        line += value[i] == '\n' || value[i] == '\r' || value[i] == '\0' ? ' ' : value[i];
    }
    return line;
}

DecodedText readDecoded(const std::filesystem::path& file, CodePage codePage) {
    DecodedText content;
    attempt([&] { content = decodeTextFile(readWholeFile(file), codePage); });
    return content;
}

// A file that is there and cannot be read must not be replaced by one with a single key.
DecodedText readForChange(const std::filesystem::path& file) {
    if (isMissing(file))
        return {};
    const std::string bytes = readWholeFile(file);
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        throw Failure("a settings file in UTF-16 cannot be changed");
    return decodeTextFile(bytes);
}

struct Entry {
    std::string key;
    std::string valueAndLineEnd;
};

// Replaces the line of a key or adds one, with its section where that is missing.
void setEntry(std::vector<std::string>& lines, std::string_view section, const Entry& entry) {
    const std::string line = entry.key + "=" + entry.valueAndLineEnd;
    const Place place = findPlace(lines, section, entry.key);
    if (place.entry) {
        lines[*place.entry] = line;
    } else if (place.sectionEnd) {
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(*place.sectionEnd), line);
    } else {
        const bool windowsLines = line.ends_with("\r\n");
        lines.push_back("[" + std::string(section) + "]" + (windowsLines ? "\r\n" : "\n"));
        lines.push_back(line);
    }
}

} // namespace

std::string ReadIniValue(const std::filesystem::path& file, std::string_view section,
                         std::string_view key, CodePage codePage) {
    const std::vector<std::string> lines = linesOf(readDecoded(file, codePage).text);
    const Place place = findPlace(lines, section, key);
    if (!place.entry)
        return {};
    return std::string(firstCharacters(entryOf(lines[*place.entry])->value, seenValueCharacters));
}

void WriteIniValue(const std::filesystem::path& file, std::string_view section,
                   std::string_view key, std::string_view value) {
    WriteIniValues(file, section, {{key, std::string(value)}});
}

void WriteIniValues(const std::filesystem::path& file, std::string_view section,
                    const std::vector<IniValue>& values) {
    DecodedText content = readForChange(file);
    std::vector<std::string> lines = linesOf(content.text);
    const bool unixLines = content.text.find('\n') != std::string::npos &&
                           content.text.find("\r\n") == std::string::npos;
    const std::string lineEnd = unixLines ? "\n" : "\r\n";
    if (!lines.empty() && !lines.back().ends_with('\n'))
        lines.back() += lineEnd;
    for (const auto& [key, value] : values)
        setEntry(lines, section, {std::string(key), inOneLine(value) + lineEnd});
    content.text.clear();
    for (const std::string& one : lines)
        content.text += one;
    writeFileAtomically(file, encodeTextFile(content));
}

std::vector<IniEntry> parseIniEntries(std::string_view text) {
    std::vector<IniEntry> entries;
    std::string section;
    bool anySection = false;
    for (const std::string& line : linesOf(text)) {
        if (const auto name = sectionOf(line)) {
            section = *name;
            anySection = true;
        } else if (const auto entry = entryOf(line); entry && anySection) {
            entries.push_back({section, std::string(entry->key), std::string(entry->value)});
        }
    }
    return entries;
}

} // namespace vorna
