#pragma once

#include "Player.h"

#include "RandomSession.h"
#include "SessionPlayer.h"

#include "ScratchFolder.h"

#include <string>
#include <vector>

namespace replay {

/// What a session leaves behind, its log apart.
struct Recording
{
    std::string log;
    std::string transcript; ///< of Word, from `start` to `stop`, a call a line
    std::size_t wordCalls = 0;
    std::size_t failures = 0; ///< calls of the client that did not succeed

    bool operator==(const Recording&) const = default;
};

/// How a client begins its session.
struct SessionBeginning
{
    reference::Writer writer = reference::Writer::counting;
    bool tracesAgain = false; ///< behind `create`, so that the counting writer tells of missing files
};

/// Plays sessions as a client that traces them, and logs as the replay does, with one Word stand-in. The
/// document of a replay has another name; in what is recorded it has the first one.
class SessionRecorder
{
public:
    static constexpr int rowHeight = 20; ///< as random sessions have it

    SessionRecorder();

    Recording record(const reference::Session& session, const SessionBeginning& beginning);
    Recording replay(const std::string& log, std::vector<Setting> settings = {});

private:
    [[nodiscard]] std::string file(const std::string& name) const { return folder_.file(name); }
    Recording take(const std::string& documentName);

    ScratchFolder folder_;
    reference::SessionPlayer player_;
};

/// The session as its log tells of it: characters of the code page, line ends as CR LF, without the calls
/// that leave no line.
reference::Session asTheLogTells(reference::Session session);

/// The session without the calls that leave no line.
reference::Session withoutSilentCalls(reference::Session session);

} // namespace replay
