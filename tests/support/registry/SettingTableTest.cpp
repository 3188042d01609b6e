#include "registry/SettingTable.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Row = std::vector<std::string>;

/// The cells of the table under that heading line, without the cells behind the last column that is asked
/// for.
std::vector<Row> documentedRows(const std::string& heading, std::size_t columns)
{
    std::ifstream file(MIROVEL_SETTINGS_PAGE);
    EXPECT_TRUE(file) << MIROVEL_SETTINGS_PAGE;
    std::string line;
    while (std::getline(file, line) && !line.starts_with(heading)) {
    }
    std::getline(file, line); // below the heading
    std::vector<Row> rows;
    while (std::getline(file, line) && line.starts_with("| ")) {
        std::istringstream cells(line.substr(2));
        Row row;
        for (std::string cell; row.size() < columns && std::getline(cells, cell, '|');) {
            std::erase(cell, '`');
            row.push_back(cell.substr(0, cell.find_last_not_of(' ') + 1));
            cells >> std::ws;
        }
        rows.push_back(row);
    }
    return rows;
}

std::string kindOf(const SettingDescription& setting)
{
    switch (setting.kind) {
    case SettingKind::text:
        return "text";
    case SettingKind::integer:
        return "integer";
    case SettingKind::flag:
        return "boolean";
    }
    return "?";
}

std::string defaultOf(const SettingDescription& setting)
{
    switch (setting.kind) {
    case SettingKind::text:
        if (!setting.defaultText)
            return "see below";
        return *setting.defaultText ? setting.defaultText : "empty";
    case SettingKind::integer:
        return std::to_string(setting.defaultNumber);
    case SettingKind::flag:
        return setting.defaultNumber != 0 ? "true" : "false";
    }
    return "?";
}

RegEntry ofKind(int kind, const char* value)
{
    RegEntry entry("Group", "Name", value);
    entry.setKind(kind);
    return entry;
}

} // namespace

TEST(SettingTableTest, IsTheDocumentedOne)
{
    std::vector<Row> rows;
    for (const SettingDescription& setting : settingTable)
        rows.push_back({setting.group, setting.name, kindOf(setting), defaultOf(setting),
                        setting.overrides == SettingOverrides::count ? "yes" : "in part"});
    EXPECT_EQ(documentedRows("| Group | Name |", 5), rows);
}

TEST(SettingTableTest, HasTheDocumentedReaders)
{
    const std::vector<Row> rows = documentedRows("| Setting | Read by |", 4);
    for (const SettingDescription& setting : settingTable) {
        const std::string name = std::string(setting.group) + "/" + setting.name;
        std::vector<std::string> overrides;
        bool asTheObjectIsMade = false;
        for (const Row& row : rows) {
            if ((", " + row[0] + ",").find(", " + name + ",") == std::string::npos)
                continue;
            overrides.push_back(row[3]);
            asTheObjectIsMade = asTheObjectIsMade || row[2].starts_with("when it is made");
        }
        EXPECT_FALSE(overrides.empty()) << name << " is read by nobody";
        const bool passedOver = std::ranges::find(overrides, "no") != overrides.end();
        EXPECT_EQ(passedOver, setting.overrides == SettingOverrides::countInPart) << name;
        EXPECT_EQ(asTheObjectIsMade, setting.reading == SettingReading::fromTheBeginning) << name;
    }
}

TEST(SettingTableTest, GivesDefaultsOfTheirKinds)
{
    for (const SettingDescription& setting : settingTable)
        EXPECT_TRUE(canBe(setting.kind, defaultEntry(setting))) << setting.name;
    EXPECT_EQ(static_cast<int>(defaultEntry(describe(SettingName::busyTimeout))), 30);
    EXPECT_FALSE(static_cast<bool>(defaultEntry(describe(SettingName::ownInstance))));
    EXPECT_STREQ(static_cast<QdxString>(defaultEntry(describe(SettingName::diagnostics))).data(), "");
}

TEST(SettingTableTest, TellsWhatIsNoInteger)
{
    for (const char* const value : {"0", "30", "-1", "+5", " 7 ", "2147483647"}) {
        EXPECT_TRUE(canBe(SettingKind::integer, RegEntry(value))) << value;
        EXPECT_TRUE(canBe(SettingKind::integer, ofKind(RegEntry::integerKind, value))) << value;
    }
    for (const char* const value :
         {"", " ", "enabled", "3 seconds", "true", "1.5", "0x10", "+-5", "2147483648"}) {
        EXPECT_FALSE(canBe(SettingKind::integer, RegEntry(value))) << value;
        EXPECT_FALSE(canBe(SettingKind::integer, ofKind(RegEntry::integerKind, value))) << value;
    }
    EXPECT_TRUE(canBe(SettingKind::integer, ofKind(RegEntry::booleanKind, "true")));
    EXPECT_TRUE(canBe(SettingKind::integer, RegEntry(50)));
}

TEST(SettingTableTest, TellsWhatIsNoBoolean)
{
    for (const char* const value : {"1", "true", "Yes", "ON", "0", "False", "no", "off"})
        EXPECT_TRUE(canBe(SettingKind::flag, RegEntry(value))) << value;
    for (const char* const value : {"", "enabled", "2", "-1"})
        EXPECT_FALSE(canBe(SettingKind::flag, RegEntry(value))) << value;
    EXPECT_TRUE(canBe(SettingKind::flag, RegEntry(2)));
    EXPECT_TRUE(canBe(SettingKind::flag, ofKind(RegEntry::booleanKind, "2")));
    EXPECT_FALSE(canBe(SettingKind::flag, ofKind(RegEntry::booleanKind, "enabled")));
}

TEST(SettingTableTest, TakesAnythingForAText)
{
    for (const int kind : {RegEntry::textKind, RegEntry::integerKind, RegEntry::booleanKind})
        EXPECT_TRUE(canBe(SettingKind::text, ofKind(kind, "")));
}
