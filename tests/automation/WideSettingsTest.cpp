// Names and values of settings in any characters.
#include "FrontEndTest.h"
#include "Hresult.h"

#include "registry/RegisterBase.h"

#include <gmock/gmock.h>

#include <windows.h>

namespace {

using testing::HasSubstr;

/// A value among the user's settings.
class WideSetting
{
public:
    WideSetting(const wchar_t* group, const wchar_t* name, const std::wstring& value)
        : path_(std::wstring(RegisterBase::root) + L"\\" + group), name_(name)
    {
        const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
        RegSetKeyValueW(HKEY_CURRENT_USER, path_.c_str(), name, REG_SZ, value.c_str(), size);
    }
    ~WideSetting() { RegDeleteKeyValueW(HKEY_CURRENT_USER, path_.c_str(), name_); }
    WideSetting(const WideSetting&) = delete;
    WideSetting& operator=(const WideSetting&) = delete;

private:
    std::wstring path_;
    const wchar_t* name_;
};

class WideSettingsTest : public FrontEndTest
{
protected:
    [[nodiscard]] std::wstring path(const std::wstring& name) const
    {
        return static_cast<const wchar_t*>(bstr(folder.path())) + (L"\\" + name);
    }
    [[nodiscard]] bool isLogThere(const std::wstring& stem) const
    {
        const std::wstring log = path(stem) + L"." + std::to_wstring(GetCurrentProcessId()) + L".log";
        return GetFileAttributesW(log.c_str()) != INVALID_FILE_ATTRIBUTES;
    }
};

TEST_F(WideSettingsTest, NameTheFileOfTheDiagnostics)
{
    const std::wstring stem = L"\u03bb\u03cc\u03b3\u03bf\u03c2 \u65e5\u8a18";
    {
        const WideSetting stored(L"Log", L"Diagnostics", path(stem + L".log"));
        newClient();
    }
    EXPECT_TRUE(isLogThere(stem)) << "by the registry";
    const _bstr_t other(path(stem + L"2.log").c_str());
    ASSERT_THAT(client->overrideRegistry(L"Log"_b, L"Diagnostics"_b, other, 1), isHresult(S_OK));
    EXPECT_TRUE(isLogThere(stem + L"2")) << "by the client";
}

TEST_F(WideSettingsTest, AreNamedWhenNobodyReadsThem)
{
    const WideSetting misspelt(L"Word", L"Comps\u03bfe", L"2");
    const WideSetting known(L"Word", L"tOClEVEL", L"3");
    setting("Log", "Diagnostics", folder.file("events.log"));
    openDocument();
    const std::string written =
        contentOf(folder.file("events." + std::to_string(GetCurrentProcessId()) + ".log"));
    EXPECT_THAT(written, HasSubstr("\tcreate\tNobody reads this setting: Word/Comps\xce\xbf"
                                   "e (user)\t"));
    EXPECT_THAT(written, HasSubstr("\tCheck the spelling of its name."));
    EXPECT_THAT(written, testing::Not(HasSubstr("Nobody reads this setting: Word/tOC")));
}

} // namespace
