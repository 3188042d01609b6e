#pragma once

#include "Application.h"
#include "CalledMember.h"

#include <Word.h>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace standin {
class Server;

struct InProcessWordOptions
{
    ::standin::model::Switches switches;
    /// Each document that has a file is entered in the running object table under it until it is closed, as
    /// Word does. Off by default: it costs a call to another process per document.
    bool documentsInRunningObjectTable = false;
    /// Saving a document writes its file. Without it a document only gets its name: a file costs more than
    /// all that a small document is made of.
    bool writesFiles = true;
    /// What is in a file, for one that a caller keeps itself; the others are read. Opening a file costs as
    /// much as inserting a small one.
    std::function<std::optional<std::string>(const std::wstring& file)> keptFiles = {};
    /// What fields take the time from: always the same moment unless a test wants another, so that nothing
    /// depends on when it runs.
    ::standin::model::Clock clock = [] { return ::standin::model::LocalTime{2000, 1, 31, 13, 5, 9}; };
};

/// A Word stand-in in the caller's own process and apartment, for tests: what a client calls is recorded, can
/// be made to fail, and what became of the documents can be looked at.
///
/// Objects that the client still holds stay usable after this Word's end, and count as leaked until then.
class InProcessWord
{
public:
    explicit InProcessWord(const InProcessWordOptions& options = {});
    ~InProcessWord();
    InProcessWord(const InProcessWord&) = delete;
    InProcessWord& operator=(const InProcessWord&) = delete;

    /// The application object; always the same one.
    Word::_ApplicationPtr application() const;

    /// One line for each call received since the start or since the last clearTranscript, without line ends.
    const std::vector<std::string>& transcript() const;
    /// The member that each of these lines is a call of.
    const std::vector<CalledMember>& calledMembers() const;
    void clearTranscript();

    /// The number of calls received since the start.
    long callCount() const;

    /// Lets one later call fail with `result`: `ordinal` 1 is the next one. The call is recorded and does
    /// nothing. With S_FALSE it succeeds and gives nothing: no object, no text, 0.
    void failCall(long ordinal, HRESULT result);
    /// Lets the call `ordinal` (1 is the next one) and all behind it fail.
    void failFromCall(long ordinal, HRESULT result);
    /// Lets a busy Word reject one later call so many times before it runs. The attempts are recorded, but
    /// only the call that runs counts.
    void rejectCall(long ordinal, HRESULT result, int times = 1);
    /// No call fails on demand any more.
    void clearFaults();

    /// The COM objects of this Word that are alive, the application included as long as anyone outside the
    /// stand-in holds it: 0 when the client has let go of everything.
    long liveObjects() const;

    /// The model behind an open document; null when `document` is not one of this Word's.
    std::shared_ptr<::standin::model::Document> model(Word::_Document* document) const;
    /// The model's application: its options and its open documents, newest first.
    ::standin::model::Application& model() const;

    /// True once the client has called Application.Quit.
    bool hasQuit() const;

private:
    friend class ClassRegistration;
    struct State;

    const std::shared_ptr<Server>& server() const;

    std::unique_ptr<State> state_;
};
} // namespace standin
