#pragma once

#include "DocumentWriter.h"
#include "SaveFormat.h"
#include "Story.h"
#include "TagNames.h"
#include "WriterEvents.h"
#include "WrittenDocument.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace compose {

/// The composing writer: keeps what the client says until Word has to have it, and brings it into the
/// document then in as few calls as possible, so that the document equals what was said.
///
/// Word has to have it when the document is closed, or saved in between while more waits than
/// `mostWaitingAtSave`; before a file, an object, or a picture that is not kept with the text, whose failure
/// belongs to its own call; before a header whose section is yet to begin; and when more waits than
/// `mostWaiting`.
///
/// A failure of Word's reaches the call during which it happened. What had not been done by then is done the
/// next time.
class Composer : public DocumentWriter
{
public:
    /// How a text is brought into Word.
    enum class Pen
    {
        typed,    ///< call by call
        fragments ///< as a piece of rich text that Word reads in, where that is possible
    };

    /// Bytes, roughly.
    static constexpr std::size_t mostWaiting = 1U << 20U;
    /// The same for an open table, which costs more once it is in Word.
    static constexpr std::size_t mostWaitingInTable = 16U << 20U;
    /// The same when a save comes: so much at most would be missing in the file.
    static constexpr std::size_t mostWaitingAtSave = mostWaiting / 4;

    /// What settings say of how the document looks.
    struct Look
    {
        std::u16string tableStyle = {};    ///< that tables get; empty: none
        std::u16string contentsTitle = {}; ///< the heading of the table of contents; empty: none
    };

    /// `trace`: for what it has to report itself; copied. `events`: null, or lives longer.
    Composer(Pen pen, const Trace& trace, std::wstring installDir, WriterEvents* events, Look look);
    ~Composer() override;

    // DocumentWriter
    void begin(const Word::_ApplicationPtr& application, const Word::_DocumentPtr& document) override;
    void finish() override;
    [[nodiscard]] bool isFinished() const override;
    void pageChanged() override;
    [[nodiscard]] bool keepsDocument() const override { return true; }
    void prepareSave() override;
    [[nodiscard]] _variant_t saveFormat(std::wstring_view fileName) const override
    {
        return saveFormatOf(fileName);
    }
    void setTrace(const Trace& trace) override { trace_ = trace; }
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
    enum class Part
    {
        header,
        footer
    };
    struct PartPlace
    {
        int section;
        Part part;
        auto operator<=>(const PartPlace&) const = default;
    };

    StoryContent& content();
    void write(const wchar_t* text);
    void findTableStyle();
    std::u16string_view titleStyle();
    void startPart(Part part);
    void endPart(Part part);
    std::unique_ptr<Story> makePart(PartPlace place);

    void insertLink(std::u16string_view text, const LinkTarget& target);
    [[nodiscard]] LinkTarget targetOf(const std::u16string& name);
    void addPicture(const std::wstring& file, const LinkTarget* link);
    void insertObject(const std::wstring& file, const char16_t* classType, const char16_t* iconProgram,
                      bool isLinked);
    void reportMissing(const wchar_t* fileName);
    void ignored(Silence why, std::wstring_view concerned = {}) noexcept;
    void heed(bool isTaken, Silence why) noexcept;

    void flushIfMoreWaits(std::size_t most);
    void flushIfMuchWaits() { flushIfMoreWaits(mostWaiting); }
    void tellOfDeadLinks() noexcept;
    void flushAll();
    void complete();
    void giveUpIfStuck();
    [[nodiscard]] std::size_t leftToDo() const;
    void removeDeadLinks();
    [[nodiscard]] bool leadsSomewhere(const LinkTarget& target);

    Word::_DocumentPtr document_;
    Pen pen_;
    std::wstring installDir_;
    Trace trace_;
    WriterEvents* events_;
    Look look_; ///< without the table style, once it was looked for
    TagNames tags_;
    std::set<std::u16string> linkedBookmarks_; ///< Links to them are in Word, come the tags or not.
    std::set<std::u16string> deadTags_;        ///< Links to them were not made, or taken away.
    int tocLevel_ = 0;

    std::unique_ptr<WrittenDocument> written_;
    std::unique_ptr<Story> body_;
    std::map<PartPlace, std::unique_ptr<Story>> parts_;
    std::map<Part, int> openParts_; ///< the section of the header, or footer, that is being written
    Story* current_ = nullptr;      ///< where content goes
    int sections_ = 1;
    bool isFinishing_ = false;
    bool isGivenUp_ = false;
    int failuresInVain_ = 0; ///< of `finish`, since it did anything
    std::size_t leftAtFailure_ = 0;
};

} // namespace compose
