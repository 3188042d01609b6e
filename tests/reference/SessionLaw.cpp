#include "SessionLaw.h"

#include "DirectFormatComparison.h"
#include "RandomSession.h"
#include "ReferenceDocument.h"
#include "SessionShrinker.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace reference {

namespace {

constexpr int shownSessions = 3;
/// What a Word that refuses something makes of calls: failures of these, and of no others.
struct Refusals
{
    int contents = 0; ///< in headers, each in a call to `close` of its own
    int files = 0;    ///< each in its `insertFile`
};

/// What the client was told beyond that, or was not told of it.
std::vector<std::string> unexpectedFailures(const PlayedSession& played, const Refusals& refused)
{
    std::vector<std::string> failures = played.failures;
    const auto take = [&failures](std::string_view begin, int expected) {
        const auto told = static_cast<int>(std::erase_if(
            failures, [begin](const std::string& failure) { return failure.starts_with(begin); }));
        if (told != expected)
            failures.push_back(std::to_string(told) + " instead of " + std::to_string(expected) + " times " +
                               std::string(begin));
    };
    take("close: Saving document COMERROR 0x800a11fd ", refused.contents);
    take("insertFile: _com_error 0x800a1066", refused.files);
    return failures;
}

/// The session as short as it can be told with a difference of that kind, and in what its document differs.
std::string report(SessionPlayer& player, const Session& session, const standin::model::Switches& switches,
                   DifferenceKind kind)
{
    const auto differs = [&](const Session& each) {
        const std::vector<Difference> differences = differencesOf(player, each, switches);
        return std::any_of(differences.begin(), differences.end(),
                           [kind](const Difference& difference) { return difference.kind == kind; });
    };
    const Session shortest = shrink(session, differs);
    return stepsOf(shortest) + printable(differencesOf(player, shortest, switches));
}

} // namespace

std::vector<Difference> differencesOf(SessionPlayer& player, const Session& session,
                                      const standin::model::Switches& switches)
{
    using standin::model::LastParagraph;
    ReferenceDocument document(isAddress, switches.insertFileLastParagraph == LastParagraph::dropped,
                               player.look());
    if (!switches.insertFileTakesRtf)
        document.refuseRichText();
    document.perform(session);
    Refusals refused{.files = document.refusedFiles()};
    if (!switches.headerTakesContents)
        refused.contents = document.refuseContentsInHeaders();
    const DocumentContent expected = document.content();
    const PlayedSession played = player.play(session, switches);
    std::vector<Difference> differences = compare(expected, played.content);
    if (player.composes()) {
        const auto direct = compareDirectFormat(expected, played.content, played.restyled);
        differences.insert(differences.end(), direct.begin(), direct.end());
    }
    for (const std::string& failure : unexpectedFailures(played, refused))
        differences.push_back({DifferenceKind::failure, failure});
    return differences;
}

void SessionLaw::check(const Session& session, const std::string& name,
                       const standin::model::Switches& switches)
{
    ++played_;
    const std::vector<Difference> differences = differencesOf(player_, session, switches);
    if (differences.empty())
        return;
    if (++differing_ <= shownSessions)
        ADD_FAILURE() << name << ", shortened:\n"
                      << report(player_, session, switches, differences.front().kind);
}

void SessionLaw::conclude() const
{
    EXPECT_EQ(differing_, 0) << "of " << played_ << " sessions";
}

} // namespace reference
