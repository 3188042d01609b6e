#include "FileNames.h"

#include "WordError.h"

#include <array>
#include <windows.h>

namespace standin {
namespace {
using model::WordError;
using model::WordErrorNumber;

class FileHandle
{
public:
    explicit FileHandle(HANDLE handle) : handle_(handle) {}
    ~FileHandle() { close(); }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }
    void close()
    {
        if (isOpen())
            CloseHandle(handle_);
        handle_ = INVALID_HANDLE_VALUE;
    }

private:
    HANDLE handle_;
};

[[noreturn]] void raiseForLastError()
{
    switch (GetLastError()) {
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_NETPATH:
    case ERROR_INVALID_DRIVE:
        throw WordError(WordErrorNumber::invalidDocumentName);
    case ERROR_FILE_NOT_FOUND:
        throw WordError(WordErrorNumber::fileNotFound);
    case ERROR_INVALID_NAME:
        throw WordError(WordErrorNumber::notAValidFileName);
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        throw WordError(WordErrorNumber::fileInUse);
    default:
        throw WordError(WordErrorNumber::filePermission);
    }
}

std::wstring wide(std::u16string_view text)
{
    return {text.begin(), text.end()};
}

std::u16string narrowed(std::wstring_view text)
{
    return {text.begin(), text.end()};
}

std::wstring absolutePath(const std::wstring& given)
{
    std::wstring path(MAX_PATH, L'\0');
    while (true) {
        const DWORD needed =
            GetFullPathNameW(given.c_str(), static_cast<DWORD>(path.size()), path.data(), nullptr);
        if (needed == 0)
            throw WordError(WordErrorNumber::notAValidFileName);
        const bool fits = needed < path.size();
        path.resize(needed);
        if (fits)
            return path;
    }
}

void writeAll(HANDLE file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const auto chunk = static_cast<DWORD>(bytes.size() < 0x1000000 ? bytes.size() : 0x1000000);
        DWORD written = 0;
        if (!WriteFile(file, bytes.data(), chunk, &written, nullptr))
            raiseForLastError();
        bytes.remove_prefix(written);
    }
}

/// Beside the target, so that the replacement stays on one volume.
std::wstring temporaryName(const std::wstring& target)
{
    return target + L".~" + std::to_wstring(GetCurrentProcessId()) + L".tmp";
}

void refuseReadOnly(const std::wstring& file)
{
    const DWORD attributes = GetFileAttributesW(file.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES &&
        (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0)
        throw WordError(WordErrorNumber::filePermission);
}
} // namespace

std::wstring FileName::full() const
{
    return wide(folder) + L'\\' + wide(name);
}

FileName resolveFileName(std::u16string_view given, std::u16string_view extension)
{
    const std::wstring name = wide(given);
    if (name.empty() || name.find_first_of(L"*?\"<>|") != std::wstring::npos)
        throw WordError(WordErrorNumber::notAValidFileName);
    const std::wstring path = absolutePath(name);
    const std::size_t separator = path.rfind(L'\\');
    if (separator == std::wstring::npos || separator + 1 == path.size())
        throw WordError(WordErrorNumber::notAValidFileName);
    FileName result{narrowed(path.substr(0, separator)), narrowed(path.substr(separator + 1))};
    if (result.name.find(u'.') == std::u16string::npos)
        result.name += extension;
    return result;
}

std::string readFile(const std::wstring& file)
{
    const FileHandle handle(CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!handle.isOpen()) {
        if (GetLastError() == ERROR_PATH_NOT_FOUND)
            throw WordError(WordErrorNumber::fileNotFound);
        raiseForLastError();
    }
    std::string bytes;
    std::array<char, 65536> buffer;
    DWORD count = 0;
    while (ReadFile(handle.get(), buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr) &&
           count > 0)
        bytes.append(buffer.data(), count);
    return bytes;
}

void replaceFile(const std::wstring& file, std::string_view bytes)
{
    refuseReadOnly(file);
    const std::wstring temporary = temporaryName(file);
    FileHandle handle(CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!handle.isOpen())
        raiseForLastError();
    try {
        writeAll(handle.get(), bytes);
        handle.close();
        if (!MoveFileExW(temporary.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING))
            raiseForLastError();
    } catch (...) {
        handle.close();
        DeleteFileW(temporary.c_str());
        throw;
    }
}
} // namespace standin
