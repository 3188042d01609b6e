#include "mirovelsection.h"

#include "MirovelSectionData.h"
#include "TextConversion.h"

namespace {

/// By how many characters one drawn link is taken to lengthen the text in front of the table of contents.
constexpr std::int32_t linkGrowth = 42;

constexpr std::size_t longestBookmarkName = 9;
constexpr int linksPerUndoClear = 101;

} // namespace

void MirovelSection::insertHyperLink(const QdxString& text, const QdxString& target, bool resolved)
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
    if (!target.isEmpty())
        insertLink(target, start, end, range, resolved);
}

void MirovelSection::insertLink(const QdxString& target, std::int32_t start, std::int32_t end,
                                const Word::RangePtr& range, bool resolved)
{
    data_->links.add(HyperLink(target, start, end, range, resolved));
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
    if (d.lastTagBookmark)
        d.lastTagBookmark->PutEnd(d.pos - 1);
    d.lastTagBookmark = bookmark;
    return true;
}

void MirovelSection::resolve(const QdxString& name)
{
    data_->links.resolve(name);
}

void MirovelSection::drawHyperLinks()
{
    data_->document->UndoClear();
    int drawn = 0;
    for (auto link = data_->links.begin(); link != data_->links.end();) {
        if (!link->resolved) {
            ++link;
            continue;
        }
        drawAHyperLink(*link);
        link = data_->links.erase(link);
        if (++drawn < linksPerUndoClear)
            continue;
        data_->document->UndoClear();
        drawn = 0;
    }
}

void MirovelSection::drawAHyperLink(const HyperLink& link)
{
    const _variant_t address = toWide(link.address);
    const _variant_t subAddress = toWide(link.subAddress);
    link.range->PutStart(link.start);
    link.range->PutEnd(link.end);
    if (link.end < data_->tocStartPos)
        data_->tocPos += linkGrowth;
    data_->document->GetHyperlinks()->Add(link.range, address, subAddress);
}
