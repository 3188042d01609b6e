#pragma once

#include "ClientCall.h"
#include "DocumentContent.h"

#include "ScratchFolder.h"

#include "InProcess.h"
#include "Mirovel.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

_COM_SMARTPTR_TYPEDEF(IDocument, __uuidof(IDocument));

namespace reference {

/// What came of a session.
struct PlayedSession
{
    DocumentContent content;           ///< when the document was closed
    std::vector<std::string> failures; ///< "insertText: 0x80020009"; what does not fit in the model as well
};

/// Plays sessions, each as a document of its own, with a client and a Word stand-in in this process.
class SessionPlayer
{
public:
    enum class Positions
    {
        counted, ///< the writer's own count, as by default
        tracked  ///< "Word"/"TrackPositions"
    };

    explicit SessionPlayer(Positions positions);
    ~SessionPlayer();
    SessionPlayer(const SessionPlayer&) = delete;
    SessionPlayer& operator=(const SessionPlayer&) = delete;

    PlayedSession play(const Session& session, const standin::model::Switches& switches = {});

private:
    void makeClient();
    void perform(const ClientCall& call);
    HRESULT call(const ClientCall& call);
    template <class Call>
    bool attempt(const char* name, Call&& call);
    void close();

    Positions positions_;
    ScratchFolder folder_;
    std::u16string picture_; ///< a file
    standin::Session word_;
    standin::ClassRegistration registration_;
    IDocumentPtr client_;
    PlayedSession played_;
    bool isRead_ = false;
};

} // namespace reference
