#include "TemporaryFile.h"

#include <windows.h>

#include <cstdio>

std::wstring temporaryFile(const wchar_t* name)
{
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH + 1, folder);
    return std::wstring(folder) + name;
}

TemporaryFile::TemporaryFile(const wchar_t* name, std::string_view content) : path_(temporaryFile(name))
{
    if (std::FILE* const file = _wfopen(path_.c_str(), L"wb")) {
        std::fwrite(content.data(), 1, content.size(), file);
        std::fclose(file);
    }
}

TemporaryFile::~TemporaryFile()
{
    DeleteFileW(path_.c_str());
}
