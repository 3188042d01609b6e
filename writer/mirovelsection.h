#pragma once

#include "FontData.h"
#include "LinkDestination.h"
#include "QdxObject.h"
#include "QdxString.h"

#include "Word.h"

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

class FontSave;
class HyperLink;
class Trace;
class WriterEvents;
enum class Silence;
struct MirovelSectionData;

/// Writes a stream of content into one range of a Word document: the body, a header or a footer.
///
/// The writer keeps its own count of the characters it has written (the insertion position) and asks Word for
/// positions only where Word alone can know them, so that writing text costs one Word call. Styles, fonts and
/// alignments are recorded as runs against that count and applied to whole ranges later; links and the table
/// of contents are drawn last, by `finish`.
///
/// While a table is open, text, fields, pictures, files and links go into the current cell.
///
/// Errors: a failed Word call raises `_com_error` with Word's HRESULT, a null Word pointer one with
/// E_POINTER; nothing that was done before it is undone. Exceptions to that are named at the method.
///
/// Threading: one writer is used by one thread at a time. The cache of style fonts is shared by all writers
/// of the process, behind a lock.
class MirovelSection : public QdxObject
{
public:
    /// Starts writing behind `range`, in the style "Normal". All three must be non-null; the writer keeps
    /// references.
    MirovelSection(const Word::_ApplicationPtr& application, const Word::_DocumentPtr& document,
                   const Word::RangePtr& range);

    /// A copy shares the state of the writer it was copied from and leaves the pending work to it; it must
    /// not outlive it.
    MirovelSection(const MirovelSection& other);

    /// Shares the state of `other` from then on, as a copy does. This writer's own pending work is completed;
    /// its failure leaves the assignment.
    MirovelSection& operator=(const MirovelSection& other);

    /// Only releases: work that `finish` has not done is lost.
    ~MirovelSection() override;

    /// Does the pending work in this order: style run, font runs, alignment runs, the end of the last tag,
    /// links, table of contents. The first failure stops the rest. The last call that a writer gets, before
    /// the document is saved; on a copy it does nothing.
    void finish();

    /// Records that `font` begins at the insertion position.
    virtual void storeFont(const FontData& font);
    /// Applies all recorded font runs and forgets them.
    virtual void applyFont();
    /// Closes the open style run and applies it, with the font runs on top.
    virtual void applyStyle();

    /// Gives the writer a copy of a trace, for what it has to report itself.
    void setTrace(const Trace& trace);
    /// Has `events`, which lives longer, told of what its calls do not do.
    void setEvents(WriterEvents* events);
    /// The bookmarks that links lead to which could not be drawn, because they were not resolved.
    std::vector<QdxString> unresolvedLinks() const;
    /// Number of sections in the document, as far as this writer has made them; 1 at first.
    std::int32_t getSectionCount() const;
    /// Empties the cache of style fonts, for all writers: the next document may define its styles
    /// differently.
    static void clearCache();
    /// Deletes what the output range holds.
    void deleteRange();

    /// @name Text
    /// @{
    /// Writes `text` (UTF-16, ended by NUL) as it stands; no markup is looked for.
    void insertText(const wchar_t* text);
    /// The same text without a copy. It holds no NUL.
    void insertText(const _bstr_t& text);
    /// Ends the paragraph. Every 101 paragraph ends Word's undo list is cleared.
    void insertEndl();
    /// Writes a page break; inside a table only closes and reopens a style run.
    void insertPageBreak();
    /// Turns the page break written last into a section break to a new page; without one, does nothing.
    void changeLastPageBreak();
    /// @}

    /// @name Styles and fonts
    /// @{
    /// Starts a run of the paragraph style `name`. The style already in force is started again only with
    /// `force`. Raises `QdxException` "ERR Unknown style: " + name when Word refuses the style.
    void setStyle(const QdxString& name, bool force);
    /// Makes `font` the font in force from here on.
    void setFont(const FontData& font);
    /// The font in force. After runs have been applied its name is empty.
    FontData getFont() const;
    /// @}

