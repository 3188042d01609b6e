#pragma once

#include <string>
#include <string_view>

/// The path of a file of that name in the user's temporary directory.
std::wstring temporaryFile(const wchar_t* name);

/// Makes a file there, and removes it at the end of its life.
class TemporaryFile
{
public:
    TemporaryFile(const wchar_t* name, std::string_view content);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

private:
    std::wstring path_;
};
