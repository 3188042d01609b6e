#include "LogFileName.h"

#include "sysSupport/FileNames.h"

#include <algorithm>
#include <cwctype>

namespace diagnostics {

namespace {

/// Where the extension of a bare name begins; its end without one.
std::size_t extensionOf(std::wstring_view bare)
{
    return fileNames::partsOf(bare).extension;
}

bool isSameName(std::wstring_view one, std::wstring_view other)
{
    const auto lower = [](wchar_t c) { return std::towlower(static_cast<std::wint_t>(c)); };
    return std::ranges::equal(one, other, {}, lower, lower);
}

} // namespace

std::wstring_view bareName(std::wstring_view name)
{
    return name.substr(fileNames::partsOf(name).bareName);
}

std::wstring logFileName(std::wstring_view name, std::wstring_view temporaryFolder, unsigned long process)
{
    const std::wstring_view bare = bareName(name);
    const std::size_t end = extensionOf(bare);
    const std::wstring file =
        std::wstring(bare.substr(0, end)) + L'.' + std::to_wstring(process) + std::wstring(bare.substr(end));
    if (bare.size() == name.size())
        return fileNames::joined(temporaryFolder, file);
    return std::wstring(name.substr(0, name.size() - bare.size())) + file;
}

bool isLogFileName(std::wstring_view file, std::wstring_view name)
{
    const std::wstring_view bare = bareName(name);
    const std::wstring_view stem = bare.substr(0, extensionOf(bare));
    const std::wstring_view extension = bare.substr(stem.size());
    if (file.size() <= bare.size() + 1)
        return false;
    const std::wstring_view process = file.substr(stem.size() + 1, file.size() - bare.size() - 1);
    return isSameName(file.substr(0, stem.size()), stem) && file[stem.size()] == L'.' &&
           process.find_first_not_of(L"0123456789") == process.npos &&
           isSameName(file.substr(file.size() - extension.size()), extension);
}

} // namespace diagnostics
