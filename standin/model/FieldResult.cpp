#include "FieldResult.h"

#include "Bookmarks.h"
#include "Decimal.h"
#include "Document.h"
#include "PageNumbers.h"
#include "VisibleText.h"
#include "WordError.h"

namespace standin::model {

namespace {

constexpr std::u16string_view noBookmark = u"Error! Bookmark not defined.";

std::u16string timeText(const Document& document, const FieldCode& code, std::u16string_view usualPicture)
{
    const std::u16string picture = code.value(u'@').value_or(std::u16string());
    return formatTime(document.clock()(), picture.empty() ? usualPicture : std::u16string_view(picture));
}

std::u16string bookmarkText(const Document& document, const std::u16string& name)
{
    const BookmarkPtr bookmark = document.bookmarks().find(name);
    if (!bookmark)
        return std::u16string(noBookmark);
    const LiveRange& range = bookmark->range();
    return visibleText(range.story(), range.start(), range.end());
}

std::u16string bookmarkPage(const Document& document, const std::u16string& name)
{
    const BookmarkPtr bookmark = document.bookmarks().find(name);
    if (!bookmark || bookmark->range().storyPtr() != document.mainStory())
        return std::u16string(noBookmark);
    return decimal(pageNumberAt(document, bookmark->range().start()));
}

} // namespace

std::optional<std::u16string> fieldResult(const Story& story, Position begin, const FieldCode& code)
{
    const Document& document = story.document();
    const bool isMain = story.type() == StoryType::mainText;
    const std::u16string& keyword = code.keyword();
    if (keyword.empty() || keyword == u"TC" || keyword == u"XE" || keyword == u"TA" || keyword == u"RD" ||
        keyword == u"PRIVATE")
        return std::nullopt;
    if (keyword == u"DATE")
        return timeText(document, code, u"M/d/yyyy");
    if (keyword == u"TIME")
        return timeText(document, code, u"h:mm AM/PM");
    if (keyword == u"FILENAME")
        return code.has(u'p') ? document.fullName() : document.name();
    if (keyword == u"PAGE")
        return decimal(isMain ? pageNumberAt(document, begin) : 1);
    if (keyword == u"NUMPAGES")
        return decimal(pageCount(document));
    if (keyword == u"SECTION")
        return decimal(isMain ? document.sectionIndexAt(begin) : 1);
    if (keyword == u"QUOTE")
        return code.argument(0);
    if (keyword == u"REF")
        return bookmarkText(document, code.argument(0));
    if (keyword == u"PAGEREF")
        return bookmarkPage(document, code.argument(0));
    if (keyword == u"HYPERLINK") {
        const std::u16string address = code.argument(0);
        return address.empty() ? code.value(u'l').value_or(std::u16string()) : address;
    }
    if (code.type() == noFieldType) {
        // Word takes a word that is no keyword for the name of a bookmark.
        return bookmarkText(document, keyword);
    }
    throw NotSupported("the result of this kind of field");
}

} // namespace standin::model
