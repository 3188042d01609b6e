#pragma once

#include <cstdint>

namespace standin::model {

/// An offset between UTF-16 code units of one story, 0-based.
using Position = std::int32_t;

/// What Word answers for a property that is not the same over a whole range.
inline constexpr std::int32_t mixedValue = 9999999;
/// Put into a toggle property: reverse it.
inline constexpr std::int32_t toggleValue = 9999998;

/// The characters that structure a story.
namespace mark {
inline constexpr char16_t picture = 1;
inline constexpr char16_t cell = 7; ///< ends a cell, and with ParagraphEnd::row a row
inline constexpr char16_t tab = 9;
inline constexpr char16_t line = 11;
inline constexpr char16_t page = 12; ///< page break, or with ParagraphEnd::section the end of a section
inline constexpr char16_t paragraph = 13;
inline constexpr char16_t column = 14;
inline constexpr char16_t fieldBegin = 19;
inline constexpr char16_t fieldSeparator = 20;
inline constexpr char16_t fieldEnd = 21;
} // namespace mark

// The enumerations below have the values of Word's own, so that a number from a client can be cast.

enum class BreakType : std::int32_t
{
    sectionNextPage = 2,
    sectionContinuous = 3,
    sectionEvenPage = 4,
    sectionOddPage = 5,
    line = 6,
    page = 7,
    column = 8
};

enum class CollapseDirection : std::int32_t
{
    end = 0,
    start = 1
};

enum class Alignment : std::int32_t
{
    left = 0,
    center = 1,
    right = 2,
    justify = 3
};

enum class Orientation : std::int32_t
{
    portrait = 0,
    landscape = 1
};

enum class SectionStart : std::int32_t
{
    continuous = 0,
    newColumn = 1,
    newPage = 2,
    evenPage = 3,
    oddPage = 4
};

enum class StyleType : std::int32_t
{
    paragraph = 1,
    character = 2,
    table = 3
};

enum class HeaderFooterIndex : std::int32_t
{
    primary = 1,
    firstPage = 2,
    evenPages = 3
};

enum class StoryType : std::int32_t
{
    mainText = 1,
    evenPagesHeader = 6,
    primaryHeader = 7,
    evenPagesFooter = 8,
    primaryFooter = 9,
    firstPageHeader = 10,
    firstPageFooter = 11
};

} // namespace standin::model
