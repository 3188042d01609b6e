#pragma once

#include "StoryContent.h"
#include "WrittenDocument.h"

#include "Division.h"
#include "Draft.h"
#include "Fragment.h"
#include "FragmentPen.h"
#include "PageArea.h"
#include "PictureRoom.h"
#include "Plan.h"
#include "RangeInStory.h"
#include "StoryEnd.h"
#include "TypedPen.h"

#include <deque>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace compose {

/// A part of the document with text of its own: what is said of it, and how that reaches Word.
///
/// Errors: a failed Word call raises `_com_error`. What had not been done by then is done the next time.
class Story
{
public:
    /// Which one it is.
    enum class Kind
    {
        body,
        part ///< a header or a footer
    };

    /// The story that `range` is of begins in `style`. `document` lives longer.
    Story(WrittenDocument& document, Kind kind, const Word::RangePtr& range, std::u16string_view style,
          Ground ground);

    StoryContent& content() { return content_; }
    TypedPen& pen() { return pen_; }

    /// Nothing is in the story but an empty paragraph afterwards. Comes first, and once. `isCollapsed`: The
    /// range given is, to the story's beginning.
    void empty(bool isCollapsed);
    /// The page break that is in Word becomes a section's end with the next flush.
    void endSectionAtBreak();
    /// Brings everything that waits into Word.
    void flush();
    /// Makes the table of contents, if there is to be one. Comes last, and is tried once. `level`: see
    /// TypedPen.
    void makeContents(int level);
    /// Waits with the text, where fragments can carry it; otherwise it goes to Word at once. `link`: null if
    /// it leads nowhere.
    void addPicture(const std::u16string& file, const LinkTarget* link);
    /// \name What goes to Word at once, behind what waits
    /// @{
    void addObject(const EmbeddedObject& object);
    void addFile(const std::u16string& file);
    /// @}

    /// So that it can be seen whether it gets less.
    [[nodiscard]] std::size_t leftToDo() const;

private:
    /// Something that was taken and is to be brought into Word.
    struct Step
    {
        Plan plan;
        std::optional<Fragment> fragment = {}; ///< that says the same
    };

    /// Blocks that are brought into Word in one way.
    struct Part
    {
        Stretch stretch; ///< of what was taken
        Ground ground;   ///< in front
        bool endsOpen;   ///< Its last paragraph goes on.
        Plan plan;
    };

    [[nodiscard]] TypedPen::Place place() const;
    void finishSteps();
    void flushInFrontOfTable();
    [[nodiscard]] KeptPicturePtr keep(const std::u16string& file) const;
    void addPictureToDraft(const std::u16string& file, const LinkTarget* link);
    void goOnWithDraft();
    [[nodiscard]] Source sourceOf(std::span<const Block> blocks, const Ground& ground) const;
    template <class Taken>
    void takeSteps(std::span<const Block> blocks, std::size_t closed, const Taken& taken);
    [[nodiscard]] std::vector<Part> planParts(std::span<const Block> blocks, std::size_t closed,
                                              std::span<const Stretch> stretches) const;
    [[nodiscard]] Part planPart(std::span<const Block> blocks, std::size_t closed, const Stretch& stretch,
                                const Ground& ground) const;
    [[nodiscard]] Paragraph paragraphOf(const Ground& ground) const;
    PageArea& page();
    Extent roomFor(const Extent& picture, std::span<const Block> blocks);
    Fragment makeFragment(std::span<const Block> blocks, bool endsOpen, const Ground& ground,
                          const std::set<std::u16string>& tags);
    void carryOut();
    void carryOut(Step& step);
    template <class Work>
    void tellOfFlush(const Work& work);
    void tellOfFailure(const Plan& plan) noexcept;
    void tellOfFailure(const Operation& operation) noexcept;

    WrittenDocument& document_;
    StoryContent content_;
    Ground ground_;              ///< behind what was taken
    std::optional<Draft> draft_; ///< of the table that what waits begins with
    std::deque<Step> steps_;
    bool isSectionDue_ = false;
    bool isSectionBehindEntry_ = false;
    WriterEvents::Flush flushed_; ///< in the flush that is being done
    RangeInStory ranges_;
    StoryEnd end_;
    TypedPen pen_;
    FragmentPen fragmentPen_;
    std::u16string style_; ///< in which it begins
};

} // namespace compose
