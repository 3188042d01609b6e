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
        const std::wstring wide = fromUtf8(text);
        WriteConsoleW(handle, wide.data(), static_cast<DWORD>(wide.size()), nullptr, nullptr);
        return;
    }
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fflush(stream);
}

} // namespace

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
