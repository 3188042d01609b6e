#pragma once

#include "ClientCall.h"
#include "DocumentContent.h"
#include "NoRunningFiles.h"
#include "SessionFolder.h"
#include "SessionLook.h"

#include "IDocumentPtr.h"

#include "ClassRegistration.h"
#include "InProcessWord.h"
#include "Mirovel.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace reference {

/// What came of a session.
struct PlayedSession
{
    DocumentContent content;   ///< when the document was closed
    DocumentContent restyled;  ///< the same with another font in every style; only of composed documents
    std::u16string everything; ///< all characters of the stories, codes of fields included
    std::set<std::size_t> failedCalls; ///< of the session
    std::vector<std::string> failures; ///< "insertText: 0x80020009"; what does not fit in the model as well
};

enum class Writer
{
    counting, ///< as by default
    typed,    ///< composes with typed calls
    fragments ///< composes with fragments of RTF
};

/// What tests with this writer are called.
std::string testName(Writer writer);
inline std::string nameOfWriter(const testing::TestParamInfo<Writer>& info)
{
    return testName(info.param);
}

/// Plays sessions, each as a document of its own, with a client and a Word stand-in in this process.
class SessionPlayer
{
public:
    explicit SessionPlayer(Writer writer);
    ~SessionPlayer();
    SessionPlayer(const SessionPlayer&) = delete;
    SessionPlayer& operator=(const SessionPlayer&) = delete;

    /// Of the sessions from the next one on.
    void setLook(const SessionLook& look) { look_ = look; }
    [[nodiscard]] const SessionLook& look() const { return look_; }
    [[nodiscard]] bool composes() const { return writer_ != Writer::counting; }
    PlayedSession play(const Session& session, const standin::model::Switches& switches = {});

    /// \name For other clients
    ///@{
    /// Makes the call, with the paths of the files of sessions.
    HRESULT call(IDocument& client, const ClientCall& call) const;
    [[nodiscard]] standin::InProcessWord& word() { return word_; }
    ///@}

    /// \name Failures
    ///@{
    /// From the next session's `create` on, that many calls later: that Word call fails, or all from it on.
    struct Fault
    {
        long call = 0; ///< from 1; 0: none
        HRESULT result = E_FAIL;
        bool lasts = false;
        int rejections = 0; ///< Not a failure: a busy Word rejects the call so often before it takes it.
    };
    void setFault(const Fault& fault) { fault_ = fault; }
    /// For how many seconds a busy Word is asked again; 30 without this. Counts from the next `create` on.
    void setBusyTimeout(int seconds);
    /// The client's diagnostics go to a file of that name, with the process's number in it.
    void writeDiagnostics(const std::string& file);
    /// Word calls of the last session, from `create` to the end of closing.
    [[nodiscard]] long wordCalls() const { return wordCalls_; }
    /// Releases the client, for good; the COM objects of Word that are left.
    long release();
    ///@}

private:
    void makeClient();
    void overrideLook();
    void override(const char* group, const char* name, const std::string& value);
    void read(const standin::model::Document& document);
    [[nodiscard]] std::u16string withPaths(const ClientCall& call) const;
    bool perform(const ClientCall& call);
    template <class Call>
    bool attempt(const char* name, Call&& call);
    void close(int attempts);

    Writer writer_;
    NoRunningFiles noRunningFiles_; ///< The stand-in here announces none.
    const SessionFolder& files_ = SessionFolder::shared();
    standin::InProcessWord word_;
    standin::ClassRegistration registration_;
    IDocumentPtr client_;
    PlayedSession played_;
    bool isRead_ = false;
    SessionLook look_;
    Fault fault_;
    long wordCalls_ = 0;
};

} // namespace reference
