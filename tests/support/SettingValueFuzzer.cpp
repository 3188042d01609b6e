// Texts out of a registry or from a client, read as the kinds of values that settings have.
#include "RegEntry.h"
#include "tracedll/LogBeginning.h"

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>

namespace {

void check(bool holds)
{
    if (!holds)
        std::abort();
}

/// The rule, digit by digit.
int leadingNumber(std::string_view text)
{
    std::size_t at = text.find_first_not_of(" \t");
    if (at == text.npos)
        return 0;
    const bool isNegative = text[at] == '-';
    if (isNegative || text[at] == '+')
        ++at;
    std::int64_t number = 0;
    for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
        number = 10 * number + (isNegative ? '0' - text[at] : text[at] - '0');
        if (number > std::numeric_limits<int>::max())
            return std::numeric_limits<int>::max();
        if (number < std::numeric_limits<int>::min())
            return std::numeric_limits<int>::min();
    }
    return static_cast<int>(number);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text = std::string(reinterpret_cast<const char*>(data), size).c_str();
    RegEntry entry("Word", "TOCLevel", QdxString(text.c_str()));
    check(entry.getValue() == QdxString(text.c_str()));
    entry.setKind(RegEntry::integerKind);
    const int number = entry;
    check(number == leadingNumber(text));
    entry.setKind(RegEntry::booleanKind);
    const bool isTrue = entry;
    check(isTrue || number == 0);
    // What was understood reads as itself.
    RegEntry again(number);
    check(static_cast<int>(again) == number);
    const bool isLog = isLogBeginning({reinterpret_cast<const char*>(data), size});
    check(isLog || size > 0);
    return 0;
}
