#include "OwnRegistry.h"

#include <gtest/gtest.h>

namespace {

constexpr const wchar_t* place = L"Software\\OwnRegistryTest";

LSTATUS write(HKEY hive)
{
    const DWORD number = 1;
    return RegSetKeyValueW(hive, place, L"n", REG_DWORD, &number, sizeof number);
}

bool isThere(HKEY hive)
{
    DWORD number = 0;
    DWORD size = sizeof number;
    return RegGetValueW(hive, place, L"n", RRF_RT_REG_DWORD, nullptr, &number, &size) == ERROR_SUCCESS;
}

TEST(OwnRegistryTest, IsEmptyAndLeavesNothing)
{
    for (const HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        for (int time = 0; time < 2; ++time) {
            const OwnRegistry own;
            EXPECT_FALSE(isThere(hive)) << "left by the one before";
            EXPECT_EQ(write(hive), ERROR_SUCCESS);
            EXPECT_TRUE(isThere(hive));
        }
        EXPECT_FALSE(isThere(hive));
    }
}

TEST(OwnRegistryTest, HidesWhatIsStored)
{
    ASSERT_EQ(write(HKEY_CURRENT_USER), ERROR_SUCCESS);
    {
        const OwnRegistry own;
        EXPECT_FALSE(isThere(HKEY_CURRENT_USER));
        EXPECT_FALSE(isThere(HKEY_LOCAL_MACHINE));
    }
    EXPECT_TRUE(isThere(HKEY_CURRENT_USER));
    EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, place), ERROR_SUCCESS);
}

} // namespace
