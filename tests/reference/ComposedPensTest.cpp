// The two pens of the composing writer against each other: the same document, without a model in between.
#include "DocumentComparison.h"
#include "RandomSession.h"
#include "SessionPlayer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace reference {
namespace {

class ComposedPensTest : public testing::TestWithParam<std::uint32_t>
{
public:
    // Sessions come in lots, so that the lots can be played side by side.
    static constexpr std::uint32_t lots = 8;

protected:
    static constexpr std::uint32_t sessionsInALot = 150;
    static constexpr std::uint32_t firstSession = 400'001;

    /// The documents of the lot's sessions, in order.
    static std::vector<PlayedSession> played(Writer writer)
    {
        SessionPlayer player(writer);
        std::vector<PlayedSession> all;
        for (std::uint32_t i = 0; i < sessionsInALot; ++i)
            all.push_back(player.play(randomSession(seedOf(i), Extent::all)));
        return all;
    }
    static std::uint32_t seedOf(std::uint32_t number)
    {
        return firstSession + GetParam() * sessionsInALot + number;
    }
};

bool isEnd(const Token& token)
{
    return token.kind == TokenKind::paragraphEnd || token.kind == TokenKind::sectionEnd ||
           token.kind == TokenKind::rowEnd;
}

/// What shows nothing may have any style and alignment: an empty paragraph at the end of a story.
DocumentContent withOpenEnds(DocumentContent content)
{
    for (std::optional<StoryContent>& story : content.stories) {
        if (!story || story->tokens.empty())
            continue;
        const std::size_t last = story->tokens.size() - 1;
        if (last == 0 || isEnd(story->tokens[last - 1]))
            story->tokens[last].isFormatOpen = true;
    }
    return content;
}

TEST_P(ComposedPensTest, WriteTheSameDocument)
{
    // One Word at a time: it is found as the running one.
    const std::vector<PlayedSession> typed = played(Writer::typed);
    const std::vector<PlayedSession> fragments = played(Writer::fragments);
    for (std::uint32_t i = 0; i < sessionsInALot; ++i) {
        SCOPED_TRACE("session " + std::to_string(seedOf(i)));
        EXPECT_EQ(printable(compare(withOpenEnds(typed[i].content), fragments[i].content)), "");
        EXPECT_EQ(printable(compare(withOpenEnds(typed[i].restyled), fragments[i].restyled)), "")
            << "with another font in every style";
        EXPECT_EQ(typed[i].failedCalls, fragments[i].failedCalls);
        EXPECT_FALSE(typed[i].content.stories.empty());
    }
}

INSTANTIATE_TEST_SUITE_P(Lots, ComposedPensTest, testing::Range(0U, ComposedPensTest::lots),
                         testing::PrintToStringParamName());

} // namespace
} // namespace reference
