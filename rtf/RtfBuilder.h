#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace rtf {

/// Puts RTF together: groups, control words and text, with a delimiter where one is needed.
class RtfBuilder
{
public:
    void open();
    void close();
    /// Opens a group that a reader skips when it does not know its first word.
    void openIgnorable();
    void word(std::string_view name);
    void word(std::string_view name, std::int32_t number);
    void text(std::u16string_view text);
    /// Ends a line of the file, which means nothing to a reader.
    void endLine();
    /// Takes RTF that ends in no control word.
    void append(std::string_view rtf);

    /// What was put together; the builder is empty afterwards.
    std::string take() { return std::exchange(rtf_, {}); }

private:
    std::string rtf_;
    bool endsInWord_ = false;
};

} // namespace rtf
