#pragma once

#include "BookmarkMgr.h"
#include "DocumentWriter.h"
#include "LinkDestination.h"
#include "WriterEvents.h"

class MirovelSection;

/// The counting writer: writes each call into Word at once, formats whole runs later, and finds its places by
/// its own count of characters (`MirovelSection`). The body, a header and a footer have a section writer
/// each.
class CountingWriter : public DocumentWriter
{
public:
    /// `trace` is the session's and outlives the writer. The writers of headers and footers get a copy of it
    /// when they are made; that of the body gets one with `setTrace` alone. `events`: null, or lives longer.
    explicit CountingWriter(const Trace& trace, WriterEvents* events = nullptr)
        : trace_(trace), events_(events)
    {
    }
    ~CountingWriter() override;
    CountingWriter(const CountingWriter&) = delete;
    CountingWriter& operator=(const CountingWriter&) = delete;

    // DocumentWriter
    void begin(const Word::_ApplicationPtr& application, const Word::_DocumentPtr& document) override;
    /// Completes the header's writer, the footer's and the body's, in that order. The first failure leaves
    /// the ones after it; called again, it goes on with those.
    void finish() override;
    [[nodiscard]] bool isFinished() const override;
    void pageChanged() override {}
    [[nodiscard]] bool keepsDocument() const override { return false; }
    void prepareSave() override {}
    /// Word's own choice.
    [[nodiscard]] _variant_t saveFormat(std::wstring_view fileName) const override;
    void setTrace(const Trace& trace) override;
    /// What the ANSI code page holds of it.
    [[nodiscard]] std::wstring understood(const wchar_t* text) const override;
    void insertText(BSTR text) override;
    void insertEndl() override;
    void insertPageBreak() override;
    void insertField(short number) override;
    void startHeader() override;
    void endHeader() override;
    void startFooter() override;
    void endFooter() override;
    void setStyle(const wchar_t* name) override;
    void setFontName(const wchar_t* name) override;
    void setFontSize(short points) override;
    void setFontAttribute(short attribute, bool isOn) override;
    void setTextAlign(short number) override;
    void startTable() override;
    void addRow() override;
    void addCell() override;
    void endTable() override;
    void setTableRowHeight(long points) override;
    void insertTOC(short level) override;
    void startTOCEntry() override;
    void endTOCEntry() override;
    void insertFile(const wchar_t* fileName, short insertAsType) override;
    void insertImage(const wchar_t* imageFileName, const wchar_t* fileOrUrl) override;
    void insertXref(const wchar_t* text, const wchar_t* tagName) override;
    void insertTag(const wchar_t* tagName) override;

private:
    /// Where content goes; raises `_com_error` with E_POINTER when that is nowhere.
    [[nodiscard]] MirovelSection& current() const;

    using HeadersFooters = Word::HeadersFootersPtr (Word::Section::*)();
    void startHeaderFooter(MirovelSection*& slot, const char* style, HeadersFooters headersFooters);
    void endHeaderFooter(MirovelSection*& slot);
    [[nodiscard]] LinkDestination resolveLinkTarget(const wchar_t* text);

    void destroySection(MirovelSection*& section);
    void tellOfDeadLinks(const MirovelSection& section) const noexcept;

    const Trace& trace_;
    WriterEvents* events_;
    Word::_ApplicationPtr application_;
    Word::_DocumentPtr document_;
    MirovelSection* mainSection_ = nullptr;    ///< Owned.
    MirovelSection* headerSection_ = nullptr;  ///< Owned; the header being built.
    MirovelSection* footerSection_ = nullptr;  ///< Owned; the footer being built.
    MirovelSection* currentSection_ = nullptr; ///< One of the three: where content goes.
    BookmarkMgr bookmarks_;
};
