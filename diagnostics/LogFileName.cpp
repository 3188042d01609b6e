#include "LogFileName.h"

namespace diagnostics {

namespace {

constexpr std::wstring_view separators = L"\\/:";

} // namespace

std::wstring_view bareName(std::wstring_view name)
{
    const std::size_t last = name.find_last_of(separators);
    return last == name.npos ? name : name.substr(last + 1);
}

std::wstring logFileName(std::wstring_view name, std::wstring_view temporaryFolder, unsigned long process)
{
    const std::wstring_view bare = bareName(name);
    std::wstring file(name.substr(0, name.size() - bare.size()));
    if (file.empty() && !temporaryFolder.empty()) {
        file = temporaryFolder;
        if (separators.find(file.back()) == separators.npos)
            file += L'\\';
    }
    const std::size_t dot = bare.find_last_of(L'.');
    const std::size_t end = dot == bare.npos ? bare.size() : dot;
    file.append(bare.substr(0, end)).append(L".").append(std::to_wstring(process)).append(bare.substr(end));
    return file;
}

} // namespace diagnostics