    /// @name Alignment and fields
    /// @{
    /// Starts an alignment run: 2 centred, 3 right, 4 justified, any other number left.
    void setTextAlign(std::int16_t align);
    /// Writes a field: 1 date, 2 time, 3 file name, 4 page number; Word chooses for any other number.
    void insertField(std::int16_t kind);
    /// @}

    /// @name Tables
    /// Calls out of order (a cell without a row, a row without a table) are ignored.
    /// @{
    bool isTableOpen() const;
    void startTable();
    void addRow();
    void addCell();
    void endTable();
    /// Sets the exact height, in points, of the current row and of the rows that follow in this table.
    void setTableRowHeight(std::int32_t points);
    /// @}

    /// @name Table of contents
    /// @{
    /// Writes the heading "Table of Contents" and remembers the place. `level`: lowest heading level to list.
    void insertTOC(std::int16_t level);
    void startTOCEntry();
    void endTOCEntry();
    /// @}

    /// @name Files and pictures
    /// @{
    /// Puts a file into the document in the way that suits it. `insertAsType`: 2 link, 4 hyperlink, else
    /// embed.
    void insertFile(const QdxString& fileName, std::int16_t insertAsType);
    /// Inserts a picture, `width` and `height` in points (0: as Word finds it), that leads to `destination`.
    void insertImage(const QdxString& fileName, const LinkDestination& destination, std::int16_t width,
                     std::int16_t height);
    /// @}

    /// @name Links and tags
    /// @{
    /// Writes `text` and notes that it is to lead to `destination`.
    void insertHyperLink(const QdxString& text, const LinkDestination& destination);
    /// Places a bookmark at the insertion position and ends the one before it. False, and nothing placed,
    /// when the name has 10 or more characters or the document has no bookmarks.
    bool insertTag(const QdxString& name);
    /// Notes that the bookmark `name` exists: the links to it will be drawn.
    void resolve(const QdxString& name);
    /// @}

private:
    friend class MirovelSectionProbe; // lets tests reach what only the writer itself calls

    void ignored(Silence why, const QdxString& concerned = QdxString()) const noexcept;
    void setRange(const Word::RangePtr& range);
    void loInsertText(const _bstr_t& text);
    void insertPlaceholder();
    /// Everything in front gets its formatting: style, fonts, alignments.
    void applyRuns();
    void checkForEndl();
    void deleteLastChar();
    void clearUndoAfterEndl();

    static QdxString getRealStyle(const QdxString& name);
    static int getLevel(const QdxString& prefix, const QdxString& name);
    static _variant_t styleArgument(const QdxString& name);
    void passStyles(const Word::StylesPtr& styles);
    Word::StylePtr findStyle(const QdxString& name);
    FontData findFont(const QdxString& style);
    static void toFontPtr(const Word::_FontPtr& target, const FontData& font);
    static void fromFontPtr(FontData& font, const Word::_FontPtr& source);
    void startStyle(const QdxString& name);
    void reopenStyle();

    void applyAlign();
    void insertFieldInCell(const _variant_t& type);

    Word::RangePtr cellRange(std::int16_t row, std::int16_t col);
    void applyFontToTable(const FontSave& run, const FontSave* next);
    static void putFont(const Word::RangePtr& range, std::int32_t start, std::int32_t end,
                        const FontData& font);
    void enterRow(const Word::RowPtr& row);
    void resizeTableColumns();

    void writeEntry();
    void drawTOC();

    void wordInsertFile(const QdxString& fileName, bool link);
    void insertOleObject(const QdxString& fileName, const QdxString& classType, const QdxString& iconProgram,
                         bool link);
    bool foundFile(QdxString& fileName);
    static bool itsAPicture(const QdxString& fileName);

    void insertLink(const LinkDestination& destination, std::int32_t start, std::int32_t end,
                    const Word::RangePtr& range);
    void endLastTag();
    void drawHyperLinks();
    void drawAHyperLink(const HyperLink& link);
    void clearUndoAfterLink(int& drawn);

    /// Style name to the font the style gives, for all writers; Word is asked once for each style.
    static std::map<QdxString, FontData> s_smap;

    std::unique_ptr<MirovelSectionData> owned_; // empty in a copy
    MirovelSectionData* data_;
};
