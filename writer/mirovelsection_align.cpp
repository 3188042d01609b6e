#include "mirovelsection.h"

#include "MirovelSectionData.h"
#include "WordConstants.h"

#include <iterator>

namespace {

Word::WdParagraphAlignment wordAlignment(std::int16_t align)
{
    switch (align) {
    case 2:
        return Word::wdAlignParagraphCenter;
    case 3:
        return Word::wdAlignParagraphRight;
    case 4:
        return Word::wdAlignParagraphJustify;
    default:
        return Word::wdAlignParagraphLeft;
    }
}

/// An unknown number gives an empty variant: Word then inserts its default field.
_variant_t fieldType(std::int16_t kind)
{
    switch (kind) {
    case 1:
        return Word::wdFieldDate;
    case 2:
        return Word::wdFieldTime;
    case 3:
        return Word::wdFieldFileName;
    case 4:
        return Word::wdFieldPage;
    default:
        return {};
    }
}

} // namespace

void MirovelSection::setTextAlign(std::int16_t align)
{
    if (align == data_->alignment)
        return;
    if (data_->pos != data_->lastEndlPos && !isTableOpen())
        insertEndl();

    SaveAlign run;
    run.range = isTableOpen() ? data_->cellRange : data_->range;
    run.start = data_->placement->alignmentStart(*data_);
    run.align = align;
    data_->alignRuns.push_back(run);
    data_->alignment = align;
}

void MirovelSection::applyAlign()
{
    for (auto run = data_->alignRuns.begin(); run != data_->alignRuns.end(); ++run) {
        const auto next = std::next(run);
        std::int32_t end = 0;
        if (next != data_->alignRuns.end())
            end = next->start;
        else if (run->range == data_->range)
            end = data_->pos;
        else
            end = data_->placement->lastAlignmentEnd(*data_);
        if (!run->isSet || (run->start == end && !data_->placement->appliesEmptyRuns()))
            continue;
        run->range->PutStart(run->start);
        run->range->PutEnd(end);
        run->range->GetParagraphFormat()->PutAlignment(wordAlignment(run->align));
    }
    data_->alignRuns.clear();
    data_->alignment = 0;
}

void MirovelSection::insertField(std::int16_t kind)
{
    if (isTableOpen())
        data_->placement->insertFieldInCell(*this, fieldType(kind));
    else
        addFieldBehind(fieldType(kind), Word::missing);
}

void MirovelSection::addFieldBehind(const _variant_t& type, const _variant_t& text)
{
    const Word::RangePtr& range = data_->range;
    range->Collapse(Word::wdCollapseEnd);
    onPlaceholder([&] {
        const Word::RangePtr place = range->GetDuplicate();
        place->PutEnd(data_->pos - 1);
        range->GetFields()->Add(place, type, text);
        data_->pos = range->GetEnd();
    });
    deleteLastChar();
}
