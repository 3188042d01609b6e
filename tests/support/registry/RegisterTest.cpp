#include "Hresult.h"
#include "OwnRegistry.h"
#include "registry/RegisterCache.h"
#include "registry/RegisterDynamic.h"

#include <comdef.h>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <windows.h>

namespace {

constexpr char group[] = "SupportTest";
constexpr wchar_t keyPath[] = L"Software\\Lumarkscribe\\Mirovelcom\\SupportTest";

/// Looks at the registry with Windows' own functions only.
class RegisterTest : public testing::Test
{
protected:
    static void set(HKEY hive, const wchar_t* name, DWORD type, const void* data, std::size_t size)
    {
        ASSERT_EQ(RegSetKeyValueW(hive, keyPath, name, type, data, static_cast<DWORD>(size)), ERROR_SUCCESS);
    }
    static void setText(HKEY hive, const wchar_t* name, std::wstring_view text, DWORD type = REG_SZ)
    {
        const std::wstring copy(text);
        set(hive, name, type, copy.c_str(), (copy.size() + 1) * sizeof(wchar_t));
    }
    static void setNumber(HKEY hive, const wchar_t* name, DWORD number)
    {
        set(hive, name, REG_DWORD, &number, sizeof number);
    }
    /// Type and bytes of a value; type REG_NONE when it is absent.
    static std::pair<DWORD, std::string> raw(HKEY hive, const wchar_t* name)
    {
        DWORD type = REG_NONE;
        std::string data(1000, '\0');
        DWORD size = static_cast<DWORD>(data.size());
        if (RegGetValueW(hive, keyPath, name, RRF_RT_ANY | RRF_NOEXPAND, &type, data.data(), &size) !=
            ERROR_SUCCESS)
            return {REG_NONE, ""};
        data.resize(size);
        return {type, data};
    }

