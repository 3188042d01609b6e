#pragma once

#include "ClientCall.h"
#include "DocumentComparison.h"
#include "SessionPlayer.h"

#include "Switches.h"

#include <string>
#include <vector>

namespace reference {

/// In what the document that the player makes of a session differs from what the calls mean.
std::vector<Difference> differencesOf(SessionPlayer& player, const Session& session,
                                      const standin::model::Switches& switches = {});

/// Plays sessions that must come out right, and shows the first ones that do not.
class SessionLaw
{
public:
    explicit SessionLaw(SessionPlayer& player) : player_(player) {}

    /// Adds a test failure with the session as short as it differs.
    void check(const Session& session, const std::string& name,
               const standin::model::Switches& switches = {});
    /// Adds a test failure that counts them, if there were any.
    void conclude() const;

private:
    SessionPlayer& player_;
    int played_ = 0;
    int differing_ = 0;
};

} // namespace reference
