#include "TextConversion.h"

#include <comdef.h>
#include <gtest/gtest.h>
#include <string>

// The texts outside ASCII are those of code page 1252, which the tests' prefixes have.

TEST(TextConversionTest, NarrowsText)
{
    EXPECT_STREQ(toNarrow(L"abc").data(), "abc");
    EXPECT_TRUE(toNarrow(L"").isEmpty());
    EXPECT_TRUE(toNarrow(static_cast<const wchar_t*>(nullptr)).isEmpty());
    EXPECT_STREQ(toNarrow(L"\u00e4\u20ac").data(), "\xe4\x80");
}

TEST(TextConversionTest, NarrowsABstrUpToItsFirstNul)
{
    const _bstr_t text(SysAllocStringLen(L"ab\0cd", 5), false);
    EXPECT_STREQ(toNarrow(static_cast<const wchar_t*>(text)).data(), "ab");
    EXPECT_EQ(toNarrow(static_cast<const wchar_t*>(text)).length(), 2u);
    EXPECT_TRUE(toNarrow(BSTR{}).isEmpty());
}

TEST(TextConversionTest, WhatTheCodePageLacksBecomesAQuestionMark)
{
    EXPECT_STREQ(toNarrow(L"a\u65e5b").data(), "a?b");
    // No look-alikes: the full-width A stays no A.
    EXPECT_STREQ(toNarrow(L"\uff21").data(), "?");
    EXPECT_STREQ(toNarrow(L"\u0141").data(), "?");
}

TEST(TextConversionTest, UnpairedSurrogatesBecomeQuestionMarks)
{
    const wchar_t text[] = {L'a', 0xd800, L'b', 0xdc00, 0};
    EXPECT_STREQ(toNarrow(text).data(), "a?b?");
}

TEST(TextConversionTest, LongTextsSurviveBothWays)
{
    for (const std::size_t length : {511u, 512u, 513u, 5000u, 1000000u}) {
        const std::wstring wide(length, L'\u00e4');
        const QdxString narrow = toNarrow(wide.c_str());
        EXPECT_TRUE(narrow == QdxString(std::string(length, '\xe4').c_str())) << length;
        EXPECT_TRUE(std::wstring(toWide(narrow)) == wide) << length;
    }
}

TEST(TextConversionTest, WidensText)
{
    EXPECT_STREQ(toWide("abc").GetBSTR(), L"abc");
    EXPECT_STREQ(toWide("\xe4\x80").GetBSTR(), L"\u00e4\u20ac");
    EXPECT_EQ(toWide("\xe4\x80").length(), 2u);
    ASSERT_NE(toWide(QdxString()).GetBSTR(), nullptr);
    EXPECT_EQ(toWide(QdxString()).length(), 0u);
    EXPECT_STREQ(toWide(QdxString("ab\0cd", 5)).GetBSTR(), L"ab");
    EXPECT_EQ(toWide(QdxString("ab\0cd", 5)).length(), 2u);
}

TEST(TextConversionTest, ComutilConvertsNarrowText)
{
    const _bstr_t text("a\xe4");
    EXPECT_STREQ(static_cast<const wchar_t*>(text), L"a\u00e4");
    EXPECT_STREQ(static_cast<const char*>(text), "a\xe4");
    EXPECT_EQ(_com_util::ConvertStringToBSTR(nullptr), nullptr);
    EXPECT_EQ(_com_util::ConvertBSTRToString(nullptr), nullptr);
}

TEST(TextConversionTest, MakesUtf8)
{
    EXPECT_EQ(toUtf8(L""), "");
    EXPECT_EQ(toUtf8(L"a\x00E9\x20AC\xD83D\xDE00"), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(toUtf8(L"\xD83D"), "\xEF\xBF\xBD") << "half a surrogate pair";
    EXPECT_EQ(toUtf8(QdxString("a\xe4\x80")), "a\xC3\xA4\xE2\x82\xAC");
}

TEST(TextConversionTest, ReadsUtf8)
{
    EXPECT_EQ(fromUtf8(""), L"");
    EXPECT_EQ(fromUtf8("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"), L"a\x00E9\x20AC\xD83D\xDE00");
    EXPECT_EQ(fromUtf8("\x80"), L"\xFFFD");
}
