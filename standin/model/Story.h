#pragma once

#include "Endpoints.h"
#include "FieldMarks.h"
#include "Formats.h"
#include "GapText.h"
#include "PositionIndex.h"

#include <memory>
#include <string>
#include <string_view>

namespace standin::model {

class Document;
class Section;

/// A stretch of characters that have the same formatting.
struct CharacterRun
{
    Position start;
    Position end;
    const CharacterFormat* format;
};

/// A paragraph; `end` lies behind its mark.
struct Paragraph
{
    Position start;
    Position end;
    const ParagraphFormat* format;
};

/// A flow of text of a document: its main text, or a header or footer.
///
/// Always ends with a paragraph mark. Every paragraph has one format, kept with its last character; character
/// formatting is kept in runs that cover the text without gaps. Edits near the last edit are cheap whatever
/// the length of the story and the number of ranges in it.
///
/// Pointers to formats are valid until the next change of the story.
class Story
{
public:
    Story(Document& document, StoryType type);
    Story(const Story&) = delete;
    Story& operator=(const Story&) = delete;

    StoryType type() const { return type_; }
    /// Raises WordError 5825 when the document is closed or the story was dropped.
    Document& document() const;
    bool isAlive() const { return document_ != nullptr; }
    /// Cuts the tie to the document; from now on every range of the story raises 5825.
    void kill() { document_ = nullptr; }

    /// \name Reading
    ///@{
    Position length() const { return text_.length(); }
    char16_t at(Position position) const { return text_.at(position); }
    std::u16string text(Position start, Position end) const { return text_.substr(start, end); }

    std::size_t paragraphCount() const { return paragraphs_.size(); }
    Paragraph paragraph(std::size_t index) const;
    /// Index of the paragraph that holds the character at `position`; at the story's end, the last one.
    std::size_t paragraphIndexAt(Position position) const;
    Paragraph paragraphAt(Position position) const { return paragraph(paragraphIndexAt(position)); }

    std::size_t runCount() const { return runs_.size(); }
    CharacterRun run(std::size_t index) const;
    std::size_t runIndexAt(Position position) const;
    CharacterRun runAt(Position position) const { return run(runIndexAt(position)); }

    const FieldMarks& fields() const { return fields_; }

    /// \name Direct formatting: what the place has of its own, as it was put, also where its styles say the
    /// same. What is left open comes from the styles.
    ///@{
    const FontProperties& directFont(Position position) const { return runAt(position).format->font; }
    const ParagraphProperties& directParagraph(Position position) const
    {
        return paragraphAt(position).format->properties;
    }
    ///@}

    /// The font in effect for the character at `position`.
    FontProperties effectiveFont(Position position) const;
    /// The font that text inserted at `at` would get.
    FontProperties fontForInsertion(Position at) const;
    static FontProperties effectiveFont(const ParagraphFormat& paragraph, const CharacterFormat& run);
    ///@}

    /// \name Editing. Positions must lie inside the story, before its final mark (raise 4608). Between the
    /// last cell of a row and the row's mark only cells can be inserted (raises 5251).
    ///@{
    /// Inserts text whose paragraph ends are already single marks. Paragraph marks in it become paragraphs
    /// formatted as the one they split; characters take the formatting of the one before, at a paragraph's
    /// start of the one behind, and behind a field that of the text around it. Field characters in the text
    /// become fields; they must be paired (raises std::invalid_argument).
    void insert(Position at, std::u16string_view text);
    /// For text that comes in parts: as insert, but its field characters become fields only with enterFields.
    void insertPart(Position at, std::u16string_view text);
    /// Makes fields of the field characters that stand in [start,end); they must be paired and new.
    void enterFields(Position start, Position end);
    /// Inserts one character that ends a paragraph of the given kind.
    void insertParagraphEnd(Position at, char16_t character, ParagraphEnd end);
    /// Deletes [start,end); a paragraph whose mark goes merges into the one behind, whose format wins. The
    /// characters of a field that is not wholly inside stay. Returns where text belongs that is to stand in
    /// place of the deleted: `start`, or behind the field ends that stayed.
    Position erase(Position start, Position end);

    /// Makes [start,end) the result of a field with the given code. No field may be only half inside, and
    /// the code's own field characters must be paired (raises std::invalid_argument).
    FieldId wrapInField(Position start, Position end, std::u16string_view code);
    /// Gives a field without a result an empty one.
    void addFieldResult(FieldId id);
    /// Deletes the field but for its result.
    void unwrapField(FieldId id);

    void setParagraphFormat(std::size_t index, const ParagraphFormat& format);
    void setCharacterFormat(Position start, Position end, const CharacterFormat& format);
    ///@}

    EndpointSet& endpoints() { return endpoints_; }
    const EndpointSet& endpoints() const { return endpoints_; }

private:
    /// Far above what Word holds, and low enough that positions never overflow.
    static constexpr Position maximumLength = 1 << 29;

    void checkInsertion(Position at, ParagraphEnd kind) const;
    void insertRaw(Position at, std::u16string_view text);
    void insertFormatted(Position at, std::u16string_view text, const CharacterFormat& format);
    void eraseRaw(Position start, Position end);
    CharacterFormat formatForInsertion(Position at) const;
    ParagraphFormat splitFormat(Position at) const;
    void splitRunAt(Position position);
    void mergeRunsAt(Position position);

    Document* document_;
    StoryType type_;
    GapText text_;
    PositionIndex<ParagraphFormat> paragraphs_; ///< keyed by the position behind the mark
    PositionIndex<CharacterFormat> runs_;       ///< keyed by the run's end
    FieldMarks fields_;
    EndpointSet endpoints_;
};

/// CR LF, LF and CR become one paragraph mark each. Characters that would pose as structure (cell marks,
/// field characters, pictures) become spaces, so that positions stay as the caller counts them.
std::u16string normalizeText(std::u16string_view text);

} // namespace standin::model
