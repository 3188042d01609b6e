#pragma once

#include <comdef.h>
#include <gtest/gtest.h>
#include <string>
#include <windows.h>

namespace standin_test {
/// COM for the test program's thread.
class Apartment
{
public:
    Apartment() { EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

/// The HRESULT with which `call` failed; S_OK when it did not.
template <typename Call>
HRESULT failureOf(Call&& call)
{
    try {
        call();
        return S_OK;
    } catch (const _com_error& error) {
        return error.Error();
    }
}

inline HRESULT wordError(long number)
{
    return static_cast<HRESULT>(0x800A0000u + static_cast<unsigned long>(number));
}

/// A folder of its own, empty at the start and gone at the end.
class ScratchFolder
{
public:
    ScratchFolder()
    {
        wchar_t base[MAX_PATH];
        GetTempPathW(MAX_PATH, base);
        path_ = std::wstring(base) + L"standin-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                std::to_wstring(++made_);
        EXPECT_TRUE(CreateDirectoryW(path_.c_str(), nullptr));
    }
    ~ScratchFolder()
    {
        WIN32_FIND_DATAW found;
        const HANDLE search = FindFirstFileW((path_ + L"\\*").c_str(), &found);
        if (search != INVALID_HANDLE_VALUE) {
            do
                DeleteFileW((path_ + L"\\" + found.cFileName).c_str());
            while (FindNextFileW(search, &found));
            FindClose(search);
        }
        RemoveDirectoryW(path_.c_str());
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::wstring& path() const { return path_; }
    std::wstring file(const std::wstring& name) const { return path_ + L"\\" + name; }
    int fileCount() const
    {
        int count = 0;
        WIN32_FIND_DATAW found;
        const HANDLE search = FindFirstFileW((path_ + L"\\*").c_str(), &found);
        do
            count += (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
        while (FindNextFileW(search, &found));
        FindClose(search);
        return count;
    }

private:
    static inline int made_ = 0;
    std::wstring path_;
};

inline std::string bytesOf(const std::wstring& name)
{
    const HANDLE file = CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    EXPECT_NE(file, INVALID_HANDLE_VALUE);
    std::string bytes(GetFileSize(file, nullptr), '\0');
    DWORD count = 0;
    EXPECT_TRUE(ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr));
    CloseHandle(file);
    bytes.resize(count);
    return bytes;
}
} // namespace standin_test
