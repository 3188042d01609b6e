#include <TranscriptValue.h>

#include <gtest/gtest.h>

namespace {
class NoNames final : public standin::ObjectNames
{
public:
    std::string nameOf(IUnknown* object) override { return object ? "object" : "null"; }
};

std::string shown(const standin::TranscriptValue& value)
{
    NoNames names;
    std::string line;
    value.appendTo(line, names);
    return line;
}

std::string shown(const _variant_t& value)
{
    return shown(standin::TranscriptValue(static_cast<const VARIANT*>(&value)));
}

TEST(TranscriptValue, NumbersShowTheirKind)
{
    EXPECT_EQ(shown(standin::TranscriptValue(5L)), "5");
    EXPECT_EQ(shown(standin::TranscriptValue(short{5})), "5s");
    EXPECT_EQ(shown(standin::TranscriptValue(130.0f)), "130f");
    EXPECT_EQ(shown(standin::TranscriptValue(0.5f)), "0.5f");
    EXPECT_EQ(shown(standin::TranscriptValue(true)), "true");
}

TEST(TranscriptValue, VariantsShowTheirKind)
{
    EXPECT_EQ(shown(_variant_t(-2L)), "-2");
    EXPECT_EQ(shown(_variant_t(short{7})), "7s");
    EXPECT_EQ(shown(_variant_t(1.25f)), "1.25f");
    EXPECT_EQ(shown(_variant_t(1.25)), "1.25f");
    EXPECT_EQ(shown(_variant_t(true)), "true");
    EXPECT_EQ(shown(_variant_t(false)), "false");
    EXPECT_EQ(shown(_variant_t(DISP_E_PARAMNOTFOUND, VT_ERROR)), "missing");
    EXPECT_EQ(shown(_variant_t(E_FAIL, VT_ERROR)), "vt10");
    EXPECT_EQ(shown(_variant_t()), "empty");
    EXPECT_EQ(shown(_variant_t(L"abc")), "\"abc\"");
    EXPECT_EQ(shown(_variant_t(5)), "vt22");
    EXPECT_EQ(shown(_variant_t(static_cast<IDispatch*>(nullptr))), "null");
}

TEST(TranscriptValue, ReferencesShowWhatTheyReferTo)
{
    long number = 12;
    _variant_t inner(L"text");
    VARIANT reference{};
    reference.vt = VT_I4 | VT_BYREF;
    reference.plVal = &number;
    EXPECT_EQ(shown(standin::TranscriptValue(static_cast<const VARIANT*>(&reference))), "12");
    reference.vt = VT_VARIANT | VT_BYREF;
    reference.pvarVal = &inner;
    EXPECT_EQ(shown(standin::TranscriptValue(static_cast<const VARIANT*>(&reference))), "\"text\"");
}

TEST(TranscriptValue, TextIsQuoted)
{
    const _bstr_t text(L"a\\b\"c\nd\re\tf\x0B\xE9\x20AC");
    EXPECT_EQ(shown(standin::TranscriptValue(static_cast<wchar_t*>(text))),
              "\"a\\\\b\\\"c\\nd\\re\\tf\\u000b\\u00e9\\u20ac\"");
    EXPECT_EQ(shown(standin::TranscriptValue(BSTR{nullptr})), "\"\"");
}
} // namespace
