#include "platform/alphabet.h"

#include "platform/failure.h"

#include <unicode/coll.h>
#include <unicode/unistr.h>

#include <array>
#include <cstdint>

namespace vorna {

struct Alphabet::Order {
    std::unique_ptr<icu::Collator> collator;
};

Alphabet::Alphabet(const std::string& language) : order_(std::make_unique<Order>()) {
    UErrorCode error = U_ZERO_ERROR;
    order_->collator.reset(icu::Collator::createInstance(icu::Locale(language.c_str()), error));
    if (U_FAILURE(error))
        throw Failure("an alphabet is not at hand");
}

Alphabet::~Alphabet() = default;

std::string Alphabet::key(std::string_view text) const {
    const auto unicode = icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
    constexpr std::int32_t usual = 128; // most names need no more
    std::array<std::uint8_t, usual> room{};
    const std::int32_t length = order_->collator->getSortKey(unicode, room.data(), usual);
    if (length <= usual)
        return {room.begin(), room.begin() + length};
    std::string key(static_cast<std::size_t>(length), '\0');
    order_->collator->getSortKey(unicode, reinterpret_cast<std::uint8_t*>(key.data()), length);
    return key;
}

} // namespace vorna
