#include "mirovelsection.h"

#include "MirovelSectionData.h"
#include "TextConversion.h"

#include <utility>

namespace {

constexpr std::size_t longestBookmarkName = 9;
constexpr int linksPerUndoClear = 101;

/// By how many characters one drawn link is taken to lengthen the text in front of the table of contents.
constexpr std::int32_t linkGrowth = 42;

} // namespace

void MirovelSection::insertHyperLink(const QdxString& text, const LinkDestination& destination)
{
    const bool inTable = isTableOpen();
    const Word::RangePtr& range = inTable ? data_->cellRange : data_->range;
    const _bstr_t wide = toWide(text);
    if (!inTable)
        data_->pos += static_cast<std::int32_t>(wide.length());
    const std::int32_t endMark = inTable ? 1 : 0;
    const std::int32_t start = range->GetEnd() - endMark;
    range->InsertAfter(wide);
    const std::int32_t end = range->GetEnd() - endMark;
    insertLink(destination, start, end, range);
}

void MirovelSection::insertLink(const LinkDestination& destination, std::int32_t start, std::int32_t end,
                                const Word::RangePtr& range)
{
    if (!destination.isEmpty())
        data_->links.add(HyperLink(destination, start, end, range));
}

bool MirovelSection::insertTag(const QdxString& name)
{
    MirovelSectionData& d = *data_;
    if (!d.document)
        return false;
    const Word::BookmarksPtr bookmarks = d.document->GetBookmarks();
    if (!bookmarks || name.length() > longestBookmarkName)
        return false;
    const Word::BookmarkPtr bookmark = bookmarks->Add(toWide(name));
    bookmark->PutStart(d.pos);
    endLastTag();
    d.lastTagBookmark = bookmark;
    return true;
}

void MirovelSection::resolve(const QdxString& name)
{
    data_->links.resolve(name);
}

std::vector<QdxString> MirovelSection::unresolvedLinks() const
{
    std::vector<QdxString> bookmarks;
    for (const HyperLink& link : std::as_const(data_->links))
        if (!link.destination.resolved)
            bookmarks.push_back(link.destination.bookmark);
    return bookmarks;
}

void MirovelSection::endLastTag()
{
    if (data_->lastTagBookmark)
        data_->lastTagBookmark->PutEnd(data_->pos - 1);
}

// Word makes a field of each link; the places of the links behind it are not moved.
void MirovelSection::drawHyperLinks()
{
    MirovelSectionData& d = *data_;
    d.document->UndoClear();
    int drawn = 0;
    for (auto link = d.links.begin(); link != d.links.end();) {
        if (!link->destination.resolved) {
            ++link;
            continue;
        }
        if (link->end < d.tocStartPos)
            d.tocPos += linkGrowth;
        drawAHyperLink(*link);
        link = d.links.erase(link);
        clearUndoAfterLink(drawn);
    }
}

void MirovelSection::drawAHyperLink(const HyperLink& link)
{
    const _variant_t address = toWide(link.destination.address);
    const _variant_t subAddress = toWide(link.destination.bookmark);
    link.range->PutStart(link.start);
    link.range->PutEnd(link.end);
    data_->document->GetHyperlinks()->Add(link.range, address, subAddress);
}

// Word keeps what every drawn link replaced.
void MirovelSection::clearUndoAfterLink(int& drawn)
{
    if (++drawn < linksPerUndoClear)
        return;
    data_->document->UndoClear();
    drawn = 0;
}
