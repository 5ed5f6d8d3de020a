// The texts of the user interface: one language file per language, asked by section and key.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace vorna {

struct Session;
class Window;

// A language file's entries, kept as long as the file's time and size stand unchanged.
class LanguageTexts {
public:
    // Names the file; it need not exist.
    void setFile(std::filesystem::path file, bool russian);

    // Empty when the file, section or key is missing. At most 254 characters.
    [[nodiscard]] std::string value(std::string_view section, std::string_view key) const;

    // For many texts in a row: `value` as of the last `readAgainWhenChanged`, which looks whether
    // the file changed once for all of them.
    [[nodiscard]] std::string knownValue(std::string_view section, std::string_view key) const;
    void readAgainWhenChanged() const;

private:
    // By which a change of the file shows.
    struct Stamp {
        std::filesystem::file_time_type changed{};
        std::uintmax_t size = 0;
        bool operator==(const Stamp&) const = default;
    };

    std::filesystem::path file_;
    bool russian_ = false;
    mutable Stamp seen_;
    mutable bool read_ = false;
    mutable std::map<std::string, std::string, std::less<>> entries_; // folded "section\nkey"
};

// The text of a key in section `other` of the current language; empty when missing.
std::string t(const Session& session, std::string_view key);

// Sets the caption and the text of every control of the window, in the window's control order. A
// missing key assigns the empty text.
void applyLanguage(const Session& session, Window& window);

} // namespace vorna
