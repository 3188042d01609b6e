#include "win32/RegistryKey.h"

#include "Hresult.h"
#include "OwnRegistry.h"

#include <algorithm>

namespace {

constexpr const wchar_t* scratch = L"Software\\RegistryKeyTest";
constexpr REGSAM all = KEY_READ | KEY_WRITE;

class RegistryKeyTest : public testing::Test
{
    OwnRegistry registry_;
};

TEST_F(RegistryKeyTest, TestsFalseWhenThereIsNone)
{
    EXPECT_FALSE(RegistryKey::open(HKEY_CURRENT_USER, scratch, KEY_READ));
    const RegistryKey made = RegistryKey::create(HKEY_CURRENT_USER, scratch, all);
    EXPECT_TRUE(made);
    EXPECT_TRUE(RegistryKey::open(HKEY_CURRENT_USER, scratch, KEY_READ));
}

TEST_F(RegistryKeyTest, IsEmptyWithoutKeysAndValues)
{
    const RegistryKey key = RegistryKey::create(HKEY_CURRENT_USER, scratch, all);
    EXPECT_TRUE(key.isEmpty());
    key.setText(nullptr, L"x");
    EXPECT_FALSE(key.isEmpty());
    EXPECT_EQ(key.text(nullptr), L"x");
    RegDeleteValueW(key.get(), nullptr);
    EXPECT_TRUE(key.isEmpty());
    (void)RegistryKey::create(key.get(), L"below", all);
    EXPECT_FALSE(key.isEmpty());
}

TEST_F(RegistryKeyTest, ListsTheKeysBelow)
{
    const RegistryKey key = RegistryKey::create(HKEY_CURRENT_USER, scratch, all);
    EXPECT_TRUE(key.subkeys().empty());
    const std::wstring longest(255, L'x');
    for (const std::wstring& name : {std::wstring(L"2.0"), longest})
        (void)RegistryKey::create(key.get(), name, all);
    std::vector<std::wstring> names = key.subkeys();
    std::ranges::sort(names);
    EXPECT_EQ(names, (std::vector<std::wstring>{L"2.0", longest}));
}

TEST_F(RegistryKeyTest, RemovesAValue)
{
    const RegistryKey key = RegistryKey::create(HKEY_CURRENT_USER, scratch, all);
    key.setNumber(L"n", 1);
    key.setText(L"t", L"x");
    key.remove(L"n");
    EXPECT_FALSE(key.has(L"n"));
    EXPECT_TRUE(key.has(L"t"));
    key.remove(L"n");
}

TEST_F(RegistryKeyTest, WhatTheSystemRefusesIsRaised)
{
    const RegistryKey key = RegistryKey::create(HKEY_CURRENT_USER, scratch, KEY_READ);
    EXPECT_THAT(comErrorOf([&] { key.setNumber(L"n", 1); }), isHresult(E_ACCESSDENIED));
    EXPECT_THAT(comErrorOf([&] { key.remove(L"n"); }), isHresult(E_ACCESSDENIED));
    EXPECT_THAT(comErrorOf([&] { (void)RegistryKey::create(nullptr, scratch, all); }), isFailure());
}

} // namespace
