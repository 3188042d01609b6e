#pragma once

#include <string>
#include <string_view>

namespace standin::rtf {

/// Bytes as hexadecimal digits in lines.
std::string hexText(std::string_view bytes);

/// Gathers bytes that come as hexadecimal digits, or as they are.
class HexReader
{
public:
    void digit(char16_t c); ///< characters that are no digits count for nothing
    void raw(std::string_view bytes) { bytes_ += bytes; }
    const std::string& bytes() const { return bytes_; }

private:
    std::string bytes_;
    int half_ = -1;
};

} // namespace standin::rtf
