#pragma once

#include "WordConstants.h"

#include <optional>

/// What the numbers stand for that clients have for alignments and fields (docs/interface.md).
namespace clientNumbers {

/// 0 and 1 left, 2 centred, 3 right, 4 justified.
constexpr bool isAlignment(int number)
{
    return number >= 0 && number <= 4;
}

/// Word's alignment; left for a number that is none.
constexpr int wordAlignment(int number)
{
    switch (number) {
    case 2:
        return Word::wdAlignParagraphCenter;
    case 3:
        return Word::wdAlignParagraphRight;
    case 4:
        return Word::wdAlignParagraphJustify;
    default:
        return Word::wdAlignParagraphLeft;
    }
}

/// The number of one of Word's alignments.
constexpr int ofAlignment(int wordAlignment)
{
    return wordAlignment + 1;
}

/// Word's type of the field: date, time, file name and page are 1 to 4; nothing for a number that is none.
constexpr std::optional<long> wordField(int number)
{
    switch (number) {
    case 1:
        return Word::wdFieldDate;
    case 2:
        return Word::wdFieldTime;
    case 3:
        return Word::wdFieldFileName;
    case 4:
        return Word::wdFieldPage;
    default:
        return {};
    }
}

} // namespace clientNumbers
