#pragma once

#include "TableOfContents.h"

#include <StandinBases.h>

namespace standin {
/// The tables of contents of a document's main text.
class TablesOfContentsObject : public TablesOfContentsBase
{
public:
    TablesOfContentsObject(std::shared_ptr<Server> server, const model::LiveRange& scope);

protected:
    long getCount() override;
    Word::TableOfContentsPtr doItem(long index) override;
    Word::TableOfContentsPtr doAdd(Word::Range* range, const VARIANT& useHeadingStyles,
                                   const VARIANT& upperHeadingLevel, const VARIANT& lowerHeadingLevel,
                                   const VARIANT& useFields, const VARIANT& tableId,
                                   const VARIANT& rightAlignPageNumbers, const VARIANT& includePageNumbers,
                                   const VARIANT& addedStyles, const VARIANT& useHyperlinks,
                                   const VARIANT& hidePageNumbersInWeb) override;

private:
    model::LiveRange scope_;
};
} // namespace standin
