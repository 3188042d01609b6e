#pragma once

#include "ComPointers.h"
#include "Diagnostics.h"
#include "DocumentWriter.h"
#include "QdxString.h"
#include "SessionEvents.h"
#include "registry/RegisterCache.h"
#include "registry/SettingsRecord.h"
#include "tracedll/Trace.h"

#include "CallPolicy.h"
#include "Word.h"

#include <cstdint>
#include <list>
#include <memory>

/// Everything a `Mirovel` object knows. The record owns the document's writer and holds counted references to
/// the Word objects.
struct DocSession
{
    DocSession();
    /// What the writer has not completed by then is lost.
    ~DocSession();
    DocSession(const DocSession&) = delete;
    DocSession& operator=(const DocSession&) = delete;

    diagnostics::Diagnostics diagnostics;
    SessionEvents events{diagnostics};
    Trace trace;                 ///< Echo lines and error texts go here.
    std::int32_t pageNumber = 0; ///< Pages as the trace counts them: only breaks made while it echoes.

    std::unique_ptr<DocumentWriter> writer; ///< Of the open document, or of one that could not be completed.

    QdxString fileName;                  ///< Lower-cased, with an extension.
    QdxString startDirectory;            ///< The process's directory when the object was made.
    std::list<QdxString> temporaryFiles; ///< Deleted by `close`.

    bool documentOpen = false;
    bool wordStarted = false;
    bool ownsWord = false; ///< The Word that `start` gave is this object's alone ("Word"/"OwnInstance").
    std::list<Word::_DocumentPtr> ownDocuments; ///< In a Word of one's own: from `create` on, until closed.
    std::int32_t styleChangeCount = 0;          ///< `setStyle` calls since the last intermediate save.
    bool quietErrors = false; ///< Word errors are traced, never thrown: the object is being destroyed.
    bool saveEmf = false;
    VARIANT_BOOL savedGrammarCheck = VARIANT_FALSE; ///< Word's options as `create` found them.
    VARIANT_BOOL savedSpellingCheck = VARIANT_FALSE;
    std::int32_t tocLevel = 0;

    RegisterCache registry;      ///< With the session's overrides.
    SettingsRecord settings;     ///< In force: as `create` found them last, and before it as the object did.
    ITypeLibPtr wordTypeLibrary; ///< Held while Word's objects are; null when it is not registered.
    Word::_DocumentPtr document;
    Word::DocumentsPtr documents;
    Word::_ApplicationPtr application;
    Word::OptionsPtr options;

    Word::CallPolicy wordCalls; ///< As the settings say; the observer is `events`.

    /// Brings what follows from the settings up to date with them.
    void followSettings();
    /// Has the diagnostics written to the file that the settings name now.
    void openDiagnostics() noexcept;

    /// The writer; raises `_com_error` with E_POINTER when there is none.
    [[nodiscard]] DocumentWriter& currentWriter() const;
};
