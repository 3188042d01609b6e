// A program learns its screen's density when it starts, so this one is started anew for each.
#include "Density.h"

#include <gmock/gmock.h>

#include <windows.h>

#include <cstdlib>

namespace {

constexpr wchar_t desktop[] = L"Control Panel\\Desktop";
constexpr char variable[] = "MIROVEL_TEST_DENSITY";

/// The screen's density for programs that start meanwhile.
class ScreenDensity
{
public:
    explicit ScreenDensity(DWORD dotsPerInch)
    {
        RegSetKeyValueW(HKEY_CURRENT_USER, desktop, L"LogPixels", REG_DWORD, &dotsPerInch,
                        sizeof dotsPerInch);
        SetEnvironmentVariableA(variable, std::to_string(dotsPerInch).c_str());
    }
    ~ScreenDensity()
    {
        RegDeleteKeyValueW(HKEY_CURRENT_USER, desktop, L"LogPixels");
        SetEnvironmentVariableA(variable, nullptr);
    }
    ScreenDensity(const ScreenDensity&) = delete;
    ScreenDensity& operator=(const ScreenDensity&) = delete;
};

DWORD statusOfLayoutTests()
{
    wchar_t own[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, own, MAX_PATH);
    std::wstring command = L"\"" + std::wstring(own) + L"\" --gtest_brief=1 --gtest_filter=*LayoutTest.*";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process))
        throw std::runtime_error("the tests do not start");
    CloseHandle(process.hThread);
    DWORD status = 99;
    if (WaitForSingleObject(process.hProcess, 60000) == WAIT_OBJECT_0)
        GetExitCodeProcess(process.hProcess, &status);
    else
        TerminateProcess(process.hProcess, 98);
    CloseHandle(process.hProcess);
    return status;
}

class DensityTest : public testing::TestWithParam<DWORD>
{
};

TEST_P(DensityTest, LaysOutAsWell)
{
    const ScreenDensity density(GetParam());
    EXPECT_EQ(statusOfLayoutTests(), 0U) << "what failed stands above";
}

INSTANTIATE_TEST_SUITE_P(Screens, DensityTest, testing::Values(96, 120, 144, 168, 192));

} // namespace

int wantedDensity()
{
    char value[16] = "";
    const DWORD length = GetEnvironmentVariableA(variable, value, sizeof value);
    return length == 0 ? 96 : std::atoi(value);
}
