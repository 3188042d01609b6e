#include "WritingSettings.h"

#include <gmock/gmock.h>

#include <map>
#include <tuple>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::wstring wide(const std::string& text)
{
    return {text.begin(), text.end()};
}

class FakeStore : public SettingsStore
{
public:
    std::optional<StoredSetting> read(SettingScope scope, const SettingDescription& setting) const override
    {
        const auto found = values.find({scope, setting.id});
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    void writeNumber(const SettingDescription& setting, int number) override
    {
        record.push_back(name(setting) + L" = number " + std::to_wstring(number));
    }
    void writeText(const SettingDescription& setting, const std::wstring& text) override
    {
        record.push_back(name(setting) + L" = text " + text);
    }
    void remove(const SettingDescription& setting) override { record.push_back(name(setting) + L" removed"); }

    void has(SettingScope scope, SettingName setting, int number)
    {
        values[{scope, setting}] = {RegEntry("g", "n", number), L""};
    }
    void has(SettingScope scope, SettingName setting, const std::string& text)
    {
        values[{scope, setting}] = {RegEntry("g", "n", text.c_str()), wide(text)};
    }

    std::map<std::pair<SettingScope, SettingName>, StoredSetting> values;
    std::vector<std::wstring> record;

private:
    static std::wstring name(const SettingDescription& setting)
    {
        return wide(std::string(setting.group) + "/" + setting.name);
    }
};

class WritingSettingsTest : public testing::Test
{
protected:
    FakeStore store;
    WritingSettings settings{store};
};

constexpr auto user = SettingScope::user;
constexpr auto machine = SettingScope::machine;

TEST_F(WritingSettingsTest, KnowsTheDefaults)
{
    std::vector<std::wstring> defaults;
    for (const SettingName name : WritingSettings::all) {
        const SettingState state = settings.read(name);
        EXPECT_FALSE(state.user);
        EXPECT_FALSE(state.machine);
        EXPECT_EQ(state.inherited(), state.byDefault);
        defaults.push_back(state.byDefault);
    }
    EXPECT_THAT(defaults, ElementsAre(L"0", L"0", L"0", L"30", L"", L"", L"Table of Contents"));
}

TEST_F(WritingSettingsTest, TellsTheUsersValueFromTheMachines)
{
    store.has(user, SettingName::busyTimeout, 5);
    store.has(machine, SettingName::busyTimeout, "60");
    store.has(machine, SettingName::tocTitle, "");
    EXPECT_EQ(settings.read(SettingName::busyTimeout).user, L"5");
    EXPECT_EQ(settings.read(SettingName::busyTimeout).machine, L"60");
    EXPECT_EQ(settings.read(SettingName::busyTimeout).inherited(), L"60");
    EXPECT_FALSE(settings.read(SettingName::tocTitle).user);
    EXPECT_EQ(settings.read(SettingName::tocTitle).inherited(), L"") << "an empty text is a value";
}

TEST_F(WritingSettingsTest, ReadsChoicesAsTheDllDoes)
{
    const auto shown = [&](SettingName name, auto value) {
        store.has(user, name, value);
        return settings.read(name).user;
    };
    EXPECT_EQ(shown(SettingName::compose, 2), L"2");
    EXPECT_EQ(shown(SettingName::compose, "1"), L"1") << "as the installer stores it";
    EXPECT_EQ(shown(SettingName::compose, 3), L"0");
    EXPECT_EQ(shown(SettingName::compose, -1), L"0");
    EXPECT_EQ(shown(SettingName::compose, "yes"), L"0");
    EXPECT_EQ(shown(SettingName::strict, 7), L"1");
    EXPECT_EQ(shown(SettingName::strict, "On"), L"1");
    EXPECT_EQ(shown(SettingName::strict, "off"), L"0");
    EXPECT_EQ(shown(SettingName::ownInstance, "true"), L"1");
}

TEST_F(WritingSettingsTest, ShowsTextsAsTheyAreStored)
{
    store.has(user, SettingName::busyTimeout, "soon");
    store.has(machine, SettingName::busyTimeout, -3);
    store.values[{user, SettingName::tocTitle}] = {RegEntry("g", "n", "?"), L"\u03b1"};
    store.has(user, SettingName::tableStyle, 7);
    EXPECT_EQ(settings.read(SettingName::busyTimeout).user, L"soon");
    EXPECT_EQ(settings.read(SettingName::busyTimeout).machine, L"-3");
    EXPECT_EQ(settings.read(SettingName::tocTitle).user, L"\u03b1") << "in all its characters";
    EXPECT_EQ(settings.read(SettingName::tableStyle).user, L"7");
}

TEST_F(WritingSettingsTest, RefusesWhatIsNoNumberOfSeconds)
{
    for (const wchar_t* good : {L"0", L"30", L" 5\t", L"007", L"2147483647"})
        EXPECT_FALSE(WritingSettings::refusalOf(SettingName::busyTimeout, good)) << good;
    for (const wchar_t* bad : {L"", L" ", L"-1", L"+1", L"soon", L"1.5", L"3 s", L"0x10", L"2147483648",
                               L"99999999999999999999", L"\u0663"})
        EXPECT_EQ(WritingSettings::refusalOf(SettingName::busyTimeout, bad),
                  L"Not stored: a whole number of seconds is needed here, from 0 to 2147483647.")
            << bad;
}

TEST_F(WritingSettingsTest, RefusesWhatNoFileCanBeCalled)
{
    for (const wchar_t* good : {L"", L"a.log", L"c:\\logs\\a.log", L"\\\\server\\share\\\u03b1", L"..\\a"})
        EXPECT_FALSE(WritingSettings::refusalOf(SettingName::diagnostics, good)) << good;
    for (const wchar_t* bad : {L"a?.log", L"*", L"a|b", L"<a", L"a>", L"\"a.log\""})
        EXPECT_EQ(WritingSettings::refusalOf(SettingName::diagnostics, bad),
                  L"Not stored: a file's name has none of < > \" | ? * in it.")
            << bad;
    for (const wchar_t* folder : {L"c:\\logs\\", L"logs/", L"c:"})
        EXPECT_EQ(WritingSettings::refusalOf(SettingName::diagnostics, folder),
                  L"Not stored: this names a folder; the name of a file is needed behind it.")
            << folder;
}

TEST_F(WritingSettingsTest, TakesAnyOtherText)
{
    for (const SettingName name : {SettingName::tableStyle, SettingName::tocTitle})
        for (const wchar_t* text : {L"", L" ", L"Table Grid", L"<?>"})
            EXPECT_FALSE(WritingSettings::refusalOf(name, text)) << text;
}

TEST_F(WritingSettingsTest, StoresEachByItsKind)
{
    settings.store(SettingName::compose, L"2");
    settings.store(SettingName::strict, L"1");
    settings.store(SettingName::busyTimeout, L" 007 ");
    settings.store(SettingName::diagnostics, L"");
    settings.store(SettingName::tocTitle, L"\u03b1");
    settings.store(SettingName::ownInstance, std::nullopt);
    EXPECT_THAT(store.record, ElementsAre(L"Word/Compose = number 2", L"Word/Strict = number 1",
                                          L"Word/BusyTimeout = number 7", L"Log/Diagnostics = text ",
                                          L"Word/TOCTitle = text \u03b1", L"Word/OwnInstance removed"));
}

TEST_F(WritingSettingsTest, KeepsNothingByReading)
{
    for (const SettingName name : WritingSettings::all)
        (void)settings.read(name);
    EXPECT_THAT(store.record, IsEmpty());
}

} // namespace
