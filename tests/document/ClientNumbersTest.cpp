#include "ClientNumbers.h"

#include <gtest/gtest.h>

namespace {

using namespace clientNumbers;

TEST(ClientNumbersTest, AlignmentsAreWordsFromOneOnAndLeftWithout)
{
    EXPECT_EQ(wordAlignment(0), Word::wdAlignParagraphLeft);
    for (int number = 1; number <= 4; ++number) {
        EXPECT_TRUE(isAlignment(number)) << number;
        EXPECT_EQ(ofAlignment(wordAlignment(number)), number);
    }
    EXPECT_EQ(wordAlignment(2), Word::wdAlignParagraphCenter);
}

TEST(ClientNumbersTest, WhatIsNoAlignmentIsLeft)
{
    EXPECT_TRUE(isAlignment(0)) << "said by clients that want none";
    for (const int number : {-1, 5}) {
        EXPECT_FALSE(isAlignment(number)) << number;
        EXPECT_EQ(wordAlignment(number), Word::wdAlignParagraphLeft) << number;
    }
}

TEST(ClientNumbersTest, FieldsAreThoseThatClientsKnow)
{
    EXPECT_EQ(wordField(1), Word::wdFieldDate);
    EXPECT_EQ(wordField(2), Word::wdFieldTime);
    EXPECT_EQ(wordField(3), Word::wdFieldFileName);
    EXPECT_EQ(wordField(4), Word::wdFieldPage);
    EXPECT_EQ(wordField(0), std::nullopt);
    EXPECT_EQ(wordField(5), std::nullopt);
}

} // namespace
