#include "registry/SettingsRecord.h"

#include "OwnRegistry.h"
#include "registry/RegisterDynamic.h"

#include <gtest/gtest.h>
#include <string>
#include <windows.h>

namespace {

class SettingsRecordTest : public testing::Test
{
protected:
    static void store(SettingName name, const RegEntry& entry, bool forAllUsers = false)
    {
        RegisterDynamic::write(describe(name).group, describe(name).name, entry, forAllUsers);
    }
    static void storeBytes(HKEY hive, SettingName name)
    {
        ASSERT_EQ(RegSetKeyValueW(hive, path(name).c_str(), wide(describe(name).name).c_str(), REG_BINARY,
                                  "abcd", 4),
                  ERROR_SUCCESS);
    }
    static RegEntry override(SettingName name, const char* value, int kind)
    {
        RegEntry entry(describe(name).group, describe(name).name, value);
        entry.setKind(kind);
        return entry;
    }

private:
    static std::wstring wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }
    static std::wstring path(SettingName name)
    {
        return std::wstring(RegisterBase::root) + L"\\" + wide(describe(name).group);
    }

    OwnRegistry registry_;
};

} // namespace

TEST_F(SettingsRecordTest, HoldsTheDefaultsWhereNothingIsStored)
{
    const SettingsRecord record = SettingsRecord::read(RegisterCache());
    for (const SettingDescription& setting : settingTable) {
        EXPECT_EQ(record[setting.id].origin, SettingOrigin::byDefault) << setting.name;
        EXPECT_TRUE(record[setting.id].isOfItsKind) << setting.name;
        EXPECT_TRUE(record[setting.id].entry == defaultEntry(setting)) << setting.name;
        EXPECT_TRUE(record[setting.id].entry == SettingsRecord()[setting.id].entry) << setting.name;
    }
    EXPECT_EQ(record.integer(SettingName::tocLevel), 50);
    EXPECT_EQ(record.integer(SettingName::busyTimeout), 30);
    EXPECT_FALSE(record.isOn(SettingName::strict));
    EXPECT_STREQ(record.text(SettingName::tableStyle).data(), "");
    EXPECT_EQ(record[SettingName::tocTitle].text, L"Table of Contents");
}

TEST_F(SettingsRecordTest, KnowsWhereAValueComesFrom)
{
    RegisterCache registry;
    store(SettingName::tocLevel, 3, true);
    EXPECT_EQ(SettingsRecord::read(registry)[SettingName::tocLevel].origin, SettingOrigin::machine);
    EXPECT_EQ(SettingsRecord::read(registry).integer(SettingName::tocLevel), 3);
    store(SettingName::tocLevel, 4);
    EXPECT_EQ(SettingsRecord::read(registry)[SettingName::tocLevel].origin, SettingOrigin::user);
    EXPECT_EQ(SettingsRecord::read(registry).integer(SettingName::tocLevel), 4);
    registry.override(override(SettingName::tocLevel, "5", RegEntry::integerKind));
    EXPECT_EQ(SettingsRecord::read(registry)[SettingName::tocLevel].origin, SettingOrigin::clientOverride);
    EXPECT_EQ(SettingsRecord::read(registry).integer(SettingName::tocLevel), 5);
}

TEST_F(SettingsRecordTest, TellsAValueThatIsNotOfItsKindAndGoesByWhatItReadsAs)
{
    store(SettingName::compose, "enabled");
    store(SettingName::strict, "maybe", true);
    const SettingsRecord record = SettingsRecord::read(RegisterCache());
    EXPECT_FALSE(record[SettingName::compose].isOfItsKind);
    EXPECT_STREQ(record[SettingName::compose].entry.getValue().data(), "enabled");
    EXPECT_EQ(record.integer(SettingName::compose), 0);
    EXPECT_FALSE(record[SettingName::strict].isOfItsKind);
    EXPECT_FALSE(record.isOn(SettingName::strict));
}

TEST_F(SettingsRecordTest, TellsAValueOfATypeThatNoSettingHas)
{
    storeBytes(HKEY_CURRENT_USER, SettingName::tocLevel);
    storeBytes(HKEY_LOCAL_MACHINE, SettingName::compose);
    store(SettingName::tocLevel, 3, true);
    const SettingsRecord record = SettingsRecord::read(RegisterCache());
    EXPECT_FALSE(record[SettingName::tocLevel].isOfItsKind);
    EXPECT_EQ(record[SettingName::tocLevel].origin, SettingOrigin::machine);
    EXPECT_EQ(record.integer(SettingName::tocLevel), 3);
    EXPECT_FALSE(record[SettingName::compose].isOfItsKind);
    EXPECT_EQ(record[SettingName::compose].origin, SettingOrigin::byDefault);
    EXPECT_TRUE(record[SettingName::busyTimeout].isOfItsKind);
}

TEST_F(SettingsRecordTest, IsReadOnce)
{
    const SettingsRecord record = SettingsRecord::read(RegisterCache());
    store(SettingName::tocLevel, 3);
    EXPECT_EQ(record.integer(SettingName::tocLevel), 50);
}

TEST_F(SettingsRecordTest, TakesOverridesAtOnceOnlyOfWhatCountsFromTheBeginning)
{
    RegisterCache registry;
    SettingsRecord record = SettingsRecord::read(registry);
    registry.override(override(SettingName::tocLevel, "5", RegEntry::integerKind));
    registry.override(override(SettingName::ownInstance, "true", RegEntry::booleanKind));
    store(SettingName::strict, 1);
    record.takeOverrides(registry);
    EXPECT_EQ(record.integer(SettingName::tocLevel), 50);
    EXPECT_TRUE(record.isOn(SettingName::ownInstance));
    EXPECT_EQ(record[SettingName::ownInstance].origin, SettingOrigin::clientOverride);
    EXPECT_FALSE(record.isOn(SettingName::strict)) << "what is stored waits for create";
}

TEST_F(SettingsRecordTest, FindsTheRegisteredInstallDirAsItStands)
{
    EXPECT_STREQ(SettingsRecord::registeredInstallDir().data(), "");
    store(SettingName::installDir, "c:\\all", true);
    EXPECT_STREQ(SettingsRecord::registeredInstallDir().data(), "c:\\all");
    store(SettingName::installDir, "c:\\own");
    EXPECT_STREQ(SettingsRecord::registeredInstallDir().data(), "c:\\own");
}
