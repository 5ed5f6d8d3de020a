// The order of the alphabet in a language.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace vorna {

class Alphabet {
public:
    // By the language's code: in "cs" ch comes after h. Failure when no order is at hand.
    explicit Alphabet(const std::string& language);
    ~Alphabet();

    // Texts stand in the order of their keys, compared byte by byte.
    [[nodiscard]] std::string key(std::string_view text) const;

private:
    struct Order;
    std::unique_ptr<Order> order_;
};

} // namespace vorna
