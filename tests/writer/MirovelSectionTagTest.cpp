#include "WriterFixture.h"

#include "Bookmarks.h"

namespace {

namespace model = standin::model;

class MirovelSectionTagTest : public WriterTest
{
protected:
    /// Where the bookmark stands, as "4-9".
    std::string place(const char16_t* name) const
    {
        const model::BookmarkPtr bookmark = model().bookmarks().find(name);
        if (!bookmark)
            return "(none)";
        return std::to_string(bookmark->range().start()) + "-" + std::to_string(bookmark->range().end());
    }
};

TEST_F(MirovelSectionTagTest, PlacesABookmarkAtTheInsertionPosition)
{
    writer().insertText(L"intro ");
    takeCalls();
    EXPECT_TRUE(writer().insertTag("b1"));
    EXPECT_LINES(takeCalls(),
                 (Calls{"document.Bookmarks -> document.Bookmarks",
                        R"(document.Bookmarks.Add("b1", missing) -> bookmark)", "bookmark.Start = 6"}));
    EXPECT_EQ(place(u"b1"), "6-6");
    EXPECT_LINES(finish(), join(styleRunApplied(0, 6, "-1", normalFont),
                                Calls{"bookmark.End = 5", "document.UndoClear()"}));
}

TEST_F(MirovelSectionTagTest, TheNextOneEndsTheOneBefore)
{
    writer().insertText(L"intro ");
    writer().insertTag("b1");
    writer().insertText(L"first ");
    takeCalls();
    writer().insertTag("b2");
    EXPECT_LINES(takeCalls(), (Calls{"document.Bookmarks -> document.Bookmarks",
                                     R"(document.Bookmarks.Add("b2", missing) -> bookmark2)",
                                     "bookmark2.Start = 12", "bookmark.End = 11"}));
    EXPECT_EQ(place(u"b1"), "6-11") << "one short of the text up to the next tag";
    EXPECT_EQ(place(u"b2"), "12-12");
}

TEST_F(MirovelSectionTagTest, TheLastOneEndsWithTheWriter)
{
    writer().insertTag("b1");
    writer().insertText(L"all of it");
    EXPECT_LINES(finish(), join(styleRunApplied(0, 9, "-1", normalFont),
                                Calls{"bookmark.End = 8", "document.UndoClear()"}));
    EXPECT_EQ(place(u"b1"), "0-8");
}

TEST_F(MirovelSectionTagTest, NamesHaveAtMostNineCharacters)
{
    EXPECT_TRUE(writer().insertTag("b23456789"));
    takeCalls();
    EXPECT_FALSE(writer().insertTag("b234567890"));
    EXPECT_LINES(takeCalls(), Calls{"document.Bookmarks -> document.Bookmarks"});
    EXPECT_EQ(place(u"b23456789"), "0-0");
    EXPECT_EQ(place(u"b234567890"), "(none)");
    writer().insertText(L"x");
}

TEST_F(MirovelSectionTagTest, AnEmptyOrBadNameIsRefusedByWord)
{
    for (const char* name : {"", "1b", "a b", "b-1"}) {
        EXPECT_THAT(comErrorOf([&] { writer().insertTag(name); }),
                    isHresult(static_cast<HRESULT>(0x800A16C4)))
            << name;
    }
    EXPECT_LINES(finish(), join(styleRunApplied(0, 0, "-1", normalFont), Calls{"document.UndoClear()"}))
        << "no bookmark is ended";
}

TEST_F(MirovelSectionTagTest, TheSameNameMovesTheBookmark)
{
    writer().insertText(L"abc");
    writer().insertTag("b1");
    writer().insertText(L"defgh");
    takeCalls();
    writer().insertTag("b1");
    EXPECT_LINES(takeCalls(), (Calls{"document.Bookmarks -> document.Bookmarks",
                                     R"(document.Bookmarks.Add("b1", missing) -> bookmark2)",
                                     "bookmark2.Start = 8", "bookmark.End = 7"}))
        << "both are one in Word, whose start follows its end";
    EXPECT_EQ(place(u"b1"), "7-7");
}

// The tag before ends one short of the position, which is in front of the text.
TEST_F(MirovelSectionTagTest, ASecondOneAtTheVeryStartFails)
{
    writer().insertTag("b1");
    takeCalls();
    EXPECT_THAT(comErrorOf([&] { writer().insertTag("b2"); }), isHresult(static_cast<HRESULT>(0x800A1200)));
    EXPECT_EQ(lastOf(takeCalls()), "bookmark.End = -1 !! 0x800a1200");
    EXPECT_EQ(place(u"b2"), "0-0") << "it is there, but not the last one";
    writer().insertText(L"text");
    finish();
    EXPECT_EQ(place(u"b1"), "0-3");
    EXPECT_EQ(place(u"b2"), "0-0");
}

TEST_F(MirovelSectionTagTest, OneAtTheVeryStartWithoutTextFailsTheEnd)
{
    writer().insertTag("b1");
    EXPECT_THAT(comErrorOf([&] { finish(); }), isHresult(static_cast<HRESULT>(0x800A1200)));
    EXPECT_LINES(takeCalls(),
                 join(styleRunApplied(0, 0, "-1", normalFont), Calls{"bookmark.End = -1 !! 0x800a1200"}))
        << "nothing behind it is done";
}

TEST_F(MirovelSectionTagTest, TwoInTheSamePlaceCross)
{
    writer().insertText(L"abc");
    writer().insertTag("b1");
    writer().insertTag("b2");
    EXPECT_EQ(place(u"b1"), "2-2") << "the start follows the end";
    EXPECT_EQ(place(u"b2"), "3-3");
}

TEST_F(MirovelSectionTagTest, InATableStandsBehindTheTable)
{
    writer().startTable();
    writer().addRow();
    writer().addCell();
    writer().insertText(L"cell");
    takeCalls();
    EXPECT_TRUE(writer().insertTag("b1"));
    EXPECT_EQ(lastOf(takeCalls()), "bookmark.Start = 3") << "the count where the table began, with the table";
    writer().endTable();
    EXPECT_EQ(place(u"b1"), "3-3");
    EXPECT_EQ(text(), u"cell\a\a ");
}

TEST_F(MirovelSectionTagTest, WithoutADocumentNoneIsPlaced)
{
    MirovelSectionProbe::setDocument(writer(), Word::_DocumentPtr());
    EXPECT_FALSE(writer().insertTag("b1"));
    EXPECT_LINES(takeCalls(), Calls{});
    MirovelSectionProbe::setDocument(writer(), document_);
    EXPECT_LINES(finish(), join(styleRunApplied(0, 0, "-1", normalFont), Calls{"document.UndoClear()"}))
        << "no bookmark is ended";
}

TEST_F(MirovelSectionTagTest, WithoutWordsBookmarksNoneIsPlaced)
{
    writer().insertText(L"abc");
    takeCalls();
    word_.failCall(1, S_FALSE);
    EXPECT_FALSE(writer().insertTag("b1"));
    EXPECT_LINES(takeCalls(), Calls{"document.Bookmarks"});
    EXPECT_LINES(finish(), join(styleRunApplied(0, 3, "-1", normalFont), Calls{"document.UndoClear()"}))
        << "no bookmark is ended";
}

// Fonts that a style run waits for come with it; here none does, so that each kind shows its place.
TEST_F(MirovelSectionTagTest, TheLastOneEndsBehindFontsAndAlignments)
{
    writer().setTextAlign(2);
    writer().insertText(L"ab");
    writer().applyStyle();
    writer().insertTag("b1");
    writer().setFont(heading9Font.data());
    writer().insertText(L"cd");
    EXPECT_LINES(finish(), join(rangeLaid(2, 4), fontWritten("body", heading9Font), rangeLaid(0, 4),
                                Calls{"body.ParagraphFormat -> body.ParagraphFormat",
                                      "body.ParagraphFormat.Alignment = 1", "bookmark.End = 3",
                                      "document.UndoClear()"}));
    EXPECT_EQ(place(u"b1"), "2-3");
}

TEST_F(MirovelSectionTagTest, AFailureAtEachCallKeepsTheLastOne)
{
    for (long call = 1; call <= 4; ++call) {
        SCOPED_TRACE(call);
        startOver();
        writer().insertText(L"abc");
        writer().insertTag("b1");
        writer().insertText(L"def");
        word_.failCall(call, E_FAIL);
        EXPECT_THAT(comErrorOf([&] { writer().insertTag("b2"); }), isHresult(E_FAIL));
        word_.clearFaults();
        EXPECT_TRUE(writer().insertTag("b3"));
        EXPECT_EQ(place(u"b1"), "3-5");
    }
}

} // namespace
