#pragma once

#include "BookmarkMgr.h"
#include "QdxString.h"
#include "registry/RegisterCache.h"
#include "tracedll/Trace.h"

#include "Word.h"

#include <cstdint>
#include <list>

class MirovelSection;

/// Everything a `Mirovel` object knows. The record owns its writers and holds counted references to the Word
/// objects.
struct DocSession
{
    DocSession();
    /// Every writer must be gone by then: destroying one calls Word and may fail.
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

    /// Destroys the header, footer and main writers, in that order, which completes their pending work. The
    /// first failure leaves the ones after it alive; called again, it goes on with those.
    void releaseSections();

    /// The writer that content goes to; raises `_com_error` with E_POINTER when there is none.
    MirovelSection& writer() const;
};

/// Destroys a writer, of which `section` forgets first: its pending work may fail.
void destroySection(MirovelSection*& section);
