#include "Bookmarks.h"

#include "ModelFixture.h"
#include "TextToTable.h"

namespace standin::model {
namespace {

class BookmarksTest : public ModelTest
{
protected:
    Bookmarks& bookmarks() { return document->bookmarks(); }
    BookmarkPtr add(std::u16string_view name, Position start, Position end)
    {
        return bookmarks().add(name, range(start, end));
    }
};

TEST_F(BookmarksTest, AreFoundByNameWithoutCase)
{
    write(u"abc");
    const BookmarkPtr bookmark = add(u"Place", 1, 2);
    EXPECT_EQ(bookmarks().find(u"pLACE"), bookmark);
    EXPECT_EQ(bookmarks().find(u"other"), nullptr);
    EXPECT_EQ(bookmark->name(), u"Place");
    bookmarks().remove(u"place");
    EXPECT_EQ(bookmarks().find(u"Place"), nullptr);
    EXPECT_EQ(errorOf([&] { bookmark->range(); }), 5825);
}

TEST_F(BookmarksTest, NamesAreLettersDigitsAndUnderscores)
{
    for (const char16_t* good : {u"a", u"_x", u"b1", u"\u00c4_9"})
        EXPECT_TRUE(Bookmarks::isName(good));
    EXPECT_TRUE(Bookmarks::isName(std::u16string(40, u'a')));
    EXPECT_FALSE(Bookmarks::isName(std::u16string(41, u'a')));
    for (const char16_t* bad : {u"", u"1a", u"a b", u"a-b", u"a.b", u"a\u00d7"})
        EXPECT_EQ(errorOf([&] { add(bad, 0, 0); }), 5828);
    EXPECT_TRUE(add(u"_x", 0, 0)->isHidden());
}

TEST_F(BookmarksTest, AddingANameAgainMovesTheBookmark)
{
    write(u"abcdef");
    const BookmarkPtr first = add(u"x", 0, 1);
    EXPECT_EQ(add(u"X", 2, 4), first);
    expectAt(first->range(), 2, 4);
    EXPECT_EQ(bookmarks().all().size(), 1u);
}

TEST_F(BookmarksTest, FollowEdits)
{
    write(u"abcdef");
    const BookmarkPtr bookmark = add(u"x", 2, 4);
    range(0, 0).insertBefore(u"12");
    expectAt(bookmark->range(), 4, 6);
    LiveRange over = bookmark->range();
    over.insertAfter(u"!");
    expectAt(bookmark->range(), 4, 6);
    over.insertBefore(u"?");
    expectAt(bookmark->range(), 4, 7);
    range(5, 6).remove();
    expectAt(bookmark->range(), 4, 6);
}

TEST_F(BookmarksTest, VanishWithAllTheirText)
{
    write(u"abcdef");
    const BookmarkPtr bookmark = add(u"x", 2, 4);
    const BookmarkPtr empty = add(u"e", 3, 3);
    range(1, 4).remove();
    EXPECT_FALSE(bookmark->exists());
    EXPECT_TRUE(empty->exists());
    range(1, 1).insertAfter(u"new");
    EXPECT_EQ(bookmarks().find(u"x"), nullptr);
    EXPECT_EQ(bookmarks().all().size(), 1u);
    expectAt(empty->range(), 1, 1);
    EXPECT_NE(add(u"x", 0, 1), bookmark);
    EXPECT_FALSE(bookmark->exists());
}

TEST_F(BookmarksTest, BordersDragEachOther)
{
    write(u"abcdef");
    const BookmarkPtr bookmark = add(u"x", 0, 0);
    bookmark->setStart(4);
    expectAt(bookmark->range(), 4, 4);
    EXPECT_TRUE(bookmark->exists());
    bookmark->setEnd(2);
    expectAt(bookmark->range(), 2, 2);
    bookmark->setEnd(5);
    expectAt(bookmark->range(), 2, 5);
    EXPECT_EQ(errorOf([&] { bookmark->setStart(7); }), 4608);
}

TEST_F(BookmarksTest, AreOrderedByNameAndInARangeByPlace)
{
    write(u"abcdef");
    add(u"b", 0, 2);
    add(u"a", 3, 4);
    add(u"c", 5, 6);
    ASSERT_EQ(bookmarks().all().size(), 3u);
    EXPECT_EQ(bookmarks().all()[0]->name(), u"a");
    const auto touching = bookmarks().touching(range(0, 4));
    ASSERT_EQ(touching.size(), 2u);
    EXPECT_EQ(touching[0]->name(), u"b");
    EXPECT_EQ(touching[1]->name(), u"a");
}

TEST_F(BookmarksTest, GoWithTheirDocument)
{
    const BookmarkPtr bookmark = add(u"x", 0, 0);
    document->close();
    EXPECT_FALSE(bookmark->exists());
}

TEST_F(BookmarksTest, InFrontOfATableHaveAPlaceByTheReading)
{
    const auto placeOf = [this](BookmarkAtTable reading, Position start, Position end) {
        readAs({.bookmarkInFrontOfTable = reading});
        write(u"x\rab\r");
        LiveRange text = range(2, 5);
        convertToTable(text, {});
        const LiveRange place = bookmarkPlace(range(start, end));
        return std::pair(place.start(), place.end());
    };
    EXPECT_EQ(placeOf(BookmarkAtTable::stays, 2, 2), std::pair(2, 2));
    EXPECT_EQ(placeOf(BookmarkAtTable::firstCell, 2, 2), std::pair(2, 4));
    EXPECT_EQ(placeOf(BookmarkAtTable::behind, 2, 2), std::pair(6, 6));
    EXPECT_EQ(placeOf(BookmarkAtTable::behind, 2, 3), std::pair(2, 3));
    EXPECT_EQ(placeOf(BookmarkAtTable::behind, 3, 3), std::pair(3, 3));
    EXPECT_EQ(placeOf(BookmarkAtTable::behind, 1, 1), std::pair(1, 1));
}

TEST_F(BookmarksTest, AtAPlaceAreRemovedInsideOrAtItsEdgesToo)
{
    const auto leftOf = [this](bool atEdges, Position start, Position end) {
        readAs({});
        write(u"abcdef");
        add(u"around", 1, 5);
        add(u"at", 3, 3);
        add(u"behind", 3, 5);
        bookmarks().removeAt(range(start, end), atEdges);
        std::u16string names;
        for (const BookmarkPtr& each : bookmarks().all())
            names += each->name() + u' ';
        return names;
    };
    EXPECT_EQ(leftOf(false, 3, 3), u"at behind ");
    EXPECT_EQ(leftOf(true, 3, 3), u"");
    EXPECT_EQ(leftOf(true, 1, 1), u"at behind ");
    EXPECT_EQ(leftOf(false, 4, 5), u"at ");
    EXPECT_EQ(leftOf(false, 2, 4), u"");
}

} // namespace
} // namespace standin::model
