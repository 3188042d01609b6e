#pragma once

#include "BookmarkMgr.h"
#include "QdxString.h"
#include "registry/RegisterCache.h"
#include "tracedll/Trace.h"

#include "Word.h"

#include <cstdint>
#include <list>
#include <string_view>

class MirovelSection;
class Placement;

/// Everything a `Mirovel` object knows. The record owns its writers and holds counted references to the Word
/// objects.
struct DocSession
{
    DocSession();
    /// Every writer must be gone by then: `releaseSections`.
    ~DocSession();
    DocSession(const DocSession&) = delete;
    DocSession& operator=(const DocSession&) = delete;

    Trace trace;                 ///< Echo lines and error texts go here.
    std::int32_t pageNumber = 0; ///< Pages as the trace counts them: only breaks made while it echoes.

    MirovelSection* mainSection = nullptr;   ///< Owned.
    MirovelSection* headerSection = nullptr; ///< Owned; the header being built.
    MirovelSection* footerSection = nullptr; ///< Owned; the footer being built.
    MirovelSection* currentSection =
        nullptr; ///< One of the three: where content goes. Null without a document.

    /// A writer that the client has ended and whose links wait for tags that are not placed yet; and the
    /// header or footer it wrote.
    struct WaitingSection
    {
        MirovelSection* writer; ///< Owned.
        bool isHeader;
        std::int32_t sectionNumber;
    };
    std::list<WaitingSection> waitingSections;
    /// The section of the document whose header, or footer, was begun last; 0: none yet.
    std::int32_t headerSectionNumber = 0;
    std::int32_t footerSectionNumber = 0;
    const Placement* placement; ///< The mode in which the document is written.

    QdxString fileName;                  ///< Lower-cased, with an extension.
    QdxString startDirectory;            ///< The process's directory when the object was made.
    std::list<QdxString> temporaryFiles; ///< Deleted by `close`.

    bool documentOpen = false;
    bool wordStarted = false;
    std::int32_t styleChangeCount = 0; ///< `setStyle` calls since the last intermediate save.
    bool quietErrors = false; ///< Word errors are traced, never thrown: the object is being destroyed.
    bool saveEmf = false;
    VARIANT_BOOL savedGrammarCheck = VARIANT_FALSE; ///< Word's options as `create` found them.
    VARIANT_BOOL savedSpellingCheck = VARIANT_FALSE;
    std::int32_t tocLevel = 0;

    RegisterCache registry; ///< With the session's overrides.
    Word::_DocumentPtr document;
    Word::DocumentsPtr documents;
    Word::_ApplicationPtr application;
    Word::OptionsPtr options;
    BookmarkMgr bookmarks;

    /// Completes and destroys the header, footer, main and waiting writers, in that order. The first failure
    /// leaves the ones after it alive; called again, it goes on with those.
    void releaseSections();
    bool hasSections() const;

    /// The writer that content goes to; raises `_com_error` with E_POINTER when there is none.
    MirovelSection& writer() const;
    /// The writer whose page breaks divide the document into sections: the current one, or, tracked, the
    /// body's.
    MirovelSection& dividingWriter() const;

    /// `section` is `headerSection` or `footerSection`.
    /// @{
    /// Whether content for that header or footer of section `number` goes to the writer that is there.
    bool isWriting(const MirovelSection* const& section, std::int32_t number) const;
    void beginSection(MirovelSection*& section, std::int32_t number, const Word::RangePtr& range);
    /// Ends its writer, or lets it wait.
    void endSection(MirovelSection*& section);
    /// @}

    /// The current writer has placed a tag's bookmark: its links will be drawn. Those of that writer, or,
    /// tracked, of all.
    void tagPlaced(const QdxString& bookmark);

    /// Text in the form in which the mode of writing takes it apart and keeps it, and back.
    /// @{
    QdxString held(const wchar_t* text) const;
    _bstr_t said(std::string_view text) const;
    /// @}

private:
    bool isHeader(const MirovelSection* const& section) const { return &section == &headerSection; }
    std::int32_t& numberOf(const MirovelSection* const& section);
    void forgetWaiting(bool isHeader, std::int32_t number);
};

/// Completes a writer's pending work and destroys it. `section` forgets it first: the work may fail, and the
/// writer is gone all the same.
void destroySection(MirovelSection*& section);
