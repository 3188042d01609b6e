#pragma once

#include "CollectedEntry.h"
#include "Content.h"
#include "WaitingTags.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace compose {

/// Takes a client's calls for one story (the body, a header or a footer) at their word, and keeps what they
/// come to until it is taken to be written into Word.
///
/// The calls have the names and the meaning that they have for clients. Texts are UTF-16; CR, LF and CR LF
/// end a paragraph each.
///
/// Threading: one thread at a time.
class StoryContent
{
public:
    /// The story begins in the paragraph style `style`.
    explicit StoryContent(std::u16string_view style);

    /// \name Text
    /// @{
    /// `target`: where the text leads; null: nowhere.
    void insertText(std::u16string_view text, const LinkTarget* target = nullptr);
    void insertEndl();
    /// In a table: nothing, and false.
    bool insertPageBreak();
    void insertField(int number);
    /// The bookmark's earlier place is none any more.
    void insertTag(const std::u16string& bookmark);
    /// Takes away the place of a bookmark that is placed anew elsewhere, unless it is in Word already.
    void removeTag(std::u16string_view bookmark);
    /// @}

    /// \name Formatting
    /// @{
    /// Whether `setStyle` with that name changes anything.
    [[nodiscard]] bool isInForce(std::u16string_view styleName) const { return styleName == styleName_; }
    /// Ends an open paragraph that holds anything; comes in front of `setStyle`, and even where the style
    /// turns out to be unknown.
    void prepareStyle();
    /// `name` as the client said it, `style` the one that it means.
    void setStyle(std::u16string_view name, std::u16string_view style);
    void setFontName(std::u16string_view name);
    void setFontSize(int points);
    /// 1 bold, 2 italic, 4 underlined, 8 struck; any other number: nothing.
    void setFontAttribute(int attribute, bool isOn);
    /// 2 centred, 3 right, 4 justified, any other number left.
    void setTextAlign(int number);
    /// @}

    /// \name Tables
    /// Calls out of order are ignored, and return false.
    /// @{
    [[nodiscard]] bool isTableOpen() const { return isTableOpen_; }
    bool startTable();
    bool addRow();
    bool addCell();
    bool endTable();
    /// Of the current row and of those that follow in this table; 0: Word decides for those that follow.
    bool setTableRowHeight(int points);
    /// Row and column of the cell being written, from 0.
    struct CellPlace
    {
        std::size_t row = 0;
        std::size_t column = 0;
    };
    [[nodiscard]] CellPlace currentCell() const;
    /// @}

    /// \name Table of contents
    /// @{
    /// Writes `title` as a heading of it, in that style, or, without one, centred and with an empty paragraph
    /// behind it; an empty one is no paragraph. What was asked for earlier is dropped; true when its place is
    /// in Word already.
    bool insertTOC(std::u16string_view title, std::u16string_view titleStyle = {});
    /// Without a table of contents: nothing, and false.
    bool startTOCEntry();
    bool endTOCEntry();
    /// @}

    /// \name A picture that waits with the text
    /// @{
    /// Whether what it comes to stand in is not in Word yet.
    [[nodiscard]] bool takesKeptPicture() const;
    /// `target`: null if it leads nowhere.
    void addKeptPicture(const KeptPicturePtr& picture, const LinkTarget* target);
    /// @}

    /// \name What is put into Word at once
    /// @{
    /// The paragraph in hand will hold something that is no text: its style and alignment are settled.
    void settleParagraph();
    /// It has come to stand at the end of what was taken.
    void objectWritten();
    /// \name The same in a table that can still be made whole
    /// The text in front goes to Word first, unformatted.
    /// @{
    /// Whether there is one, and its cell in hand holds no more than one paragraph.
    [[nodiscard]] bool takesPictureIntoTable() const;
    void addPicture();
    /// It is there, and leads to `target` if there is one.
    void pictureWritten(const LinkTarget* target);
    /// Nothing of what is in front of it has gone to Word.
    void dropPicture();
    /// @}
    /// The bookmarks in Word at the place where text goes on.
    [[nodiscard]] const std::vector<std::u16string>& tagsAtEnd() { return current().tagsAtEnd; }
    /// Whether it is directly behind an entry in Word.
    [[nodiscard]] bool isBehindEntry() { return current().endsInEntry; }
    /// A file is to stand in paragraphs of its own: ends an open paragraph that holds anything.
    void prepareFile();
    /// It stands at the end of what was taken, in front of the open paragraph.
    void fileWritten(bool endsInTable);
    /// @}

