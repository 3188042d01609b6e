#pragma once

#include "Collections.h"
#include "Plan.h"
#include "RangeInStory.h"
#include "StoryEnd.h"

#include "Word.h"

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace compose {

/// A piece of rich text, and what has to be known to see what became of it. Behind the text stands the end
/// mark (Fragment.h): in a paragraph of its own, formatted as the paragraph that it is read in in front of,
/// or at the end of a paragraph that goes on.
struct Fragment
{
    /// Of a paragraph as it is to be in Word.
    struct Look
    {
        std::u16string style;
        std::optional<int> alignment; ///< direct; Word's number
    };
    std::string text;
    Ground ground; ///< of the empty paragraph that it is read in in front of
    /// Its last paragraph goes on: that one becomes it, and looks so.
    std::optional<Look> open = {};
    /// Its tags that have a place already.
    std::vector<std::u16string> movedTags;
    /// The bookmarks at the place.
    std::vector<std::u16string> tagsInFront = {};
    bool beginsWithBreak = false; ///< the page break whose place is wanted
    /// What is to be done when it is there, counted from its end.
    std::deque<Operation> rest;
};

/// How Word reads fragments in, as far as it has been seen; holds for all stories of a document.
struct Reading
{
    /// Text that says nothing of its own looks as its style says.
    std::optional<bool> keepsLooks = {};
    /// Of the end mark and its paragraph's end, where that comes to stand in front of the one that was there.
    long endLength = 2;
};

/// Has Word read fragments in at the end of a story.
///
/// No position is computed: the end mark shows where the end is, and what has become of the last paragraph.
/// It goes after it was seen. Whether text that is to look as its style does comes to look so, that of the
/// first fragment shows as well.
///
/// Errors: a failed Word call raises `_com_error`; adding the same fragment again goes on where it failed.
/// After a second failure it only tells what came of the fragment.
class FragmentPen
{
public:
    /// `story`: moved about. `end`: the story's. `reading`: what other stories' fragments have shown. They
    /// and the document's collections live longer.
    FragmentPen(RangeInStory ranges, const Word::RangePtr& story, StoryEnd& end, Collections& collections,
                Reading& reading)
        : ranges_(std::move(ranges)), range_(story), end_(end), collections_(collections), reading_(reading)
    {
    }

    /// `story` has been collapsed to that place, as long as nobody else moves it.
    void rangeIsAt(long place) { rangePlace_ = place; }
    void forgetRange() { rangePlace_.reset(); }

    /// False, and nothing is left of it, when Word does not read it in, or not as it is meant.
    bool add(const Fragment& fragment);

    /// Where the fragment added last begins in the story.
    [[nodiscard]] long start() const { return start_; }
    /// Covers the page break that the fragment added last began with; null if there was none.
    Word::RangePtr takeBreak() { return std::exchange(break_, nullptr); }

private:
    enum class Stage
    {
        begun,  ///< nothing is there
        read,   ///< the fragment is there with its end mark
        refused ///< What is there has to go.
    };

    bool goOn(const Fragment& fragment);
    void giveUp(const Fragment& fragment);
    void read(const Fragment& fragment);
    void prepareGround(const Ground& ground, const Fragment::Look& look);
    void lookAtTheEnd(const Fragment& fragment);
    bool findEndMark();
    /// The end mark is selected, before and afterwards.
    bool keepsLooks();
    bool findBreak();
    void removeText(const Fragment& fragment);

    RangeInStory ranges_;
    Word::RangePtr range_;
    StoryEnd& end_;
    Collections& collections_;
    Reading& reading_;
    Stage stage_ = Stage::begun;
    long start_ = 0;
    std::optional<long> rangePlace_;
    Word::RangePtr break_;
    int failures_ = 0;
    std::optional<bool> wasRead_; ///< of a fragment that was given up
};

} // namespace compose
