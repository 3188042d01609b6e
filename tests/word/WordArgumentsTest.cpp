#include "Hresult.h"

#include <WordArguments.h>

#include <gtest/gtest.h>

namespace {
TEST(WordArguments, MissingIsAnErrorThatSaysNotGiven)
{
    EXPECT_EQ(Word::missing.vt, VT_ERROR);
    EXPECT_THAT(Word::missing.scode, isHresult(DISP_E_PARAMNOTFOUND));
}

TEST(WordArguments, IntegersTravelAsFourByteIntegers)
{
    const _variant_t value = Word::integer(-1);
    EXPECT_EQ(value.vt, VT_I4);
    EXPECT_EQ(value.lVal, -1);
}

TEST(WordArguments, NoIntegerIsAnEmptyVariant)
{
    EXPECT_EQ(Word::integerOrEmpty(std::nullopt).vt, VT_EMPTY);
    EXPECT_EQ(Word::integerOrEmpty(7), Word::integer(7));
}

TEST(WordArguments, BooleansTravelAsMinusOneOrZero)
{
    EXPECT_EQ(Word::boolean(true).vt, VT_BOOL);
    EXPECT_EQ(Word::boolean(true).boolVal, VARIANT_TRUE);
    EXPECT_EQ(Word::boolean(false).boolVal, VARIANT_FALSE);
}

TEST(WordArguments, ANullTextIsAnEmptyOne)
{
    EXPECT_EQ(Word::text(nullptr).vt, VT_BSTR);
    EXPECT_EQ(SysStringLen(Word::text(nullptr).bstrVal), 0u);
    EXPECT_STREQ(Word::text(L"a b").bstrVal, L"a b");
}

TEST(WordArguments, AnObjectIsDispatchWithItsOwnReference)
{
    const _variant_t nothing = Word::object(nullptr);
    EXPECT_EQ(nothing.vt, VT_DISPATCH);
    EXPECT_EQ(nothing.pdispVal, nullptr);
}
} // namespace
