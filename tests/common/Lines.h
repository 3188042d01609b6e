#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// Lines of a transcript or a log.
using Lines = std::vector<std::string>;

/// How the one text becomes the other, in unified form with three lines around each difference; empty for
/// equal ones.
std::string unifiedDiff(const Lines& before, const Lines& after);

/// For EXPECT_PRED_FORMAT2.
testing::AssertionResult sameLines(const char* actualText, const char* expectedText, const Lines& actual,
                                   const Lines& expected);

/// Compares texts line by line; a failure shows their difference and nothing else.
#define EXPECT_LINES(actual, expected) EXPECT_PRED_FORMAT2(sameLines, actual, expected)
#define ASSERT_LINES(actual, expected) ASSERT_PRED_FORMAT2(sameLines, actual, expected)
