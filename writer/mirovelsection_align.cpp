#include "mirovelsection.h"

#include "ClientNumbers.h"
#include "MirovelSectionData.h"
#include "WordArguments.h"

#include <iterator>

void MirovelSection::setTextAlign(std::int16_t align)
{
    if (align == data_->alignment)
        return;
    if (data_->pos != data_->lastEndlPos && !isTableOpen())
        insertEndl();

    SaveAlign run;
    run.range = isTableOpen() ? data_->cellRange : data_->range;
    run.start = run.range->GetEnd();
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
            end = run->range->GetEnd();
        run->range->PutStart(run->start);
        run->range->PutEnd(end);
        run->range->GetParagraphFormat()->PutAlignment(clientNumbers::wordAlignment(run->align));
    }
    data_->alignRuns.clear();
    data_->alignment = 0;
}

void MirovelSection::insertField(std::int16_t kind)
{
    // An unknown number gives an empty variant: Word then inserts its default field.
    const _variant_t type = Word::integerOrEmpty(clientNumbers::wordField(kind));
    if (isTableOpen()) {
        insertFieldInCell(type);
        return;
    }
    const Word::RangePtr& range = data_->range;
    range->Collapse(Word::wdCollapseEnd);
    insertPlaceholder();
    const Word::RangePtr place = range->GetDuplicate();
    place->PutEnd(data_->pos - 1);
    range->GetFields()->Add(place, type);
    data_->pos = range->GetEnd();
    deleteLastChar();
}

// The placeholder stays in the cell; documents in use depend on that.
void MirovelSection::insertFieldInCell(const _variant_t& type)
{
    const Word::RangePtr& range = data_->cellRange;
    range->PutStart(range->GetEnd() - 1);
    insertPlaceholder();
    const Word::RangePtr place = range->GetDuplicate();
    place->PutEnd(place->GetEnd() - 1);
    range->GetFields()->Add(place, type);
}
