#pragma once

#include "Plan.h"
#include "StoryEnd.h"

#include "Word.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace compose {

/// A piece of rich text, and what has to be known to see what became of it.
struct Fragment
{
    std::string text;
    Ground ground; ///< of the empty paragraph that it is read in in front of
    bool endsInTable = false;
    std::u16string lastStyle;         ///< of its last paragraph, if it does not end in a table
    std::optional<int> lastAlignment; ///< direct
    /// Its tags that have a place already.
    std::vector<std::u16string> movedTags;
    bool beginsWithBreak = false; ///< the page break whose place is wanted
    bool tellsOfLooks = false;    ///< Its first character is as `beginsInStyleFont` says.
};

/// Has Word read fragments in at the end of a story.
///
/// No position is computed afterwards: a character of our own stands behind the place, and tells where the
/// end is. What readers are known to do differently with the last paragraph is looked for and mended. Whether
/// text that is to look as its style does comes to look so, the first fragment tells by its first character,
/// or a trial in front of it where that character cannot.
///
/// Errors: a failed Word call raises `_com_error`; adding the same fragment again goes on where it failed.
/// After a second failure it only tells what came of the fragment.
class FragmentPen
{
public:
    /// `story`: moved about. `end`: the story's. `keepsLooks`: what the first fragment told, which counts for
    /// all stories of the document. Both live longer.
    FragmentPen(const Word::_DocumentPtr& document, const Word::RangePtr& story, StoryEnd& end,
                std::optional<bool>& keepsLooks)
        : document_(document), range_(story), end_(end), keepsLooks_(keepsLooks)
    {
    }

    /// False, and nothing is left of it, when Word does not read it in, or not as it is meant.
    bool add(const Fragment& fragment);

    /// Covers the page break that the fragment added last began with; null if there was none.
    Word::RangePtr takeBreak() { return std::exchange(break_, nullptr); }

    /// Points; of a new table on a section's page, whose text begins and ends where that of the page does.
    float tableWidth(int section);

private:
    enum class Stage
    {
        begun,  ///< nothing is there
        marked, ///< the character is
        tried,  ///< in front of it a piece of text to look at
        judged, ///< which has been looked at and has to go; the fragment too, if it showed that it should
        read,   ///< in front of it the fragment
        joined, ///< whose last paragraph has joined that of the character, formatted as it is to be
        parted, ///< and is one of its own again
        ended,  ///< the fragment is as it should be
        found,  ///< so is its page break
        refused ///< the character has to go
    };

    bool goOn(const Fragment& fragment);
    void giveUp();
    void mark();
    void readTrial();
    void judge();
    void removeText();
    void findBreak(const Fragment& fragment);
    void read(const Fragment& fragment);
    void insert(const std::string& text, Stage next);
    void lookAtTheEnd(const Fragment& fragment);
    void formatLast(const Fragment& fragment);
    void part();
    void restoreGround(const Fragment& fragment);
    void removeMark();
    long markPlace();
    void change() { markPlace_.reset(); }

    Word::_DocumentPtr document_;
    Word::RangePtr range_;
    StoryEnd& end_;
    Stage stage_ = Stage::begun;
    long start_ = 0;
    long surplus_ = 0; ///< paragraph ends in front of the character that have to go with it
    Word::RangePtr break_;
    int failures_ = 0;
    std::optional<long> markPlace_;   ///< as long as nothing moves it
    std::optional<bool> wasRead_;     ///< of a fragment that was given up
    std::optional<bool>& keepsLooks_; ///< Text that says nothing of its own looks as its style says.
};

} // namespace compose
