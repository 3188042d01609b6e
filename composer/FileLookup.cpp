#include "FileLookup.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <windows.h>

namespace compose {

namespace {

bool isSeparator(wchar_t c)
{
    return c == L'\\' || c == L'/';
}

bool isLetter(wchar_t c)
{
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
}

std::size_t bareNameOf(std::wstring_view fileName)
{
    const std::size_t last = fileName.find_last_of(L"\\/:");
    return last == fileName.npos ? 0 : last + 1;
}

std::wstring joined(std::wstring folder, const std::wstring& name)
{
    if (folder.empty())
        return name;
    if (!isSeparator(folder.back()))
        folder += L'\\';
    return folder + name;
}

} // namespace

bool isAddress(std::wstring_view name)
{
    const auto scheme = static_cast<std::size_t>(std::ranges::find_if_not(name, isLetter) - name.begin());
    if (scheme >= 2 && scheme < name.size() && name[scheme] == L':')
        return true;
    constexpr std::wstring_view web = L"www.";
    return name.size() >= web.size() && _wcsnicmp(name.data(), web.data(), web.size()) == 0;
}

bool isFileThere(const std::wstring& name)
{
    const DWORD attributes = GetFileAttributesW(name.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::wstring_view extensionOf(std::wstring_view fileName)
{
    fileName = withoutFolder(fileName);
    const std::size_t dot = fileName.find_last_of(L'.');
    return dot == fileName.npos ? std::wstring_view() : fileName.substr(dot);
}

std::wstring_view withoutFolder(std::wstring_view fileName)
{
    return fileName.substr(bareNameOf(fileName));
}

bool isPicture(std::wstring_view fileName)
{
    static constexpr std::array<std::wstring_view, 5> pictures = {L".bmp", L".jpg", L".jpeg", L".gif",
                                                                  L".emf"};
    return std::ranges::find(pictures, extensionOf(fileName)) != pictures.end();
}

std::optional<std::wstring> findFile(const std::wstring& name, const std::wstring& installDir)
{
    if (name.empty())
        return {};
    if (isFileThere(name))
        return name;
    if (isPicture(name) && bareNameOf(name) == 0)
        if (std::wstring installed = joined(installDir, L"pix\\" + name); isFileThere(installed))
            return installed;
    return {};
}

} // namespace compose
