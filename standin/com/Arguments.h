#pragma once

#include "WordError.h"

#include <comdef.h>
#include <optional>
#include <string>
#include <vector>

/// Reading a client's VARIANT arguments. A value of a kind that cannot be converted raises WordError 4218.
namespace standin {
bool isMissing(const VARIANT& argument);
long toLong(const VARIANT& argument);
float toFloat(const VARIANT& argument);
bool toBool(const VARIANT& argument);
std::u16string toText(const VARIANT& argument);
/// Whether it is a number, also one passed by reference.
bool isNumber(const VARIANT& argument);
/// The object passed, without a reference of its own; null when it is none.
IUnknown* toObject(const VARIANT& argument);

/// Left out, or passed as a variant that holds nothing.
bool isOmitted(const VARIANT& argument);
std::optional<std::u16string> optionalText(const VARIANT& argument);
std::optional<long> optionalLong(const VARIANT& argument);
std::optional<bool> optionalBool(const VARIANT& argument);

/// The member of a collection at a 1-based index; raises WordError 5941 for one that there is not.
template <typename Member>
Member memberAt(const std::vector<Member>& members, long index)
{
    if (index < 1 || static_cast<std::size_t>(index) > members.size())
        throw model::WordError(model::WordErrorNumber::noSuchMember);
    return members[static_cast<std::size_t>(index) - 1];
}

/// The transcript's remark on something that was put inside a field or across one.
inline constexpr const char* crossesFieldNote = "# crosses a field";
} // namespace standin
