#pragma once

#include "tracedll/Trace.h"

#include "Word.h"

#include <comutil.h>

#include <string>
#include <string_view>

/// Brings what a client says into one Word document: its body, its headers and its footers. The content calls
/// have the names and the arguments of the client's (docs/interface.md); texts are UTF-16.
///
/// When something reaches Word is the writer's business, up to `finish`.
///
/// Errors: a failed Word call raises `_com_error`, a null Word pointer one with E_POINTER. What failed
/// otherwise is a `QdxException`. The writer can be used after either.
///
/// Threading: that of the document.
class DocumentWriter
{
public:
    virtual ~DocumentWriter() = default;

    /// Empties the document and makes it the one to write; comes first, and once.
    virtual void begin(const Word::_ApplicationPtr& application, const Word::_DocumentPtr& document) = 0;

    /// Brings everything that has been put off into the document; called before the document is saved for the
    /// last time. Where it fails, it can be called again and goes on behind what failed.
    virtual void finish() = 0;
    /// Whether `finish` has nothing left to do; a writer that is destroyed earlier loses the rest.
    [[nodiscard]] virtual bool isFinished() const = 0;
    /// Whether a session whose next document could not be made goes on with the writer's, under its name;
    /// otherwise `close` saves what Word made last, under the name said last.
    [[nodiscard]] virtual bool keepsDocument() const = 0;

    /// The document's pages have been given another size or other margins, or may have been.
    virtual void pageChanged() = 0;
    /// A save is coming, with more content behind it.
    virtual void prepareSave() = 0;
    /// Word's number of the format to save under that name; a missing argument: Word's own choice. May be
    /// asked before `begin`.
    [[nodiscard]] virtual _variant_t saveFormat(std::wstring_view fileName) const = 0;

    /// Gives the writer a copy of a trace, for what it has to report itself.
    virtual void setTrace(const Trace& trace) = 0;

    /// `text` as far as the writer understands it: markup is looked for in that, and the pieces of a text
    /// with markup are pieces of it.
    [[nodiscard]] virtual std::wstring understood(const wchar_t* text) const = 0;

    /// \name Text
    /// @{
    /// Ends at its first NUL; null is an empty text. No markup is looked for.
    virtual void insertText(BSTR text) = 0;
    virtual void insertEndl() = 0;
    virtual void insertPageBreak() = 0;
    virtual void insertField(short number) = 0;
    /// @}

    /// \name Headers and footers
    /// @{
    virtual void startHeader() = 0;
    virtual void endHeader() = 0;
    virtual void startFooter() = 0;
    virtual void endFooter() = 0;
    /// @}

    /// \name Formatting
    /// @{
    /// Raises `QdxException` "ERR Unknown style: " + name when the document has no such style.
    virtual void setStyle(const wchar_t* name) = 0;
    virtual void setFontName(const wchar_t* name) = 0;
    virtual void setFontSize(short points) = 0;
    virtual void setFontAttribute(short attribute, bool isOn) = 0;
    virtual void setTextAlign(short number) = 0;
    /// @}

    /// \name Tables
    /// @{
    virtual void startTable() = 0;
    virtual void addRow() = 0;
    virtual void addCell() = 0;
    virtual void endTable() = 0;
    virtual void setTableRowHeight(long points) = 0;
    /// @}

    /// \name Table of contents
    /// @{
    /// `level`: lowest heading level to list.
    virtual void insertTOC(short level) = 0;
    virtual void startTOCEntry() = 0;
    virtual void endTOCEntry() = 0;
    /// @}

    /// \name Files, links and tags
    /// Texts may be null, which is an empty text.
    /// @{
    virtual void insertFile(const wchar_t* fileName, short insertAsType) = 0;
    virtual void insertImage(const wchar_t* imageFileName, const wchar_t* fileOrUrl) = 0;
    virtual void insertXref(const wchar_t* text, const wchar_t* tagName) = 0;
    virtual void insertTag(const wchar_t* tagName) = 0;
    /// @}
};
