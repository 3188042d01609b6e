#include "Console.h"

#include "TextConversion.h"

#include <cstdio>

namespace replay {

namespace {

/// A terminal gets characters; what is not one gets UTF-8.
void write(std::FILE* stream, DWORD handleNumber, std::string_view text)
{
    const HANDLE handle = GetStdHandle(handleNumber);
    DWORD mode = 0;
    if (GetConsoleMode(handle, &mode)) {
        const std::wstring wide = wideFromUtf8(text);
        WriteConsoleW(handle, wide.data(), static_cast<DWORD>(wide.size()), nullptr, nullptr);
        return;
    }
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fflush(stream);
}

} // namespace

std::wstring wideFromUtf8(std::string_view text)
{
    const auto size = static_cast<int>(text.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string utf8FromWide(std::wstring_view text)
{
    const auto size = static_cast<int>(text.size());
    std::string utf8(static_cast<std::size_t>(
                         WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr)),
                     '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(), static_cast<int>(utf8.size()), nullptr,
                        nullptr);
    return utf8;
}

std::string utf8FromAnsi(std::string_view text)
{
    const _bstr_t wide = toWide(QdxString(text.data(), text.size()));
    return utf8FromWide({static_cast<const wchar_t*>(wide), wide.length()});
}

void Console::say(std::string_view text) const
{
    write(stdout, STD_OUTPUT_HANDLE, text);
}

void Console::complain(std::string_view text) const
{
    write(stderr, STD_ERROR_HANDLE, text);
}

std::size_t Console::columns() const noexcept
{
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &info))
        return 0;
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

} // namespace replay
