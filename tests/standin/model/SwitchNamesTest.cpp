#include "SwitchNames.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace standin::model {
namespace {

TEST(SwitchNamesTest, SwitchesAreSetByName)
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

TEST(SwitchNamesTest, UnknownOnesAreRefused)
{
    Switches switches;
    for (const char* text : {"none=1", "deleteAnswersOne", "deleteAnswersOne=2", "deleteAnswersOne=1,,",
                             "insertFileLastParagraph=1"})
        EXPECT_THROW(readSwitches(switches, text), std::invalid_argument) << text;
}

} // namespace
} // namespace standin::model
