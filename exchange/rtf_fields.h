// Fields: what the instruction of a field means for the text in its place.
#pragma once

#include <string>
#include <string_view>

namespace vorna {

struct RtfField {
    std::string link;        // where the field's result leads to; empty when to nowhere
    std::string text;        // shown instead of the result, when not empty
    bool isCheckBox = false; // shown as one, ticked or not, instead of the result
};

// HYPERLINK "address", SYMBOL code \f "font", FORMCHECKBOX; any other instruction means nothing.
RtfField parseFieldInstruction(std::string_view instruction);

// The address in plain ASCII when a page may lead there (http:, https: or mailto:), otherwise
// empty.
std::string safeAddress(std::string_view address);

} // namespace vorna
