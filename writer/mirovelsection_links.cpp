#include "mirovelsection.h"

#include "MirovelSectionData.h"
#include "TextConversion.h"

#include <algorithm>

namespace {

constexpr std::size_t longestBookmarkName = 9;
constexpr int linksPerUndoClear = 101;

} // namespace

void MirovelSection::insertHyperLink(const QdxString& text, const LinkDestination& destination)
{
    const bool inTable = isTableOpen();
    const Word::RangePtr& range = inTable ? data_->cellRange : data_->range;
    const Placement& placement = *data_->placement;
    const _bstr_t wide = toWide(text, placement.narrowForm());
    if (!inTable)
        placement.writingLinkText(*data_, {wide, wide.length()});
    const std::int32_t endMark = inTable ? 1 : 0;
    const std::int32_t start = range->GetEnd() - endMark;
    range->InsertAfter(wide);
    const std::int32_t end = range->GetEnd() - endMark;
    placement.linkTextWritten(*data_, wide, end);
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
    d.placement->placeTag(*this, bookmarks, name);
    return true;
}

void MirovelSection::resolve(const QdxString& name)
{
    data_->links.resolve(name);
}

bool MirovelSection::awaitsTags() const
{
    return std::ranges::any_of(data_->links,
                               [](const HyperLink& link) { return !link.destination.resolved; });
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
