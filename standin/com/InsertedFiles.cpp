#include "InsertedFiles.h"

#include "FileNames.h"

#include <windows.h>

namespace standin {
Server::InsertedFileSink insertedFilesFromEnvironment()
{
    std::wstring folder(32768, L'\0');
    folder.resize(
        GetEnvironmentVariableW(L"WORDSTANDIN_INSERTED", folder.data(), static_cast<DWORD>(folder.size())));
    if (folder.empty())
        return nullptr;
    return [folder, count = 0](const std::wstring& file, const std::string& bytes) mutable {
        const std::wstring name = file.substr(file.find_last_of(L"\\/") + 1);
        replaceFile(folder + L"\\" + std::to_wstring(++count) + L"-" + name, bytes);
    };
}
} // namespace standin
