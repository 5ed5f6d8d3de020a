#include "exchange/rtf_styles.h"

#include <algorithm>

namespace vorna {
namespace {

constexpr std::size_t maxStyles = 4096;
constexpr std::size_t maxWords = 128;    // of a style
constexpr std::size_t maxAncestors = 16; // beyond it nothing more is inherited

void apply(RtfStyle& style, RtfBorderTarget& target, const RtfToken& word,
           const RtfColours& colours) {
    if (word.text == "f") {
        style.font = word.numberOr(-1);
        return;
    }
    const auto first = static_cast<std::size_t>(target.first);
    const auto last = static_cast<std::size_t>(target.last);
    std::span<RtfBorder> borders;
    if (target.owner == RtfBorderTarget::Owner::Paragraph)
        borders = std::span(style.paragraph.format.borders).subspan(first, last - first + 1);
    static_cast<void>(applyCharacterWord(style.character, word, colours) ||
                      applyParagraphWord(style.paragraph, word, colours) ||
                      applyBorderTarget(target, word) || applyBorderWord(borders, word, colours));
}

} // namespace

void RtfStyles::takeWord(const RtfToken& word) {
    if (word.text == "s" && entries_.size() < maxStyles) {
        entry_ = &entries_[word.numberOr(0)];
        *entry_ = {};
    } else if (word.text == "sbasedon" && entry_ != nullptr) {
        entry_->basedOn = word.numberOr(-1);
    } else if (entry_ != nullptr && entry_->words.size() < maxWords) {
        entry_->words.push_back(word);
    }
}

void RtfStyles::takeGenerator(std::string_view name) {
    inherited_ = name.starts_with("LibreOffice") || name.starts_with("OpenOffice");
}

const RtfStyle* RtfStyles::style(int number, const RtfColours& colours) {
    const auto found = entries_.find(number);
    if (found == entries_.end())
        return nullptr;
    Entry& entry = found->second;
    if (entry.resolved)
        return &entry.style;
    std::vector<const Entry*> line{&entry};
    while (line.size() < maxAncestors) {
        const auto parent = entries_.find(line.back()->basedOn);
        if (parent == entries_.end() ||
            std::find(line.begin(), line.end(), &parent->second) != line.end())
            break;
        line.push_back(&parent->second);
    }
    RtfBorderTarget target;
    for (auto ancestor = line.rbegin(); ancestor != line.rend(); ++ancestor)
        for (const RtfToken& word : (*ancestor)->words)
            apply(entry.style, target, word, colours);
    entry.resolved = true;
    return &entry.style;
}

} // namespace vorna
