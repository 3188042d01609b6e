// Word calls that fail while a document is composed: what the client was not told of is there, and once.
#include "FullSession.h"
#include "SessionPlayer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace reference {
namespace {

constexpr auto callRejected = static_cast<HRESULT>(0x80010001);
constexpr auto serverUnavailable = static_cast<HRESULT>(0x800706BA);

/// The characters of all stories.
std::u16string textOf(const DocumentContent& content)
{
    std::u16string text;
    for (const auto& story : content.stories)
        if (story)
            for (const Token& token : story->tokens)
                text += token.kind == TokenKind::character ? token.character : u'\n';
    return text;
}

std::size_t countOf(const std::u16string& piece, const std::u16string& text)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(piece); at != text.npos; at = text.find(piece, at + piece.size()))
        ++count;
    return count;
}

class ComposedFaultsTest : public testing::TestWithParam<Writer>
{
protected:
    ComposedFaultsTest()
    {
        SessionPlayer player(GetParam());
        player.setLook(look);
        undisturbed = player.play(session);
        calls = player.wordCalls();
    }

    /// With one call that fails.
    void disturb(long call, HRESULT result)
    {
        SessionPlayer player(GetParam());
        player.setLook(look);
        player.setFault({call, result});
        player.setBusyTimeout(0);
        const PlayedSession played = player.play(session);
        const testing::ScopedTrace failures(__FILE__, __LINE__, testing::PrintToString(played.failures));
        ASSERT_FALSE(played.content.stories.empty()) << "it was never closed";
        const std::u16string text = textOf(played.content);
        for (std::size_t i = 0; i < session.size(); ++i) {
            if (!session[i].text.starts_with(u"<<"))
                continue;
            const std::size_t count = countOf(session[i].text, text);
            if (played.failedCalls.contains(i))
                EXPECT_LE(count, 1U) << "text of failed call " << i;
            else
                EXPECT_EQ(count, 1U) << "text of call " << i;
        }
        EXPECT_TRUE(played.content == undisturbed.content || !played.failures.empty())
            << "something was lost without a word";
        EXPECT_EQ(player.release(), 0);
    }

    const SessionLook look{
        .hasStyles = true, .tableStyle = std::u16string(SessionLook::ruledTable), .title = u"Inhalt"};
    const Session session = fullSession();
    PlayedSession undisturbed;
    long calls = 0; ///< that Word gets in it
};

TEST_P(ComposedFaultsTest, PlaysTheSessionUndisturbed)
{
    EXPECT_EQ(undisturbed.failures, std::vector<std::string>());
    EXPECT_GT(calls, 100);
}

TEST_P(ComposedFaultsTest, LoseNothingWithoutAWordWhicheverCallFails)
{
    for (long call = 1; call <= calls && !HasFailure(); ++call) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, "call " + std::to_string(call));
        disturb(call, E_FAIL);
    }
}

TEST_P(ComposedFaultsTest, LoseNothingWithoutAWordWhenWordIsBusyOrGoneForACall)
{
    for (long call = 1; call <= calls && !HasFailure(); call += 7)
        for (const HRESULT result : {callRejected, serverUnavailable}) {
            const testing::ScopedTrace trace(__FILE__, __LINE__, "call " + std::to_string(call));
            disturb(call, result);
        }
}

TEST_P(ComposedFaultsTest, LetsTheClientEndWhenWordHasDied)
{
    for (long call = 1; call <= calls; call += 3) {
        SessionPlayer player(GetParam());
        player.setLook(look);
        player.setFault({call, serverUnavailable, true});
        const PlayedSession played = player.play(session);
        EXPECT_FALSE(played.failures.empty()) << "call " << call;
        EXPECT_EQ(player.release(), 0) << "call " << call;
    }
}

INSTANTIATE_TEST_SUITE_P(Pens, ComposedFaultsTest, testing::Values(Writer::typed, Writer::fragments),
                         nameOfWriter);

} // namespace
} // namespace reference
