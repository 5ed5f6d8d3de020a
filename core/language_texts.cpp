#include "core/language_texts.h"

#include "core/session.h"
#include "core/settings_file.h"
#include "core/window.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

namespace vorna {
namespace {

std::string entryName(std::string_view section, std::string_view key) {
    return foldCase(section) + "\n" + foldCase(key);
}

} // namespace

void LanguageTexts::setFile(std::filesystem::path file, bool russian) {
    file_ = std::move(file);
    russian_ = russian;
    read_ = false;
}

std::string LanguageTexts::value(std::string_view section, std::string_view key) const {
    readAgainWhenChanged();
    return knownValue(section, key);
}

std::string LanguageTexts::knownValue(std::string_view section, std::string_view key) const {
    const auto at = entries_.find(entryName(section, key));
    return at == entries_.end() ? std::string{} : at->second;
}

void LanguageTexts::readAgainWhenChanged() const {
    std::error_code error;
    const Stamp stamp{std::filesystem::last_write_time(file_, error),
                      std::filesystem::file_size(file_, error)};
    if (read_ && stamp == seen_)
        return;
    read_ = true;
    seen_ = stamp;
    entries_.clear();
    attempt([&] {
        const CodePage codePage = russian_ ? CodePage::Windows1251 : CodePage::Windows1250;
        const std::string text = decodeTextFile(readWholeFile(file_), codePage).text;
        for (IniEntry& entry : parseIniEntries(text)) // emplace: the first of two equal keys wins
            entries_.emplace(entryName(entry.section, entry.key),
                             firstCharacters(entry.value, seenValueCharacters));
    });
}

std::string t(const Session& session, std::string_view key) {
    return session.texts.value("other", key);
}

void applyLanguage(const Session& session, Window& window) {
    const LanguageTexts& texts = session.texts;
    texts.readAgainWhenChanged();
    for (Control* const control : window.controls()) {
        if (auto* const caption = control->captionProperty())
            *caption = texts.knownValue(window.section(), control->name() + ".caption");
        if (auto* const text = control->textProperty())
            *text = texts.knownValue(window.section(), control->name() + ".text");
    }
}

} // namespace vorna
