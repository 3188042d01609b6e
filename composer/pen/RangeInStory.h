#pragma once

#include "Word.h"

namespace compose {

/// Makes further ranges of the story that `story` is a range of. In the document's body that is one call;
/// elsewhere a copy of the range has to be moved.
///
/// Errors: a failed Word call raises `_com_error`.
class RangeInStory
{
public:
    RangeInStory(const Word::_DocumentPtr& document, const Word::RangePtr& story, bool isBody)
        : document_(document), story_(story), isBody_(isBody)
    {
    }

    [[nodiscard]] Word::RangePtr operator()(long start, long end) const
    {
        if (isBody_)
            return document_->Range(Word::integer(start), Word::integer(end));
        Word::RangePtr range = story_->GetDuplicate();
        range->SetRange(start, end);
        return range;
    }

private:
    Word::_DocumentPtr document_;
    Word::RangePtr story_;
    bool isBody_;
};

} // namespace compose
