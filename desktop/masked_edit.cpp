#include "desktop/masked_edit.h"

namespace vorna {
namespace {

bool isPlace(QChar sign) {
    return sign == '_' || sign.isDigit();
}

// Where the next digit goes; the end when all places before it are behind.
int placeFrom(const QString& text, int from) {
    while (from < text.size() && !isPlace(text[from]))
        ++from;
    return from;
}

MaskedEdit typed(const QString& shown, QChar sign, int at) {
    int place = placeFrom(shown, at);
    if (place == shown.size()) // behind the last place: the first that is empty
        place = static_cast<int>(shown.indexOf('_'));
    if (place < 0 || !sign.isDigit()) {
        const bool fixed = at < shown.size() && shown[at] == sign;
        return {shown, fixed ? at + 1 : at};
    }
    QString text = shown;
    text[place] = sign;
    return {text, placeFrom(text, place + 1)};
}

MaskedEdit deleted(const QString& shown, int at) {
    QString text = shown;
    if (isPlace(text[at]))
        text[at] = '_';
    return {text, at};
}

} // namespace

MaskedEdit maskedEdit(const QString& shown, const QString& edited, int cursor) {
    const bool oneMore = edited.size() == shown.size() + 1 && cursor > 0;
    if (oneMore && QString(edited).remove(cursor - 1, 1) == shown)
        return typed(shown, edited[cursor - 1], cursor - 1);
    if (edited.size() == shown.size() - 1 && QString(shown).remove(cursor, 1) == edited)
        return deleted(shown, cursor);
    return {edited, cursor};
}

} // namespace vorna
