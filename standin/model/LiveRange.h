#pragma once

#include "Formats.h"
#include "Story.h"
#include "Styles.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace standin::model {

/// A stretch of a story that follows edits, with the operations of Word's Range.
///
/// An insertion at p moves an endpoint e when e > p; a deletion of [a,b) takes endpoints inside it to a. The
/// range on which an insertion is called additionally grows over the new text.
///
/// Every operation raises WordError 5825 once the document is closed and 4608 for a position outside the
/// story. Copying makes an independent range at the same place (Word's Duplicate).
class LiveRange
{
public:
    LiveRange(std::shared_ptr<Story> story, Position start, Position end);
    LiveRange(const LiveRange& other);
    LiveRange& operator=(const LiveRange&) = delete;
    ~LiveRange();

    const std::shared_ptr<Story>& storyPtr() const { return story_; }
    Story& story() const; ///< raises 5825 after closing
    Position start() const;
    Position end() const;
    bool isCollapsed() const { return start() == end(); }

    /// \name Moving the range
    ///@{
    void setStart(Position start);               ///< above the end: the end follows
    void setEnd(Position end);                   ///< below the start: the start follows
    void setRange(Position start, Position end); ///< an end before the start counts as the start
    void collapse(CollapseDirection direction);
    ///@}

    /// \name Text
    ///@{
    /// The text as Range.Text gives it: fields by their results, without hidden text. Cell marks are given as
    /// two characters.
    std::u16string text() const;
    /// Replaces the content; the range becomes the new text. A final mark inside the range survives.
    void setText(std::u16string_view text);
    /// Behind the range, or before the story's final mark or a cell's mark that the range ends with. CR, LF
    /// and CRLF are paragraph marks.
    void insertAfter(std::u16string_view text);
    void insertBefore(std::u16string_view text);
    void insertParagraphAfter();
    void insertBreak(BreakType type = BreakType::page);
    /// Range.Delete. A collapsed range deletes `count` characters after it (negative: before it); otherwise
    /// the content goes. Returns the number of characters deleted.
    std::int32_t remove(std::int32_t count = 1);
    ///@}

    /// \name Formatting
    ///@{
    /// The style over the range: the character style if one covers it, else the paragraph style; null when
    /// mixed and the switch says so.
    StylePtr style() const;
    /// A table style is put on the tables that the range touches; raises 4608 when there is none.
    void setStyle(const Style& style);
    /// Looks the style up by name or built-in number; raises 5834 when there is none.
    void setStyle(std::u16string_view name);
    void setStyle(std::int32_t builtinNumber);

    /// The effective font; a property that differs within the range is left open.
    FontProperties font() const;
    /// Puts every property that is set. In a collapsed range only the paragraph mark of an empty paragraph is
    /// reached.
    void setFont(const FontProperties& properties);
    /// Takes direct formatting from the characters: they look as their styles say, character styles included.
    /// Hidden is such formatting, too.
    void resetFont();

    /// The effective paragraph properties of all paragraphs touched; one that differs is left open.
    ParagraphProperties paragraphFormat() const;
    void setParagraphFormat(const ParagraphProperties& properties);
    /// Takes direct formatting from the paragraphs touched: they look as their styles say.
    void resetParagraphFormat();
    ///@}

private:
    void place(Position start, Position end);
    Position insertionPointAfter() const;
    Position insertInto(Position at, std::u16string_view text);
    Position removeContent();
    std::int32_t removeCharacters(std::int32_t count);
    void insertBreakCharacter(char16_t character);
    std::u16string textOfBreak(char16_t character, Position at) const;
    Position withinStory(Position position, Position last) const;
    void insertSectionBreak(SectionStart sectionStart);
    void setCharacterStyle(const Style& style);
    void setTableStyle(const Style& style);
    void changeCharacters(const std::function<void(CharacterFormat&)>& change);

    std::shared_ptr<Story> story_;
    Endpoint start_;
    Endpoint end_;
};

} // namespace standin::model
