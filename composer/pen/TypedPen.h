#pragma once

#include "Collections.h"
#include "FileInsertion.h"
#include "Plan.h"
#include "RangeInStory.h"
#include "StoryEnd.h"

#include "Word.h"

#include <set>
#include <string>
#include <vector>

namespace compose {

/// A file that is to stand as an icon that opens it.
struct EmbeddedObject
{
    std::u16string file;
    std::u16string classType;   ///< "Excel.Sheet"
    std::u16string iconProgram; ///< "excel.exe"
    std::u16string label;
    bool isLinked = false;
};

/// Carries plans out in one story of a document, call by call.
///
/// Errors: a failed Word call raises `_com_error`. What had not been done by then is in the plan still, so
/// that carrying it out again goes on behind what was done. An operation that fails twice is left out; one
/// that may have taken effect is not tried again, unless the document tells whether it has: text and tables.
///
/// Threading: that of the document.
class TypedPen
{
public:
    /// Writes at the end of the story that `story` is a range of. `ranges`, `end`: that story's; `end` and
    /// the document's collections live longer.
    TypedPen(const Word::_DocumentPtr& document, RangeInStory ranges, const Word::RangePtr& story,
             StoryEnd& end, Collections& collections);

    void carryOut(Plan& plan);
    /// The operation at which it failed last, or in front of which; nothing when it has not failed since
    /// `carryOut` began.
    [[nodiscard]] const std::optional<Operation>& lastFailed() const { return lastFailed_; }

    /// \name A draft (Passage::drafted) at the end of the story
    /// What goes beyond `length`, which it has so far, was left by a failure, and goes.
    /// @{
    void goOnWithDraft(Position length, const std::u16string& text);
    void addPictureToDraft(Position length, const std::u16string& file);
    /// @}

    /// \name What is put at the end of the story, or of a cell of its last table
    /// `isBehindHidden`: Word may hide it like the text in front, and is told not to.
    /// @{
    using Place = std::optional<Passage::Cell>;
    void addPicture(const Place& place, const std::u16string& file, bool isBehindHidden);
    /// The picture added last leads there.
    void linkPicture(const LinkTarget& target);
    void addObject(const Place& place, const EmbeddedObject& object, bool isBehindHidden);
    /// The text of a file, in paragraphs of its own in front of the last one, which holds nothing. True when
    /// it ends in a table. `tags`: the bookmarks at the place.
    bool addFile(const Place& place, const std::u16string& file, const Ground& ground,
                 const std::vector<std::u16string>& tags);
    /// @}

    /// The page break kept last becomes the end of a section; nothing when it could not be kept.
    /// `isBehindHidden`: as for pictures.
    void breakSection(bool isBehindHidden);
    /// `pageBreak` covers one that may become a section's end later; null: it could not be found.
    void keepBreak(const Word::RangePtr& pageBreak) { lastBreak_ = pageBreak; }
    /// Makes the table of contents at the place kept last. `level`: lowest heading level to list; 0: entries
    /// only.
    void makeContents(int level);
    void dropContents() { contents_ = nullptr; }
    [[nodiscard]] bool hasContents() const { return contents_ != nullptr; }
    /// The text of the links to these bookmarks becomes plain.
    void removeLinks(const std::set<std::u16string>& bookmarks);
    /// The bookmark goes, wherever it is; nothing when there is none.
    void removeTag(const std::u16string& bookmark);
    /// \name Comes first
    /// @{
    /// Nothing is in the story but an empty paragraph, which is plain. The range given covers all.
    void clear();
    /// Takes away what is in the story; its last paragraph keeps its look. True when there was nothing.
    bool empty();
    /// @}

private:
    long begin(const Place& place);
    long beginDraft(Position length);
    void insertPicture(const std::u16string& file);
    void addTo(const Word::InlineShapesPtr& shapes, const _bstr_t& file);
    void beginPassage(Passage& passage);
    static void giveUpCell(Passage& passage);
    void failed();
    bool isWritten(const WriteText& text);
    Word::TablePtr convert(const MakeTable& table);
    void select(Span span);
    void mutate();
    void performNext();

    void perform(const WriteText& text);
    void perform(const ClearFont& clear);
    void perform(const PutStyle& style);
    void perform(const PutAlignment& alignment);
    void perform(const PutFont& font);
    void perform(const MakeTable& table);
    void perform(const StyleTables& tables);
    void perform(const ExtendTable& table);
    void perform(const AddField& field);
    void perform(const AddEntry& entry);
    void perform(const AddLink& link);
    void perform(const PlaceTag& tag);
    void perform(const BreakSection& section);
    void perform(const KeepBreak& pageBreak);
    void perform(const KeepContents& contents);
    void perform(const AddPicture& picture);
    void perform(const RemoveText& removal);

    static void putHeights(const Word::TablePtr& table, const std::vector<int>& heights, std::size_t firstRow,
                           std::size_t rows);

    Word::_DocumentPtr document_;
    RangeInStory ranges_;
    Word::RangePtr range_; ///< moved to each place
    StoryEnd& end_;
    Collections& collections_;
    FileInsertion files_;
    std::optional<Span> selected_; ///< what the range covers, as far as that is known
    bool trustsSelection_ = false; ///< while an operation is carried out
    Word::TablePtr table_;         ///< the story's last one
    Word::RangePtr lastBreak_;     ///< covers the page break
    Word::RangePtr contents_;      ///< collapsed
    std::optional<long> draft_;    ///< where it begins
    long pastField_ = 0;           ///< behind the field or entry added last

    std::deque<Operation>* operations_ = nullptr; ///< of the passage being carried out
    Place place_;                                 ///< of that passage
    long base_ = 0;                               ///< where it begins
    bool isBegun_ = false;
    bool hasActed_ = false; ///< The operation in hand has changed the document, or may have.
    std::optional<Operation> lastFailed_;
    int failures_ = 0;        ///< of the operation in hand, or of beginning the passage
    bool isDoubtful_ = false; ///< It has failed, and may have changed the document.
    bool isFirst_ = false;    ///< of the passage
};

} // namespace compose
