#include "Arguments.h"

namespace standin {
namespace {
/// The value behind a reference, however it was passed.
_variant_t direct(const VARIANT& argument)
{
    _variant_t value;
    if (FAILED(VariantCopyInd(&value, const_cast<VARIANT*>(&argument))))
        throw model::WordError(model::WordErrorNumber::typeMismatch);
    return value;
}

_variant_t converted(const VARIANT& argument, VARTYPE kind)
{
    _variant_t value = direct(argument);
    if (value.vt == VT_ERROR || FAILED(VariantChangeType(&value, &value, 0, kind)))
        throw model::WordError(model::WordErrorNumber::typeMismatch);
    return value;
}
} // namespace

bool isMissing(const VARIANT& argument)
{
    return argument.vt == VT_ERROR && argument.scode == DISP_E_PARAMNOTFOUND;
}

long toLong(const VARIANT& argument)
{
    return converted(argument, VT_I4).lVal;
}

float toFloat(const VARIANT& argument)
{
    return converted(argument, VT_R4).fltVal;
}

bool toBool(const VARIANT& argument)
{
    return converted(argument, VT_BOOL).boolVal != VARIANT_FALSE;
}

std::u16string toText(const VARIANT& argument)
{
    const _variant_t value = converted(argument, VT_BSTR);
    return {reinterpret_cast<const char16_t*>(value.bstrVal ? value.bstrVal : L""),
            SysStringLen(value.bstrVal)};
}

bool isNumber(const VARIANT& argument)
{
    switch (direct(argument).vt) {
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_INT:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UI8:
    case VT_UINT:
    case VT_R4:
    case VT_R8:
        return true;
    default:
        return false;
    }
}

IUnknown* toObject(const VARIANT& argument)
{
    const _variant_t value = direct(argument);
    return value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN ? value.punkVal : nullptr;
}

bool isOmitted(const VARIANT& argument)
{
    return isMissing(argument) || argument.vt == VT_EMPTY;
}

std::optional<std::u16string> optionalText(const VARIANT& argument)
{
    return isOmitted(argument) ? std::nullopt : std::optional<std::u16string>(toText(argument));
}

std::optional<long> optionalLong(const VARIANT& argument)
{
    return isMissing(argument) ? std::nullopt : std::optional<long>(toLong(argument));
}

std::optional<bool> optionalBool(const VARIANT& argument)
{
    return isMissing(argument) ? std::nullopt : std::optional<bool>(toBool(argument));
}
} // namespace standin
