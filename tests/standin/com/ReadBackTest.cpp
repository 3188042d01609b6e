// What a client reads a finished document by: bookmarks of ranges, places of sections, styles of paragraphs.
#include "DocumentFixture.h"

#include <WordConstants.h>

namespace {

using standin_test::DocumentFixture;

std::wstring nameOf(const Word::BookmarksPtr& bookmarks, long index)
{
    return static_cast<const wchar_t*>(bookmarks->Item(Word::integer(index))->GetName());
}

class ReadBack : public DocumentFixture
{
protected:
    ReadBack() { document->GetContent()->InsertAfter(L"abcdefgh"); }

    void mark(const wchar_t* name, long start, long end) const
    {
        document->GetBookmarks()->Add(name, Word::object(range(start, end)));
    }
};

TEST_F(ReadBack, ARangeHasTheBookmarksThatTouchItByPosition)
{
    mark(L"late", 4, 5);
    mark(L"middle", 3, 4);
    mark(L"early", 0, 1);
    mark(L"zero", 1, 2);
    const Word::BookmarksPtr bookmarks = range(2, 4)->GetBookmarks();
    ASSERT_EQ(bookmarks->GetCount(), 3);
    EXPECT_EQ(nameOf(bookmarks, 1), L"zero");
    EXPECT_EQ(nameOf(bookmarks, 2), L"middle");
    EXPECT_EQ(nameOf(bookmarks, 3), L"late");
    EXPECT_THROW(bookmarks->Item(Word::text(L"early")), _com_error);
}

TEST_F(ReadBack, AHeaderHasItsOwnBookmarks)
{
    mark(L"body", 0, 1);
    const Word::RangePtr header = document->GetSections()->Item(1)->GetHeaders()->Item(1)->GetRange();
    EXPECT_EQ(header->GetBookmarks()->GetCount(), 0);
    document->GetBookmarks()->Add(L"header", Word::object(header));
    EXPECT_EQ(header->GetBookmarks()->GetCount(), 1);
    EXPECT_EQ(document->GetContent()->GetBookmarks()->GetCount(), 1);
}

TEST_F(ReadBack, ASectionReachesPastItsMark)
{
    constexpr long nextPage = 2;
    range(3, 3)->InsertBreak(Word::integer(nextPage));
    const Word::RangePtr first = document->GetSections()->Item(1)->GetRange();
    const Word::RangePtr second = document->GetSections()->Item(2)->GetRange();
    EXPECT_EQ(first->GetStart(), 0);
    EXPECT_EQ(first->GetEnd(), 4);
    EXPECT_EQ(second->GetStart(), 4);
    EXPECT_EQ(second->GetEnd(), document->GetContent()->GetEnd());
}

TEST_F(ReadBack, AParagraphHasItsStyleBelowACharacterStyle)
{
    constexpr long headingOne = -2;
    constexpr long hyperlink = -86;
    range(0, 1)->PutStyle(Word::integer(headingOne));
    range(2, 4)->PutStyle(Word::integer(hyperlink));
    const Word::StylePtr style(static_cast<IDispatch*>(range(2, 3)->GetParagraphFormat()->GetStyle()));
    EXPECT_EQ(style->GetNameLocal(), _bstr_t(L"Heading 1"));
}

} // namespace
