#include "mirovelsection.h"

#include "MirovelSectionData.h"
#include "StyleNumber.h"
#include "TextConversion.h"
#include "TocFieldText.h"
#include "WordConstants.h"

#include <algorithm>
#include <windows.h>

namespace {

constexpr std::int16_t centred = 2;
constexpr std::int16_t deepestLevel = 9;

bool isLeadByte(unsigned char byte)
{
    return IsDBCSLeadByte(byte) != 0;
}

} // namespace

void MirovelSection::insertTOC(std::int16_t level)
{
    if (isTableOpen())
        return ignored(Silence::insideTable);
    const QdxString style = data_->styleName;
    setStyle("Normal", true);
    const auto align = static_cast<std::int16_t>(data_->alignment);
    setTextAlign(centred);
    insertText(L"Table of Contents");
    insertEndl();
    insertEndl();
    setTextAlign(align);
    data_->tocPos = data_->pos;
    data_->tocStartPos = data_->tocPos;
    data_->tocLevel = level;
    insertEndl();
    setStyle(style, true);
}

void MirovelSection::startTOCEntry()
{
    if (data_->tocPos == 0)
        return ignored(Silence::noContents);
    data_->collectingTocEntry = true;
    data_->tocText = "";
}

void MirovelSection::endTOCEntry()
{
    if (data_->tocPos == 0)
        return ignored(Silence::noContents);
    data_->collectingTocEntry = false;
    if (!data_->document->GetTablesOfContents() || data_->tocText.isEmpty())
        return;
    writeEntry();
}

void MirovelSection::writeEntry()
{
    MirovelSectionData& d = *data_;
    const Word::RangePtr& range = d.range;
    range->Collapse(Word::wdCollapseEnd);
    range->InsertAfter(L"X");
    ++d.pos;
    const QdxString text = tocFieldText(d.tocText, styleNumber("Heading ", d.styleName), isLeadByte);
    const Word::RangePtr place = range->GetDuplicate();
    place->PutEnd(d.pos);
    range->GetFields()->Add(place, Word::wdFieldTOCEntry, toWide(text));
    d.pos = range->GetEnd();
    deleteLastChar();
}

void MirovelSection::drawTOC()
{
    MirovelSectionData& d = *data_;
    if (d.tocPos == 0)
        return;
    const Word::TablesOfContentsPtr tables = d.document->GetTablesOfContents();
    const Word::RangePtr place = d.range->GetDuplicate();
    place->PutEnd(d.tocPos);
    place->PutStart(d.tocPos);

    const bool useHeadingStyles = d.tocLevel != 0;
    const std::int16_t upperLevel = 1;
    const std::int16_t lowerLevel = std::min(d.tocLevel, deepestLevel);
    const bool useFields = true;
    const bool rightAlignPageNumbers = true;
    const bool includePageNumbers = true;
    const wchar_t* const addedStyles = L"";
    const Word::TableOfContentsPtr table =
        tables->Add(place, useHeadingStyles, upperLevel, lowerLevel, useFields, Word::missing,
                    rightAlignPageNumbers, includePageNumbers, addedStyles);
    table->PutTabLeader(Word::wdTabLeaderDots);
    d.tocPos = 0;
}
