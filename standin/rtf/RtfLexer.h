#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace standin::rtf {

struct RtfToken
{
    enum class Kind
    {
        groupStart,
        groupEnd,
        word,
        symbol,
        byte,
        end
    };

    Kind kind = Kind::end;
    std::string_view word;              ///< of a control word, without backslash
    std::optional<std::int32_t> number; ///< of a control word
    unsigned char byte = 0;             ///< a symbol such as '~', or a byte of text
    std::string_view data;              ///< the bytes that follow \bin
};

/// Cuts RTF into tokens. Never fails: what is malformed is given as the text it looks like.
class RtfLexer
{
public:
    explicit RtfLexer(std::string_view bytes) : bytes_(bytes) {}
    RtfToken next();

private:
    RtfToken control();
    RtfToken controlWord();
    RtfToken hexByte();
    std::optional<std::int32_t> number();

    std::string_view bytes_;
    std::size_t at_ = 0;
};

} // namespace standin::rtf
