#include "TextConversion.h"

#include "win32/WindowsError.h"

#include <array>
#include <climits>
#include <comdef.h>
#include <cstring>
#include <cwchar>
#include <memory>
#include <windows.h>

namespace {

/// The API counts in int.
int checkedLength(std::size_t length)
{
    if (length > INT_MAX / 4)
        throw _com_error(E_OUTOFMEMORY);
    return static_cast<int>(length);
}

int narrowInto(UINT page, const wchar_t* text, int length, char* buffer, int size)
{
    // UTF-8, which a process may have chosen as its ANSI code page too, holds everything and takes no
    // substitute.
    const bool utf8 = page == CP_UTF8;
    const int written = WideCharToMultiByte(page, utf8 ? 0 : WC_NO_BEST_FIT_CHARS, text, length, buffer, size,
                                            utf8 ? nullptr : "?", nullptr);
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
    const UINT page = GetACP();
    // No code page needs more than four bytes for one UTF-16 unit.
    const int size = 4 * length;
    std::array<char, 2048> shortText;
    if (size <= static_cast<int>(shortText.size())) {
        const int written = narrowInto(page, text, length, shortText.data(), size);
        return {shortText.data(), static_cast<std::size_t>(written)};
    }
    const int needed = narrowInto(page, text, length, nullptr, 0);
    const auto longText = std::make_unique_for_overwrite<char[]>(static_cast<std::size_t>(needed));
    narrowInto(page, text, length, longText.get(), needed);
    return {longText.get(), static_cast<std::size_t>(needed)};
}

_bstr_t toWide(const QdxString& text)
{
    const UINT page = GetACP();
    const int length = checkedLength(std::strlen(text.data()));
    const int needed = length == 0 ? 0 : MultiByteToWideChar(page, 0, text.data(), length, nullptr, 0);
    if (length != 0 && needed == 0)
        throwLastError();
    const BSTR wide = SysAllocStringLen(nullptr, static_cast<UINT>(needed));
    if (!wide)
        throw _com_error(E_OUTOFMEMORY);
    if (needed != 0)
        MultiByteToWideChar(page, 0, text.data(), length, wide, needed);
    return {wide, false};
}

std::string toUtf8(std::wstring_view text)
{
    const auto length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::string toUtf8(const QdxString& text)
{
    const _bstr_t wide = toWide(text);
    return toUtf8(std::wstring_view(wide, wide.length()));
}

std::wstring fromUtf8(std::string_view text)
{
    const auto length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), size);
    return wide;
}
