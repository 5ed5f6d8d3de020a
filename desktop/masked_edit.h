// Typing in a box whose digits stand between fixed signs ("14.05.1978", "_" for a digit that is not
// there): a digit takes the place at the cursor, one that is deleted leaves its place empty.
#pragma once

#include <QString>

namespace vorna {

struct MaskedEdit {
    QString text; // as the box is to take it, from its first place on
    int cursor;
};

// What an edit line's change by the user means. `shown` is what the box held, `edited` what the
// line made of it, with its cursor. What is more than one sign, put in or deleted, stays as it was
// edited.
MaskedEdit maskedEdit(const QString& shown, const QString& edited, int cursor);

} // namespace vorna
