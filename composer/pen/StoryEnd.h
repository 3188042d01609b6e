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
    /// Comes in front of each call that may change the story's length.
    void forget() { known_.reset(); }
    /// The story holds what Word may change whenever it likes, as it does with the results of fields.
    void distrust() { isTrusted_ = false; }
    /// Comes when time may have gone by since Word was called.
    void resume()
    {
        if (!isTrusted_)
            forget();
    }
    /// Behind such a call that succeeded, where there is no doubt about what it did.
    void know(long place) { known_ = place; }

private:
    Word::RangePtr story_;
    std::optional<long> known_;
    bool isTrusted_ = true;
};

} // namespace compose
