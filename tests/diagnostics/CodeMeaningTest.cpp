#include "CodeMeaning.h"

#include <gmock/gmock.h>

#include <cstdint>

namespace {

using diagnostics::CodeMeaning;
using diagnostics::meaningOf;

class CodeMeaningTest : public testing::TestWithParam<std::uint32_t>
{
};

TEST_P(CodeMeaningTest, SaysWhatItMeansAndWhatToDo)
{
    const CodeMeaning* const known = meaningOf(GetParam());
    ASSERT_NE(known, nullptr);
    EXPECT_EQ(known->code, GetParam());
    EXPECT_THAT(std::string(known->meaning), testing::EndsWith("."));
    EXPECT_THAT(std::string(known->remedy), testing::EndsWith("."));
}

INSTANTIATE_TEST_SUITE_P(CodesThatWeMeet, CodeMeaningTest,
                         testing::Values(0x800A1423, 0x800A1420, 0x800A1499, 0x800A1735, 0x800A1066,
                                         0x800A1200, 0x80040154, 0x80010108, 0x80010001, 0x8001010A,
                                         0x800706BA, 0x800706BE, 0x800A11FD, 0x80080005, 0x800401F3));

TEST(UnknownCodeTest, HasNoMeaning)
{
    EXPECT_EQ(meaningOf(0), nullptr);
    EXPECT_EQ(meaningOf(0x800A1234), nullptr);
}

} // namespace
