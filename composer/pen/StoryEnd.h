#pragma once

#include "Word.h"

#include <optional>

namespace compose {

/// Where text at the end of a story goes: in front of the end of its last paragraph. Word is asked for it
/// unless it has been told since and nothing has come to the story from then on.
///
/// Errors: a failed Word call raises `_com_error`.
class StoryEnd
{
public:
    explicit StoryEnd(const Word::RangePtr& story) : story_(story) {}

    long ask()
    {
        if (!known_)
            known_ = story_->GetStoryLength() - 1;
        return *known_;
    }
    /// Comes in front of each call that may change the story's length, and when time may have gone by since
    /// Word was called: a user may type into the document, and Word updates fields when it likes.
    void forget() { known_.reset(); }
    /// Behind such a call that succeeded, where there is no doubt about what it did.
    void know(long place) { known_ = place; }

private:
    Word::RangePtr story_;
    std::optional<long> known_;
};

} // namespace compose
