#include "RegEntry.h"

#include <array>
#include <charconv>
#include <limits>

namespace {

int leadingNumber(const QdxString& text) noexcept
{
    const char* begin = text.data();
    const char* const end = begin + text.length();
    while (begin != end && (*begin == ' ' || *begin == '\t'))
        ++begin;
    if (begin != end && *begin == '+' && begin + 1 != end && *(begin + 1) != '-')
        ++begin;
    int number = 0;
    const std::from_chars_result result = std::from_chars(begin, end, number);
    if (result.ec != std::errc::result_out_of_range)
        return number;
    return *begin == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
}

QdxString decimal(int number)
{
    std::array<char, std::numeric_limits<int>::digits10 + 3> digits;
    const std::to_chars_result result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    return {digits.data(), static_cast<std::size_t>(result.ptr - digits.data())};
}

bool equalsLowerCase(const QdxString& text, const char* word) noexcept
{
    const char* s = text.data();
    for (; *word; ++s, ++word) {
        const char lower = *s >= 'A' && *s <= 'Z' ? static_cast<char>(*s - 'A' + 'a') : *s;
        if (lower != *word)
            return false;
    }
    return *s == '\0';
}

bool meansTrue(const QdxString& text) noexcept
{
    for (const char* const word : {"1", "true", "yes", "on"})
        if (equalsLowerCase(text, word))
            return true;
    return false;
}

} // namespace

RegEntry::RegEntry(const QdxString& value) : value_(value), integer_(leadingNumber(value)) {}

RegEntry::RegEntry(const char* value) : RegEntry(QdxString(value)) {}

RegEntry::RegEntry(int value) : value_(decimal(value)), integer_(value), kind_(integerKind) {}

RegEntry::RegEntry(const QdxString& group, const QdxString& name, const QdxString& value) : RegEntry(value)
{
    group_ = group;
    name_ = name;
}

RegEntry::RegEntry(const QdxString& group, const QdxString& name, int value) : RegEntry(value)
{
    group_ = group;
    name_ = name;
}

RegEntry::operator int() const noexcept
{
    return kind_ == booleanKind ? static_cast<int>(static_cast<bool>(*this)) : integer_;
}

RegEntry::operator bool() const noexcept
{
    switch (kind_) {
    case integerKind:
        return integer_ != 0;
    case booleanKind:
        return integer_ != 0 || meansTrue(value_);
    default:
        return meansTrue(value_);
    }
}

RegEntry::operator QdxString() const
{
    switch (kind_) {
    case integerKind:
        return decimal(integer_);
    case booleanKind:
        return *this ? "1" : "0";
    default:
        return value_;
    }
}

bool RegEntry::operator==(const RegEntry& other) const noexcept
{
    return kind_ == other.kind_ && integer_ == other.integer_ && value_ == other.value_ &&
           group_ == other.group_ && name_ == other.name_;
}
