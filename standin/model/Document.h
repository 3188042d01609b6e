#pragma once

#include "Bookmarks.h"
#include "Clock.h"
#include "PageSetup.h"
#include "PositionIndex.h"
#include "Section.h"
#include "Story.h"
#include "Styles.h"
#include "Switches.h"

#include <memory>
#include <string>

namespace standin::model {

/// A document: main story, sections, styles, and what Word knows of its file.
class Document : public std::enable_shared_from_this<Document>
{
public:
    /// Always held by a shared_ptr: `Document::make`.
    static std::shared_ptr<Document> make(std::u16string name, const Switches& switches = {});
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    const Switches& switches() const { return switches_; }

    /// \name File
    ///@{
    const std::u16string& name() const { return name_; } ///< without path, e.g. "Document1"
    const std::u16string& path() const
    {
        return path_;
    } ///< folder without trailing backslash; empty until saved
    std::u16string fullName() const;
    void setFile(std::u16string path, std::u16string name);
    bool isSaved() const { return saved_; }
    void setSaved(bool saved) { saved_ = saved; }
    std::int32_t saveFormat() const { return saveFormat_; } ///< Word's number
    void setSaveFormat(std::int32_t format) { saveFormat_ = format; }
    ///@}

    /// \name Content
    ///@{
    const std::shared_ptr<Story>& mainStory() const { return mainStory_; }
    Styles& styles() { return styles_; }
    const Styles& styles() const { return styles_; }
    Bookmarks& bookmarks() { return bookmarks_; }
    const Bookmarks& bookmarks() const { return bookmarks_; }
    /// What fields take the time from; the system's clock unless another one is set.
    const Clock& clock() const { return clock_; }
    void setClock(Clock clock) { clock_ = std::move(clock); }
    ///@}

    /// \name Sections, 1-based; raise 5941 for an index that there is not.
    ///@{
    std::int32_t sectionCount() const { return static_cast<std::int32_t>(sections_.size()) + 1; }
    SectionPtr section(std::int32_t index) const;
    std::int32_t sectionIndexAt(Position position) const;
    std::int32_t indexOf(const Section& section) const;
    /// The section that the story's text at `position` is part of; a header's is the one that owns it.
    SectionPtr sectionOf(const Story& story, Position position) const;
    Position sectionStart(std::int32_t index) const;
    Position sectionEnd(std::int32_t index) const; ///< behind the section's mark
    /// The text before gets the section's settings, the text behind a new section with the same settings
    /// whose headers and footers are linked. Inserts the section mark at `at`; raises 4605 inside a table.
    SectionPtr breakSection(Position at, SectionStart start);
    /// Word keeps this one setting for the whole document: sets it in every section.
    void setOddAndEvenPages(bool value);
    ///@}

    /// No more use: every range, section and story of it raises 5825 from now on.
    void close();
    bool isClosed() const { return closed_; }

    /// Called by the stories after every change.
    void textInserted(const Story& story, Position at, Position count);
    void textErased(const Story& story, Position start, Position end);
    void touched() { saved_ = false; }

private:
    Document(std::u16string name, const Switches& switches);
    void eraseSections(Position start, Position end);

    Switches switches_;
    std::u16string name_;
    std::u16string path_;
    bool saved_ = true;
    std::int32_t saveFormat_ = 0;
    bool closed_ = false;
    Styles styles_;
    std::shared_ptr<Story> mainStory_;
    PositionIndex<SectionPtr> sections_; ///< keyed by the position behind the section mark
    SectionPtr lastSection_;
    Bookmarks bookmarks_;
    Clock clock_ = systemTime;
};

using DocumentPtr = std::shared_ptr<Document>;

} // namespace standin::model
