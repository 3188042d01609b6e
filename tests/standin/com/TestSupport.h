#pragma once

#include "Hresult.h"
#include "ScratchFolder.h"

#include <algorithm>
#include <comdef.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <windows.h>

namespace standin_test {
/// COM for the test program's thread.
class Apartment
{
public:
    Apartment() { EXPECT_THAT(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), isHresult(S_OK)); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

/// Whether a document of that file is in the running object table.
inline bool isRunning(const std::wstring& file)
{
    IBindCtx* context = nullptr;
    IMoniker* moniker = nullptr;
    EXPECT_THAT(CreateBindCtx(0, &context), isHresult(S_OK));
    EXPECT_THAT(CreateFileMoniker(file.c_str(), &moniker), isHresult(S_OK));
    const HRESULT running = moniker->IsRunning(context, nullptr, nullptr);
    EXPECT_THAT(running, testing::AnyOf(isHresult(S_OK), isHresult(S_FALSE)));
    moniker->Release();
    context->Release();
    return running == S_OK;
}

/// A scratch folder whose names are Word's.
class ScratchFolder
{
public:
    std::wstring path() const { return std::filesystem::path(folder_.path()).wstring(); }
    std::wstring file(const std::wstring& name) const { return path() + L"\\" + name; }
    int fileCount() const
    {
        using Iterator = std::filesystem::directory_iterator;
        return static_cast<int>(std::count_if(Iterator(path()), Iterator(),
                                              [](const auto& entry) { return !entry.is_directory(); }));
    }

private:
    ::ScratchFolder folder_;
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
