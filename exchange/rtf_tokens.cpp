#include "exchange/rtf_tokens.h"

#include <algorithm>

namespace vorna {
namespace {

constexpr int maxNumber = 1'000'000'000;

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

} // namespace

int hexDigit(char c) {
    if (isDigit(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

RtfToken RtfTokens::next() {
    while (at_ < bytes_.size() && (bytes_[at_] == '\r' || bytes_[at_] == '\n'))
        ++at_;
    if (at_ == bytes_.size())
        return {};
    switch (bytes_[at_]) {
    case '{':
        return {RtfToken::Kind::GroupStart, bytes_.substr(at_++, 1)};
    case '}':
        return {RtfToken::Kind::GroupEnd, bytes_.substr(at_++, 1)};
    case '\\':
        ++at_;
        return control();
    default:
        const std::size_t start = at_;
        at_ = std::min(bytes_.find_first_of("{}\\\r\n", start), bytes_.size());
        return {RtfToken::Kind::Text, bytes_.substr(start, at_ - start)};
    }
}

// Behind the backslash.
RtfToken RtfTokens::control() {
    if (at_ == bytes_.size())
        return {};
    if (isLetter(bytes_[at_]))
        return word();
    const std::size_t start = at_++;
    if (bytes_[start] == '\'')
        return hexByte();
    return {RtfToken::Kind::Symbol, bytes_.substr(start, 1)};
}

RtfToken RtfTokens::word() {
    const std::size_t start = at_;
    while (at_ < bytes_.size() && isLetter(bytes_[at_]))
        ++at_;
    RtfToken token{RtfToken::Kind::Word, bytes_.substr(start, at_ - start)};
    token.number = number();
    if (at_ < bytes_.size() && bytes_[at_] == ' ')
        ++at_;
    if (token.text == "bin") {
        const auto wanted = static_cast<std::size_t>(std::max(token.numberOr(0), 0));
        token.kind = RtfToken::Kind::Binary;
        token.text = bytes_.substr(at_, wanted);
        at_ += token.text.size();
    }
    return token;
}

std::optional<int> RtfTokens::number() {
    const bool negative = at_ + 1 < bytes_.size() && bytes_[at_] == '-' && isDigit(bytes_[at_ + 1]);
    if (negative)
        ++at_;
    if (at_ == bytes_.size() || !isDigit(bytes_[at_]))
        return std::nullopt;
    long long value = 0;
    for (; at_ < bytes_.size() && isDigit(bytes_[at_]); ++at_)
        value = std::min<long long>(value * 10 + (bytes_[at_] - '0'), maxNumber);
    return static_cast<int>(negative ? -value : value);
}

// Behind the apostrophe. What is not followed by two digits is a symbol without meaning.
RtfToken RtfTokens::hexByte() {
    const int high = at_ < bytes_.size() ? hexDigit(bytes_[at_]) : -1;
    const int low = at_ + 1 < bytes_.size() ? hexDigit(bytes_[at_ + 1]) : -1;
    if (high < 0 || low < 0)
        return {RtfToken::Kind::Symbol, "'"};
    RtfToken token{RtfToken::Kind::HexByte, bytes_.substr(at_, 2)};
    token.byte = static_cast<char>(high * 16 + low);
    at_ += 2;
    return token;
}

} // namespace vorna
