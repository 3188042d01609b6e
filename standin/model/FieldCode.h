#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace standin::model {

/// The code of a field, taken apart: a keyword, arguments, and switches such as `\l 2`.
class FieldCode
{
public:
    explicit FieldCode(std::u16string_view code);

    const std::u16string& keyword() const { return keyword_; } ///< in upper case
    /// WdFieldType of the keyword; noFieldType for one that Word does not know.
    std::int32_t type() const;

    /// The arguments in front of the first switch, without quotes and escapes.
    const std::vector<std::u16string>& arguments() const { return arguments_; }
    /// The n-th of them, empty when there are fewer.
    std::u16string argument(std::size_t index) const;

    bool has(char16_t name) const; ///< compares without case
    /// What follows the switch, glued to it or as the next word; empty when nothing does, and nullopt when
    /// there is no such switch.
    std::optional<std::u16string> value(char16_t name) const;

private:
    struct Switch
    {
        char16_t name;
        std::u16string value;
    };

    std::u16string keyword_;
    std::vector<std::u16string> arguments_;
    std::vector<Switch> switches_;
};

/// In double quotes, with backslashes and quotes inside escaped.
std::u16string quotedArgument(std::u16string_view text);

/// \name WdFieldType
///@{
inline constexpr std::int32_t noFieldType = -1; ///< a field whose code says it all
inline constexpr std::int32_t pageFieldType = 33;
inline constexpr std::int32_t tocEntryFieldType = 9;
inline constexpr std::int32_t tocFieldType = 13;
inline constexpr std::int32_t hyperlinkFieldType = 88;

/// The keyword of a field type; empty when there is none.
std::u16string_view keywordOf(std::int32_t type);
///@}

} // namespace standin::model
