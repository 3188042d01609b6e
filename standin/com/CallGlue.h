#pragma once

#include "TranscriptValue.h"

#include <Word.h>
#include <string>
#include <string_view>

/// How values cross from the vtable to the stand-in's own methods and back; used by the generated base
/// classes.
namespace standin {
inline const VARIANT& given(const VARIANT* argument)
{
    return argument ? *argument : static_cast<const VARIANT&>(Word::missing);
}

inline std::u16string_view given(BSTR argument)
{
    return {reinterpret_cast<const char16_t*>(argument ? argument : L""), SysStringLen(argument)};
}

template <typename Value>
Value* required(Value* result)
{
    if (!result)
        throw _com_error(E_POINTER);
    return result;
}

/// The answers that a caller may look at after a failure hold nothing then.
template <typename Value>
void prepare(Value* result)
{
    if (result)
        *result = Value{};
}

inline TranscriptValue deliver(long* result, long answer)
{
    return TranscriptValue(*required(result) = answer);
}

inline TranscriptValue deliver(short* result, short answer)
{
    return TranscriptValue(*required(result) = answer);
}

inline TranscriptValue deliver(float* result, float answer)
{
    return TranscriptValue(*required(result) = answer);
}

inline TranscriptValue deliver(VARIANT_BOOL* result, bool answer)
{
    *required(result) = answer ? VARIANT_TRUE : VARIANT_FALSE;
    return TranscriptValue(answer);
}

inline TranscriptValue deliver(BSTR* result, const std::u16string& answer)
{
    required(result);
    *result =
        SysAllocStringLen(reinterpret_cast<const OLECHAR*>(answer.data()), static_cast<UINT>(answer.size()));
    if (!*result)
        throw _com_error(E_OUTOFMEMORY);
    return TranscriptValue(*result);
}

inline TranscriptValue deliver(VARIANT* result, _variant_t answer)
{
    *required(result) = answer.Detach();
    return TranscriptValue(static_cast<const VARIANT*>(result));
}

template <typename Interface, typename Pointer>
TranscriptValue deliverObject(Interface** result, Pointer answer)
{
    *required(result) = answer.Detach();
    return TranscriptValue(static_cast<IUnknown*>(*result));
}
} // namespace standin
