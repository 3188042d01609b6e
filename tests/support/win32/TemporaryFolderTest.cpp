#include "win32/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <windows.h>

TEST(TemporaryFolderTest, IsThatOfTheEnvironment)
{
    wchar_t former[MAX_PATH + 1] = {};
    GetEnvironmentVariableW(L"TMP", former, MAX_PATH + 1);
    const std::filesystem::path folder = std::filesystem::path(temporaryFolder()) / L"own";
    SetEnvironmentVariableW(L"TMP", folder.c_str());
    EXPECT_EQ(temporaryFolder(), folder.wstring() + L"\\");
    SetEnvironmentVariableW(L"TMP", former);
}
