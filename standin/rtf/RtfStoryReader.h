#pragma once

#include "Document.h"
#include "InlineShape.h"
#include "RtfBookmarks.h"
#include "RtfFields.h"
#include "RtfRowReader.h"
#include "RtfTextFormat.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace standin::rtf {

/// Puts a file's text into the stories of a document as it is read: the body, and headers and footers, which
/// begin and end in between.
class StoryReader
{
public:
    /// `format`: the formatting in force at any time. All three live longer.
    StoryReader(model::Document& document, const TextFormat& format, const TextTables& tables)
        : document_(document), format_(format), tables_(tables), story_(document.mainStory())
    {
    }
    /// Text gets whatever the file says of it, be it what its styles say as well.
    void keepAllStated() { keepsAllStated_ = true; }

    /// \name Text
    /// @{
    void character(char16_t c) { pending_ += c; }
    /// The characters so far have the formatting in force; comes before it changes.
    void flush();
    void endParagraph();
    void endSection();
    /// Of the story in hand: its text ended with the end of a paragraph.
    bool endsWithMark() const { return endedWithMark_ && markedStory_ == story_; }
    /// The mark that the story has by nature takes the place of the last one read.
    void finishStory();
    /// @}

    /// \name Rows
    /// @{
    bool takeRowWord(std::string_view word, std::int32_t number)
    {
        return row_.take(word, number, tables_.colors);
    }
    void endCell();
    /// Ends the open row, if there is one, in front of the last paragraph.
    void endRow() { endRow(lastParagraphStart()); }
    /// The same where text goes on.
    void endRowHere() { endRow(insertionPoint()); }
    /// @}

    /// \name Fields, bookmarks, pictures and objects
    /// @{
    void openField();
    void openResult() { fields_.openResult(); }
    void closeField();
    /// One that has no result.
    void insertHiddenField(std::u16string_view code);
    void startBookmark(const std::u16string& name) { bookmarks_.start(name, story_, insertionPoint()); }
    void endBookmark(const std::u16string& name) { bookmarks_.end(name, story_, insertionPoint()); }
    void insertShape(const model::InlineShape& shape);
    /// As the result of the field that makes it.
    void insertObjectField(const model::InlineShape& object);
    /// @}

    /// \name Headers and footers
    /// @{
    bool isInBody() const { return story_ == document_.mainStory(); }
    /// Of the document's last section; what it held goes.
    void beginHeader(model::Section::Part part, model::HeaderFooterIndex index);
    void endHeader();
    /// @}

private:
    model::Position insertionPoint() const { return fields_.insertionPoint(*story_); }
    model::Position lastParagraphStart() const;
    model::CharacterFormat characterFormat() const;
    void insert(std::u16string_view text);
    void formatLastParagraph();
    void endRow(model::Position at);

    model::Document& document_;
    const TextFormat& format_;
    const TextTables& tables_;
    std::shared_ptr<model::Story> story_;
    std::u16string pending_;
    bool endedWithMark_ = false;
    std::shared_ptr<model::Story> markedStory_;
    OpenFields fields_;
    BookmarkReader bookmarks_;
    RowReader row_;
    bool keepsAllStated_ = false;
};

} // namespace standin::rtf
