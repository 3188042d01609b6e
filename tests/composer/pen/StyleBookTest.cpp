#include "StyleBook.h"

#include "PenTest.h"

#include <memory>

namespace compose {
namespace {

class StyleBookTest : public PenTest
{
protected:
    void TearDown() override
    {
        styles.reset();
        PenTest::TearDown();
    }
    Font fontOf(const std::u16string& style)
    {
        Font font;
        for (const FontProperty property :
             {FontProperty::name, FontProperty::size, FontProperty::bold, FontProperty::italic,
              FontProperty::underline, FontProperty::strike})
            font = styles->fontOf(style, property);
        return font;
    }

    std::unique_ptr<StyleBook> styles = std::make_unique<StyleBook>(document);
};

TEST_F(StyleBookTest, NamesBuiltInStylesByNumber)
{
    EXPECT_EQ(StyleBook::argumentOf(u"Normal"), _variant_t(-1L));
    EXPECT_EQ(StyleBook::argumentOf(u"Heading 1"), _variant_t(-2L));
    EXPECT_EQ(StyleBook::argumentOf(u"Heading 9"), _variant_t(-10L));
    EXPECT_EQ(StyleBook::argumentOf(u"Header"), _variant_t(-32L));
    EXPECT_EQ(StyleBook::argumentOf(u"Footer"), _variant_t(-33L));
    for (const wchar_t* name : {L"Heading 0", L"Heading 10", L"heading 1", L"Plain Text", L"\x3b1"})
        EXPECT_EQ(StyleBook::argumentOf({name, name + wcslen(name)}), _variant_t(name));
}

TEST_F(StyleBookTest, AsksForEachStyleOnce)
{
    EXPECT_EQ(fontOf(u"Heading 1"), (Font{.name = u"Arial", .size = 16, .isBold = true}));
    EXPECT_EQ(styles->alignmentOf(u"Heading 1"), 0);
    EXPECT_TRUE(styles->holds(u"Heading 1"));
    EXPECT_FALSE(takeCalls().empty());
    fontOf(u"Heading 1");
    styles->alignmentOf(u"Heading 1");
    EXPECT_TRUE(styles->holds(u"Heading 1"));
    EXPECT_LINES(takeCalls(), Calls());
}

TEST_F(StyleBookTest, AsksForNoMoreThanIsWanted)
{
    EXPECT_TRUE(styles->holds(u"Heading 1"));
    EXPECT_LINES(takeCalls(), Calls());
    styles->fontOf(u"Heading 1", FontProperty::bold);
    EXPECT_LINES(takeCalls(), (Calls{"document.Styles -> document.Styles",
                                     "document.Styles.Item(-2) -> document.Styles(-2)",
                                     "document.Styles(-2).Font -> document.Styles(-2).Font",
                                     "document.Styles(-2).Font.Bold -> -1"}));
    styles->fontOf(u"Heading 1", FontProperty::size);
    EXPECT_LINES(takeCalls(), Calls{"document.Styles(-2).Font.Size -> 16f"});
}

TEST_F(StyleBookTest, KnowsWhichStylesThereAre)
{
    EXPECT_FALSE(styles->holds(u"no such style"));
    static_cast<void>(takeCalls());
    EXPECT_FALSE(styles->holds(u"no such style"));
    EXPECT_LINES(takeCalls(), Calls());
}

TEST_F(StyleBookTest, DoesNotTakeAFailureForAMissingStyle)
{
    word.failCall(2, E_FAIL);
    EXPECT_THROW(styles->holds(u"Title"), _com_error);
    EXPECT_TRUE(styles->holds(u"Title"));
}

TEST_F(StyleBookTest, CountsAFontThatFailsTwiceAsNoOnesFont)
{
    word.failCall(1, E_FAIL);
    EXPECT_THROW(styles->fontOf(u"Heading 1", FontProperty::bold), _com_error);
    word.failCall(1, E_FAIL);
    EXPECT_EQ(styles->fontOf(u"Heading 1", FontProperty::bold), Font());
    EXPECT_EQ(styles->fontOf(u"Heading 1", FontProperty::bold), Font());
}

TEST_F(StyleBookTest, CountsAnAlignmentThatFailsTwiceAsNone)
{
    word.failCall(1, E_FAIL);
    EXPECT_THROW(styles->alignmentOf(u"Heading 1"), _com_error);
    word.failCall(1, E_FAIL);
    EXPECT_EQ(styles->alignmentOf(u"Heading 1"), -1);
}

TEST_F(StyleBookTest, TellsTableStylesFromOthers)
{
    model().styles().add(u"Ruled", standin::model::StyleType::table);
    EXPECT_TRUE(styles->holdsTableStyle(u"Ruled"));
    EXPECT_LINES(takeCalls(), (Calls{"document.Styles -> document.Styles",
                                     R"(document.Styles.Item("Ruled") -> document.Styles("Ruled"))",
                                     R"(document.Styles("Ruled").Type -> 3)"}));
    for (const char16_t* const name : {u"Normal", u"Title", u"Hyperlink", u"no such style"})
        EXPECT_FALSE(styles->holdsTableStyle(name));
}

} // namespace
} // namespace compose
