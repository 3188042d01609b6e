// What the counting writer leaves of a client's text. Where things land may be far from what the client
// meant; that the text is there at all is held here, but for the few ways to lose it that
// docs/known-behaviour.md tells of.
#include "RandomSession.h"
#include "RandomSwitches.h"
#include "ReferenceDocument.h"
#include "SessionFiles.h"
#include "SessionPlayer.h"
#include "SessionShrinker.h"

#include "SwitchTable.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <utility>

namespace reference {
namespace {

constexpr std::uint32_t sessions = 1000;

/// Names and texts with links pass through the ANSI code page, which leaves these characters what they are.
bool passesAnyway(char16_t character)
{
    return character < 0x7F;
}

/// A line feed alone behind a character is not counted, and what is inserted next takes a character away.
std::u16string withCountedEnds(std::u16string text)
{
    for (std::size_t i = 1; i < text.size(); ++i)
        if (text[i] == u'\n' && text[i - 1] != u'\r')
            text[i] = u' ';
    return text;
}

bool isTableCall(Method method)
{
    return method == Method::startTable || method == Method::addRow || method == Method::addCell ||
           method == Method::endTable;
}

bool isHeaderCall(Method method)
{
    return method == Method::startHeader || method == Method::endHeader || method == Method::startFooter ||
           method == Method::endFooter;
}

/// Leaves out the calls that are known to lose text.
class Arranger
{
public:
    Session arranged(const Session& session)
    {
        Session result;
        for (ClientCall call : session) {
            note(call.method);
            if (losesText(call))
                continue;
            call.text = withCountedEnds(std::move(call.text));
            result.push_back(std::move(call));
        }
        return result;
    }

private:
    void note(Method method)
    {
        headers_ += method == Method::startHeader ? 1 : 0;
        footers_ += method == Method::startFooter ? 1 : 0;
        if (isHeaderCall(method))
            isInBody_ = method == Method::endHeader || method == Method::endFooter;
        isInTable_ = method == Method::startTable || (isInTable_ && method != Method::endTable);
    }

    [[nodiscard]] bool losesText(const ClientCall& call) const
    {
        switch (call.method) {
        case Method::startHeader: // again: empties what may be the first one
            return headers_ > 1;
        case Method::startFooter:
            return footers_ > 1;
        case Method::insertFile: // a file's content goes to the body, wherever that is
            return !isInBody_ && isContent(call);
        case Method::endTOCEntry:
            return isInTable_;
        default:
            return false;
        }
    }

    static bool isContent(const ClientCall& call)
    {
        const SessionFile* const file = findSessionFile(call.text);
        return file && !file->paragraphs.empty();
    }

