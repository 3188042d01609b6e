#include "SwitchTable.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <stdexcept>
#include <string>

namespace standin::model {
namespace {

TEST(SwitchTableTest, SwitchesAreSetByName)
{
    Switches switches;
    readSwitches(switches, "");
    EXPECT_TRUE(switches.deleteAnswersOne);
    readSwitches(switches, "deleteAnswersOne=0,insertFileLastParagraph=surplus,insertFileTakesRtf=0");
    EXPECT_FALSE(switches.deleteAnswersOne);
    EXPECT_FALSE(switches.insertFileTakesRtf);
    EXPECT_EQ(switches.insertFileLastParagraph, LastParagraph::surplus);
    EXPECT_TRUE(switches.oleObjectIsField);
    readSwitches(switches, "insertFileLastParagraph=dropped,deleteAnswersOne=1");
    EXPECT_TRUE(switches.deleteAnswersOne);
    EXPECT_EQ(switches.insertFileLastParagraph, LastParagraph::dropped);
}

TEST(SwitchTableTest, UnknownOnesAreRefused)
{
    Switches switches;
    for (const char* text : {"none=1", "deleteAnswersOne", "deleteAnswersOne=2", "deleteAnswersOne=1,,",
                             "insertFileLastParagraph=1"})
        EXPECT_THROW(readSwitches(switches, text), std::invalid_argument) << text;
}

TEST(SwitchTableTest, EachSwitchTakesEachOfItsValuesAndIsItsDefaultFirst)
{
    for (const SwitchEntry& entry : switchTable()) {
        EXPECT_EQ(entry.get(Switches()), 0U) << entry.name;
        for (std::size_t value = entry.values.size(); value-- > 0;) {
            Switches switches;
            setSwitch(switches, entry.name, entry.values[value]);
            EXPECT_EQ(entry.get(switches), value) << entry.name;
            const std::string others = std::string(entry.name) + "=" + std::string(entry.values[value]);
            EXPECT_EQ(namedSwitches(switches), value == 0 ? "" : others);
        }
    }
}

TEST(SwitchTableTest, AllStandOnThePageWithTheirValuesAndNoOthers)
{
    std::ifstream file(MIROVEL_WORD_READINGS, std::ios::binary);
    const std::string page{std::istreambuf_iterator<char>(file), {}};
    std::size_t rows = 0;
    for (std::size_t at = page.find("\n| `"); at != std::string::npos; at = page.find("\n| `", at + 1))
        ++rows;
    EXPECT_EQ(rows, switchTable().size());
    for (const SwitchEntry& entry : switchTable()) {
        std::string row = "\n| `" + std::string(entry.name) + "` | ";
        for (const std::string_view value : entry.values)
            row += std::string(value) + (value == entry.values.back() ? " | " : ", ");
        EXPECT_NE(page.find(row), std::string::npos) << "lacks" << row;
    }
}

TEST(SwitchTableTest, FlagsAreTrueAndFalseAsWell)
{
    Switches switches;
    setSwitch(switches, "deleteAnswersOne", "false");
    EXPECT_FALSE(switches.deleteAnswersOne);
    setSwitch(switches, "deleteAnswersOne", "true");
    EXPECT_TRUE(switches.deleteAnswersOne);
    EXPECT_THROW(setSwitch(switches, "insertFileLastParagraph", "true"), std::invalid_argument);
}

} // namespace
} // namespace standin::model
