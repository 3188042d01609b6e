#include "RtfLexer.h"

#include <algorithm>
#include <charconv>

namespace standin::rtf {

namespace {

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace

RtfToken RtfLexer::next()
{
    while (at_ < bytes_.size() && (bytes_[at_] == '\r' || bytes_[at_] == '\n'))
        ++at_;
    if (at_ >= bytes_.size())
        return {};
    const char c = bytes_[at_++];
    RtfToken token;
    switch (c) {
    case '{':
        token.kind = RtfToken::Kind::groupStart;
        return token;
    case '}':
        token.kind = RtfToken::Kind::groupEnd;
        return token;
    case '\\':
        return control();
    default:
        token.kind = RtfToken::Kind::byte;
        token.byte = static_cast<unsigned char>(c);
        return token;
    }
}

RtfToken RtfLexer::control()
{
    if (at_ >= bytes_.size())
        return {};
    if (isLetter(bytes_[at_]))
        return controlWord();
    const char c = bytes_[at_++];
    if (c == '\'')
        return hexByte();
    RtfToken token;
    const bool isText = c == '\\' || c == '{' || c == '}';
    token.kind = isText ? RtfToken::Kind::byte : RtfToken::Kind::symbol;
    token.byte = static_cast<unsigned char>(c);
    return token;
}

RtfToken RtfLexer::controlWord()
{
    const std::size_t start = at_;
    while (at_ < bytes_.size() && isLetter(bytes_[at_]))
        ++at_;
    RtfToken token;
    token.kind = RtfToken::Kind::word;
    token.word = bytes_.substr(start, at_ - start);
    token.number = number();
    if (at_ < bytes_.size() && bytes_[at_] == ' ')
        ++at_;
    if (token.word == "bin") {
        const auto count = static_cast<std::size_t>(std::max(0, token.number.value_or(0)));
        token.data = bytes_.substr(at_, count);
        at_ += token.data.size();
    }
    return token;
}

RtfToken RtfLexer::hexByte()
{
    unsigned value = 0;
    const std::string_view digits = bytes_.substr(at_, 2);
    const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    at_ += static_cast<std::size_t>(parsed.ptr - digits.data());
    RtfToken token;
    token.kind = RtfToken::Kind::byte;
    token.byte = static_cast<unsigned char>(value);
    return token;
}

std::optional<std::int32_t> RtfLexer::number()
{
    const std::size_t start = at_;
    std::size_t past = start + (start < bytes_.size() && bytes_[start] == '-' ? 1 : 0);
    const std::size_t firstDigit = past;
    while (past < bytes_.size() && isDigit(bytes_[past]))
        ++past;
    if (past == firstDigit)
        return std::nullopt;
    at_ = past;
    std::int32_t value = 0;
    std::from_chars(bytes_.data() + start, bytes_.data() + past, value);
    return value; // 0 where the number is too large
}

} // namespace standin::rtf
