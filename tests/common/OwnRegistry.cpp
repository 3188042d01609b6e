#include "OwnRegistry.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// Where the process's hives lie meanwhile.
std::wstring placeOfOwn()
{
    return L"Software\\MirovelTests\\" + std::to_wstring(GetCurrentProcessId());
}

void redirect(HKEY hive, const wchar_t* name)
{
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, (placeOfOwn() + L"\\" + name).c_str(), 0, nullptr,
                              REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(RegOverridePredefKey(hive, key), ERROR_SUCCESS);
    RegCloseKey(key); // Windows keeps its own
}

} // namespace

OwnRegistry::OwnRegistry()
{
    RegDeleteTreeW(HKEY_CURRENT_USER, placeOfOwn().c_str()); // of a process of that number that has crashed
    redirect(HKEY_LOCAL_MACHINE, L"machine");
    redirect(HKEY_CURRENT_USER, L"user"); // the last one: the first lies below it
}

OwnRegistry::~OwnRegistry()
{
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, placeOfOwn().c_str()), ERROR_SUCCESS);
}
