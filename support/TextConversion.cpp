#include "TextConversion.h"

#include <array>
#include <climits>
#include <comdef.h>
#include <cstring>
#include <cwchar>
#include <memory>
#include <windows.h>

namespace {

[[noreturn]] void throwLastError()
{
    throw _com_error(HRESULT_FROM_WIN32(GetLastError()));
}

/// The API counts in int.
int checkedLength(std::size_t length)
{
    if (length > INT_MAX / 4)
        throw _com_error(E_OUTOFMEMORY);
    return static_cast<int>(length);
}

int narrowInto(const wchar_t* text, int length, char* buffer, int size)
{
    // A process may have chosen UTF-8 as its ANSI code page; that one holds everything and takes no
    // substitute.
    const bool utf8 = GetACP() == CP_UTF8;
    const int written = WideCharToMultiByte(CP_ACP, utf8 ? 0 : WC_NO_BEST_FIT_CHARS, text, length, buffer,
                                            size, utf8 ? nullptr : "?", nullptr);
    if (written == 0)
        throwLastError();
    return written;
}

} // namespace

QdxString toNarrow(const wchar_t* text)
{
    if (!text || !*text)
        return {};
    const int length = checkedLength(std::wcslen(text));
    // No code page needs more than four bytes for one UTF-16 unit.
    const int size = 4 * length;
    std::array<char, 2048> shortText;
    if (size <= static_cast<int>(shortText.size())) {
        const int written = narrowInto(text, length, shortText.data(), size);
        return {shortText.data(), static_cast<std::size_t>(written)};
    }
    const int needed = narrowInto(text, length, nullptr, 0);
    const auto longText = std::make_unique_for_overwrite<char[]>(static_cast<std::size_t>(needed));
    narrowInto(text, length, longText.get(), needed);
    return {longText.get(), static_cast<std::size_t>(needed)};
}

_bstr_t toWide(const QdxString& text)
{
    const int length = checkedLength(std::strlen(text.data()));
    const int needed = length == 0 ? 0 : MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
    if (length != 0 && needed == 0)
        throwLastError();
    const BSTR wide = SysAllocStringLen(nullptr, static_cast<UINT>(needed));
    if (!wide)
        throw _com_error(E_OUTOFMEMORY);
    if (needed != 0)
        MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide, needed);
    return {wide, false};
}
