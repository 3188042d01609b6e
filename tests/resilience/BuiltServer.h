#pragma once

#include "IDocumentPtr.h"
#include "ScratchFolder.h"
#include "ServerModule.h"

#include "ClassRegistration.h"
#include "DocumentContent.h"
#include "InProcessWord.h"

#include <functional>
#include <string>
#include <vector>

_COM_SMARTPTR_TYPEDEF(IClassFactory, __uuidof(IClassFactory));

/// How documents are written; the number is that of the setting "Word/Compose".
enum class Mode
{
    counting = 0,
    typed = 1,
    fragments = 2
};
inline constexpr Mode everyMode[] = {Mode::counting, Mode::typed, Mode::fragments};
std::string nameOf(Mode mode);

/// Long runs are for `make soak` (MIROVEL_SOAK); `make test` makes do with short ones.
bool isSoak();

_bstr_t bstr(const std::string& ascii);

/// What a call by the virtual table comes to: empty for S_OK, otherwise a code or an exception's text.
std::string failureOf(const std::function<HRESULT()>& call);

/// What came of a session.
struct Played
{
    std::vector<std::string> failures;  ///< "insertText: 0x80020009"
    reference::DocumentContent content; ///< when the document was closed
    bool isClosed = false;

    bool operator==(const Played&) const = default;
};

/// A Word stand-in that clients in this apartment find, and looks at documents while they are closed.
class ObservedWord
{
public:
    ObservedWord();
    ~ObservedWord();
    ObservedWord(const ObservedWord&) = delete;
    ObservedWord& operator=(const ObservedWord&) = delete;

    /// Calls of a short session that needs most of what there is, with `object`, from `start` to `stop`.
    Played playShortSession(IDocument* object, Mode mode);
    /// Closes what a failed session has left open in Word.
    void clear();

    standin::InProcessWord word;
    /// Called by a document's end, in the middle of a client's call.
    std::function<void()> whenClosing;

private:
    void observe();

    standin::ClassRegistration registration_;
    ScratchFolder folder_;
    Played played_;
};

/// The built DLL, as COM loads it.
class BuiltServer
{
public:
    BuiltServer();
    [[nodiscard]] IDocumentPtr make() const;

    ServerModule module;

private:
    IClassFactoryPtr factory_;
};
