#include "Profile.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace standin::model {
namespace {

TEST(ProfileTest, SetsSwitchesByTextFlagAndNumber)
{
    Switches switches;
    readProfile(switches, R"({"word": "16.0", "switches": {"deleteAnswersOne": false, "oleObjectIsField": 0,
        "mixedStyleReadsFirst": "0", "insertFileLastParagraph": "surplus", "closeDropsChanges": true},
        "answers": [{"switches": 1}]})");
    EXPECT_FALSE(switches.deleteAnswersOne);
    EXPECT_FALSE(switches.oleObjectIsField);
    EXPECT_FALSE(switches.mixedStyleReadsFirst);
    EXPECT_TRUE(switches.closeDropsChanges);
    EXPECT_EQ(switches.insertFileLastParagraph, LastParagraph::surplus);
    EXPECT_TRUE(switches.insertFileTakesRtf);
}

TEST(ProfileTest, IsRefusedAsAWhole)
{
    for (const char* json :
         {"", "[]", "{}", R"({"switches": []})", R"({"switches": 1})", "nonsense", "\xff",
          R"({"switches": {)", R"({"switches": {"none": true}})", R"({"switches": {"deleteAnswersOne": 2}})",
          R"({"switches": {"deleteAnswersOne": null}})", R"({"switches": {"insertFileRange": {}}})",
          R"({"switches": {"deleteAnswersOne": false, "insertFileRange": true}})"}) {
        Switches switches;
        EXPECT_THROW(readProfile(switches, json), std::invalid_argument) << json;
        EXPECT_TRUE(switches.deleteAnswersOne) << json;
    }
}

} // namespace
} // namespace standin::model