    int headers_ = 0;
    int footers_ = 0;
    bool isInBody_ = true;
    bool isInTable_ = false;
};

std::u16string expectedText(const Session& session)
{
    ReferenceDocument document(isAddress);
    document.perform(session);
    std::u16string text;
    for (const std::optional<StoryContent>& story : document.content().stories)
        if (story)
            for (const Token& token : story->tokens)
                if (token.kind == TokenKind::character && passesAnyway(token.character))
                    text += token.character;
    return text;
}

Session withoutFailed(const Session& session, const PlayedSession& played)
{
    Session result;
    for (std::size_t i = 0; i < session.size(); ++i)
        if (!played.failedCalls.contains(i))
            result.push_back(session[i]);
    return result;
}

/// A table that was begun halfway takes the text that follows to nowhere.
bool hasHalfATable(const Session& session, const PlayedSession& played)
{
    for (const std::size_t call : played.failedCalls)
        if (session[call].method == Method::startTable)
            return true;
    return false;
}

/// The client was told so.
bool hasNoDocument(const PlayedSession& played)
{
    return !played.failures.empty() && played.failures.front().starts_with("create: ");
}

/// The characters that the client said more often than the document has them.
std::u16string lost(SessionPlayer& player, const Session& session,
                    const standin::model::Switches& switches = {})
{
    const PlayedSession played = player.play(session, switches);
    if (hasHalfATable(session, played) || hasNoDocument(played))
        return {};
    std::map<char16_t, int> found;
    for (const char16_t character : played.everything)
        ++found[character];
    std::u16string missing;
    for (const char16_t character : expectedText(withoutFailed(session, played)))
        if (--found[character] < 0)
            missing += character;
    return missing;
}

/// What the client said from the first character on that does not follow in the document.
std::u16string outOfOrder(SessionPlayer& player, const Session& session)
{
    const PlayedSession played = player.play(session);
    const std::u16string expected = expectedText(withoutFailed(session, played));
    std::size_t followed = 0;
    for (const char16_t character : played.everything)
        if (followed < expected.size() && expected[followed] == character)
            ++followed;
    return expected.substr(followed);
}

std::u16string lostByDefault(SessionPlayer& player, const Session& session)
{
    return lost(player, session);
}

using Check = std::function<std::u16string(SessionPlayer&, const Session&)>;

Check lostUnder(const standin::model::Switches& switches)
{
    return
        [switches](SessionPlayer& player, const Session& session) { return lost(player, session, switches); };
}

void expectNothing(SessionPlayer& player, const Session& session, const Check& check, std::uint32_t seed)
{
    if (check(player, session).empty())
        return;
    const Session shortest =
        shrink(session, [&](const Session& each) { return !check(player, each).empty(); });
    const std::u16string text = check(player, shortest);
    ADD_FAILURE() << "session " << seed << ", shortened:\n"
                  << stepsOf(shortest) << "lacks \"" << std::string(text.begin(), text.end()) << '"';
}

TEST(CountedTextTest, NoTextIsLost)
{
    SessionPlayer player(Writer::counting);
    for (std::uint32_t seed = 1; seed <= sessions; ++seed)
        expectNothing(player, Arranger().arranged(randomSession(seed, Extent::all)), lostByDefault, seed);
}

/// The failure of such a call ends the one that ends the header halfway.
Session withoutContentsInHeaders(Session session)
{
    bool isInBody = true;
    std::erase_if(session, [&isInBody](const ClientCall& call) {
        if (isHeaderCall(call.method))
            isInBody = call.method == Method::endHeader || call.method == Method::endFooter;
        return call.method == Method::insertTOC && !isInBody;
    });
    return session;
}

/// Without the calls that such a Word refuses, and those of which it is known that they lose text there: an
/// object that took the place of its placeholder takes the character in front of it along, and so does a
/// picture in a table where a cell's range also ends in front of its mark.
Session sessionFor(const standin::model::Switches& switches, std::uint32_t seed)
{
    Session session = Arranger().arranged(randomSession(seed, Extent::all));
    const auto isRichText = [](const ClientCall& call) {
        const SessionFile* const file = findSessionFile(call.text);
        return call.method == Method::insertFile && file && file->kind == SessionFile::Kind::formatted;
    };
    const auto isObject = [](const ClientCall& call) {
        const SessionFile* const file = findSessionFile(call.text);
        return call.method == Method::insertFile && file && file->kind == SessionFile::Kind::sheet;
    };
    const auto isPicture = [](const ClientCall& call) {
        const SessionFile* const file = findSessionFile(call.text);
        return call.method == Method::insertImage ||
               (call.method == Method::insertFile && file && file->kind == SessionFile::Kind::picture);
    };
    if (!switches.insertFileTakesRtf)
        std::erase_if(session, isRichText);
    if (!switches.headerTakesContents)
        session = withoutContentsInHeaders(std::move(session));
    if (!switches.shapeReplacesNothing)
        std::erase_if(session, isObject);
    if (!switches.shapeReplacesNothing && !switches.cellRangeKeepsMark)
        std::erase_if(session, isPicture);
    return session;
}

TEST(CountedTextTest, NoTextIsLostUnderAnyReadingOfWord)
{
    constexpr std::uint32_t sessionsOfAReading = 10;
    SessionPlayer player(Writer::counting);
    std::uint32_t seed = 10'001;
    for (const standin::model::SwitchEntry& entry : standin::model::switchTable())
        for (std::size_t value = 1; value < entry.values.size(); ++value) {
            standin::model::Switches switches;
            entry.set(switches, value);
            SCOPED_TRACE(namedSwitches(switches));
            for (std::uint32_t i = 0; i < sessionsOfAReading; ++i, ++seed)
                expectNothing(player, sessionFor(switches, seed), lostUnder(switches), seed);
        }
}

TEST(CountedTextTest, NoTextIsLostUnderAnyMixtureOfReadings)
{
    SessionPlayer player(Writer::counting);
    for (std::uint32_t seed = 20'001; seed <= 20'250; ++seed) {
        const standin::model::Switches switches = randomSwitches(seed);
        SCOPED_TRACE(namedSwitches(switches));
        expectNothing(player, sessionFor(switches, seed), lostUnder(switches), seed);
    }
}

TEST(CountedTextTest, TextIsInOrderWhereThereAreNeitherTablesNorHeaders)
{
    SessionPlayer player(Writer::counting);
    for (std::uint32_t seed = 1; seed <= sessions; ++seed) {
        Session session = Arranger().arranged(randomSession(seed, Extent::all));
        std::erase_if(session, [](const ClientCall& call) {
            return isTableCall(call.method) || isHeaderCall(call.method);
        });
        expectNothing(player, session, outOfOrder, seed);
    }
}

// Nothing but a failed call's own doing ends a session early, whatever the calls.
TEST(CountedTextTest, EverySessionCanBeClosedAndTheNextOneWritten)
{
    SessionPlayer player(Writer::counting);
    for (std::uint32_t seed = 1; seed <= sessions; ++seed) {
        EXPECT_FALSE(player.play(randomSession(seed, Extent::all)).content.stories.empty()) << seed;
        ASSERT_EQ(lost(player, {{Method::insertText, u"the next one"}}), u"") << seed;
    }
}

} // namespace
} // namespace reference
