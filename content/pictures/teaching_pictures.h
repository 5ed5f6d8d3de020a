// The pictures of the teaching tab: the star of the five elements and the pathways of yin and yang
// in each language, and the energy pentagram, which has no words.
#pragma once

#include "content/pictures/atlas.h"
#include "content/pictures/reference_texts.h"

#include <QImage>

namespace vorna {

// The texts in one language, 1 to 4. The texts must outlive it.
struct Vocabulary {
    const ReferenceTexts& texts;
    int language;

    [[nodiscard]] QString of(const FourTexts& word) const {
        return word.at(static_cast<std::size_t>(language - 1));
    }
    // Failure when there is no such word.
    [[nodiscard]] QString word(const std::string& key) const;
    // "P/LU", or "LU" alone where both are the same.
    [[nodiscard]] QString label(const MeridianTexts& meridian) const;
};

// The elements in a circle with their pathways; the circle's arrows are those of nourishing, the
// star's those of control.
QImage starPicture(const Vocabulary& words);

// The whole figure with all pathways of yin, or of yang, in the colours of their elements.
QImage energyPicture(const Atlas& atlas, const Vocabulary& words, bool yang);

// The day's round of the twelve pathways with their hours, and the star of the elements within it.
QImage pentagramPicture(const ReferenceTexts& texts);

} // namespace vorna