    static std::string readText(const char* name, const char* defaultText = "default")
    {
        return static_cast<QdxString>(RegisterDynamic::read(group, name, defaultText, false)).data();
    }

private:
    OwnRegistry registry_;
};

std::string bytesOf(std::wstring_view text)
{
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

std::string bytesOf(DWORD number)
{
    return {reinterpret_cast<const char*>(&number), sizeof number};
}

using namespace std::string_view_literals;

} // namespace

TEST_F(RegisterTest, AnAbsentValueIsTheDefault)
{
    EXPECT_EQ(readText("Absent"), "default");
    EXPECT_EQ(static_cast<int>(RegisterDynamic::read(group, "Absent", 50, false)), 50);
    EXPECT_EQ(static_cast<int>(RegisterDynamic::read("No such group", "Absent", 50, false)), 50);
    EXPECT_EQ(static_cast<int>(RegisterCache().read(group, "Absent", 50)), 50);
}

TEST_F(RegisterTest, ReadsTextWithItsNames)
{
    setText(HKEY_CURRENT_USER, L"Text", L"h\u00e4llo");
    const RegEntry entry = RegisterDynamic::read(group, "Text", "", false);
    EXPECT_STREQ(entry.getValue().data(), "h\xe4llo");
    EXPECT_STREQ(entry.getGroup().data(), group);
    EXPECT_STREQ(entry.getName().data(), "Text");
    EXPECT_EQ(entry.getKind(), 2);
}

TEST_F(RegisterTest, ReadsEmptyText)
{
    setText(HKEY_CURRENT_USER, L"Text", L"");
    EXPECT_EQ(readText("Text"), "");
}

TEST_F(RegisterTest, ReadsLongText)
{
    const std::wstring text(5000, L'x');
    setText(HKEY_CURRENT_USER, L"Text", text);
    EXPECT_EQ(readText("Text"), std::string(5000, 'x'));
}

TEST_F(RegisterTest, ReadsANumber)
{
    setNumber(HKEY_CURRENT_USER, L"Number", 3);
    const RegEntry entry = RegisterDynamic::read(group, "Number", 50, false);
    EXPECT_EQ(static_cast<int>(entry), 3);
    EXPECT_EQ(entry.getKind(), 0);
}

TEST_F(RegisterTest, ExpandsExpandableText)
{
    ASSERT_TRUE(SetEnvironmentVariableW(L"MIROVEL_REGISTER_TEST", L"c:\\inst"));
    setText(HKEY_CURRENT_USER, L"Text", L"%MIROVEL_REGISTER_TEST%\\x", REG_EXPAND_SZ);
    EXPECT_EQ(readText("Text"), "c:\\inst\\x");
    SetEnvironmentVariableW(L"MIROVEL_REGISTER_TEST", nullptr);
}

TEST_F(RegisterTest, AnotherTypeCountsAsAbsent)
{
    set(HKEY_CURRENT_USER, L"Other", REG_BINARY, "abcd", 4);
    EXPECT_EQ(readText("Other"), "default");
    setText(HKEY_LOCAL_MACHINE, L"Other", L"machine");
    EXPECT_EQ(readText("Other"), "machine");
}

TEST_F(RegisterTest, TheUserGoesBeforeTheMachine)
{
    setText(HKEY_LOCAL_MACHINE, L"Text", L"machine");
    EXPECT_EQ(readText("Text"), "machine");
    EXPECT_STREQ(static_cast<QdxString>(RegisterCache().read(group, "Text", "default")).data(), "machine");
    setText(HKEY_CURRENT_USER, L"Text", L"user");
    EXPECT_EQ(readText("Text"), "user");
    EXPECT_STREQ(static_cast<QdxString>(RegisterCache().read(group, "Text", "default")).data(), "user");
}

TEST_F(RegisterTest, TheFlagPassesOverTheUser)
{
    setText(HKEY_CURRENT_USER, L"Text", L"user");
    EXPECT_STREQ(static_cast<QdxString>(RegisterDynamic::read(group, "Text", "default", true)).data(),
                 "default");
    setText(HKEY_LOCAL_MACHINE, L"Text", L"machine");
    EXPECT_STREQ(static_cast<QdxString>(RegisterDynamic::read(group, "Text", "default", true)).data(),
                 "machine");
}

TEST_F(RegisterTest, WritesByKindForTheUser)
{
    RegEntry truth("true");
    truth.setKind(1);
    RegisterDynamic::write(group, "Text", "h\xe4", false);
    RegisterDynamic::write(group, "Empty", "", false);
    RegisterDynamic::write(group, "Number", -3, false);
    RegisterDynamic::write(group, "Boolean", truth, false);
    EXPECT_EQ(raw(HKEY_CURRENT_USER, L"Text"), std::pair(DWORD{REG_SZ}, bytesOf(L"h\u00e4\0"sv)));
    EXPECT_EQ(raw(HKEY_CURRENT_USER, L"Empty"), std::pair(DWORD{REG_SZ}, bytesOf(L"\0"sv)));
    EXPECT_EQ(raw(HKEY_CURRENT_USER, L"Number"), std::pair(DWORD{REG_DWORD}, bytesOf(DWORD(-3))));
    EXPECT_EQ(raw(HKEY_CURRENT_USER, L"Boolean"), std::pair(DWORD{REG_DWORD}, bytesOf(DWORD{1})));
    EXPECT_EQ(raw(HKEY_LOCAL_MACHINE, L"Text").first, DWORD{REG_NONE});
    EXPECT_EQ(static_cast<int>(RegisterDynamic::read(group, "Number", 50, false)), -3);
}

TEST_F(RegisterTest, TheFlagWritesForTheMachine)
{
    RegisterDynamic::write(group, "Number", 4, true);
    EXPECT_EQ(raw(HKEY_LOCAL_MACHINE, L"Number"), std::pair(DWORD{REG_DWORD}, bytesOf(DWORD{4})));
    EXPECT_EQ(raw(HKEY_CURRENT_USER, L"Number").first, DWORD{REG_NONE});
}

TEST_F(RegisterTest, AWriteThatWindowsRefusesIsAComError)
{
    // A key's name holds at most 255 characters.
    const QdxString impossible(std::string(300, 'x').c_str());
    try {
        RegisterDynamic::write(impossible, "Number", 4, false);
        ADD_FAILURE() << "written";
    } catch (const _com_error& error) {
        EXPECT_THAT(error.Error(), isFailure()) << std::hex << error.Error();
    }
    EXPECT_EQ(static_cast<int>(RegisterDynamic::read(impossible, "Number", 50, false)), 50);
}

TEST_F(RegisterTest, AnOverrideGoesBeforeTheRegistry)
{
    setText(HKEY_CURRENT_USER, L"Text", L"user");
    RegisterCache cache;
    cache.override(RegEntry(group, "Text", "override"));
    EXPECT_STREQ(static_cast<QdxString>(cache.read(group, "Text", "default")).data(), "override");
    EXPECT_EQ(readText("Text"), "user") << "the registry itself is not overridden";
    EXPECT_STREQ(static_cast<QdxString>(RegisterCache().read(group, "Text", "default")).data(), "user")
        << "nor is another session";
}

TEST_F(RegisterTest, AnOverrideCountsForItsOwnGroupAndNameOnly)
{
    RegisterCache cache;
    cache.override(RegEntry(group, "Text", "override"));
    EXPECT_STREQ(static_cast<QdxString>(cache.read(group, "Other", "default")).data(), "default");
    EXPECT_STREQ(static_cast<QdxString>(cache.read("Other", "Text", "default")).data(), "default");
    EXPECT_STREQ(static_cast<QdxString>(cache.read("SUPPORTTEST", "text", "default")).data(), "override");
}

TEST_F(RegisterTest, ALaterOverrideReplacesAnEarlierOne)
{
    RegisterCache cache;
    cache.override(RegEntry(group, "Level", "3"));
    RegEntry later(group, "Level", "4");
    later.setKind(0);
    cache.override(later);
    EXPECT_TRUE(cache.read(group, "Level", 50) == later);
}

TEST_F(RegisterTest, WhatIsReadIsNotRemembered)
{
    RegisterCache cache;
    EXPECT_EQ(static_cast<int>(cache.read(group, "Number", 50)), 50);
    setNumber(HKEY_CURRENT_USER, L"Number", 3);
    EXPECT_EQ(static_cast<int>(cache.read(group, "Number", 50)), 3);
}