    /// What became of the last page break.
    enum class LastBreak
    {
        none,
        waiting, ///< not yet taken; it now ends a section
        written  ///< in Word: it must be made one there
    };
    /// The page break written last is to end a section; nothing when there is none since the last time.
    LastBreak breakSection();
    /// Whether that page break is directly behind an entry.
    [[nodiscard]] bool isBreakBehindEntry() const { return isBreakBehindEntry_; }

    /// \name Taking
    /// @{
    [[nodiscard]] const Blocks& blocks();
    [[nodiscard]] const std::vector<LinkTarget>& links() const { return links_; }
    /// Whether there is anything to write.
    [[nodiscard]] bool isPending() const;
    /// Bytes that wait, roughly.
    [[nodiscard]] std::size_t waiting() const { return waiting_; }
    /// All that waits has been taken: what goes on behind it goes on in its last paragraph, and in its table.
    void taken();
    /// The blocks in front of the open table.
    [[nodiscard]] std::span<const Block> blocksInFrontOfTable();
    void takenInFrontOfTable();
    /// @}

private:
    Table& table() { return std::get<Table>(blocks_[blocks_.size() - 2]); }
    [[nodiscard]] const Table& table() const { return std::get<Table>(blocks_[blocks_.size() - 2]); }
    Cell& cell() { return table().rows.back()[column_]; }
    Paragraph& outside() { return std::get<Paragraph>(blocks_.back()); }
    [[nodiscard]] const Paragraph& outside() const { return std::get<Paragraph>(blocks_.back()); }
    Paragraph& current() { return isTableOpen_ ? cell().back() : outside(); }

    void write(Item item);
    LinkNumber addLink(const LinkTarget& target);
    void writeCharacters(std::u16string_view characters, LinkNumber link);
    void endParagraph(LinkNumber link = noLink);
    void endParagraphIfItHoldsAnything();
    void beginStyle(std::u16string_view name, std::u16string_view style);
    void addWaiting(std::size_t bytes) { waiting_ += bytes; }
    void writeTitle(std::u16string_view title, std::u16string_view style);
    void changeFont(FontWish font);
    static void keepEnd(Paragraph& paragraph);
    [[nodiscard]] bool isBreakInOpenParagraph() const;
    void lookBehindBreak();
    void placesTaken();

    Blocks blocks_ = {Paragraph()}; ///< the last one is the open paragraph; in front of it an open table
    std::vector<LinkTarget> links_;
    std::size_t waiting_ = 0;
    std::size_t waitingInFront_ = 0; ///< of the open table

    std::u16string styleName_; ///< as the client said it
    std::u16string style_;
    bool isStyleFresh_ = false; ///< another style than Normal began, and nothing was written in it
    FontWishPtr font_;
    int alignmentNumber_ = 0;
    std::optional<int> alignment_;

    bool isTableOpen_ = false;
    std::size_t rowsBegun_ = 0;
    std::size_t cellsBegun_ = 0; ///< in the current row
    std::size_t column_ = 0;
    int rowHeight_ = 0;
    bool isHeightWaiting_ = false;

    LastBreak lastBreak_ = LastBreak::none;
    std::size_t lastBreakBlock_ = 0; ///< while it waits
    bool isBreakBehindEntry_ = false;
    bool isWrittenBreakInFirst_ = false; ///< in the paragraph that the blocks begin with
    bool holdsBehindBreak_ = false;      ///< more than tags, in that paragraph and in Word already
    bool isBehindTable_ = false;         ///< The open paragraph follows a table that has been taken.
    WaitingTags waitingTags_;

    bool hasContents_ = false;
    bool isContentsWritten_ = false;
    CollectedEntry entry_;
};

} // namespace compose
