#include "ArgumentText.h"

namespace Word {
namespace {
constexpr std::size_t longestText = 60;

std::wstring quoted(const wchar_t* text, std::size_t length)
{
    if (length <= longestText)
        return L"\"" + std::wstring(text, length) + L"\"";
    return L"\"" + std::wstring(text, longestText) + L"...\" (" + std::to_wstring(length) + L" characters)";
}
} // namespace

void ArgumentText::add(const _bstr_t& argument)
{
    addPiece(quoted(argument, argument.length()));
}

void ArgumentText::add(const _variant_t& argument)
{
    switch (argument.vt) {
    case VT_BSTR:
        return addPiece(quoted(argument.bstrVal, SysStringLen(argument.bstrVal)));
    case VT_I2:
        return add(argument.iVal);
    case VT_I4:
        return add(argument.lVal);
    case VT_BOOL:
        return add(argument.boolVal != VARIANT_FALSE);
    case VT_DISPATCH:
        return add(argument.pdispVal);
    case VT_ERROR:
        return addPiece(L"missing");
    case VT_EMPTY:
        return addPiece(L"empty");
    default:
        return addPiece(L"value of type " + std::to_wstring(argument.vt));
    }
}

void ArgumentText::addPiece(const std::wstring& piece)
{
    if (!text_.empty())
        text_ += L", ";
    text_ += piece;
}
} // namespace Word
