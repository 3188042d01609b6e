// Word calls that fail while a document is composed: what the client was not told of is there, and once.
#include "ClientCall.h"
#include "SessionFiles.h"
#include "SessionPlayer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace reference {
namespace {

using M = Method;

constexpr HRESULT callRejected = 0x80010001;
constexpr HRESULT serverUnavailable = 0x800706BA;

/// Everything there is; each text once.
Session fullSession()
{
    return {
        {M::insertTOC},
        {M::setStyle, u"Heading 1"},
        {M::insertTag, u"top"},
        {M::insertText, u"<<01>>"},
        {M::insertEndl},
        {M::setStyle, u"Normal"},
        {M::insertText, u"<<02>>"},
        {M::setFontName, u"Courier New"},
        {M::setFontAttribute, {}, {}, 1, true},
        {M::insertText, u"<<03>>"},
        {M::setFontAttribute, {}, {}, 1, false},
        {M::insertXref, u"<<04>>", u"top"},
        {M::insertXref, u"<<05>>", u"http://a.example/"},
        {M::insertXref, u"<<06>>", u"never"},
        {M::insertField, {}, {}, 4},
        {M::insertEndl},
        {M::setTextAlign, {}, {}, 2},
        {M::insertText, u"<<07>>"},
        {M::insertEndl},
        {M::startHeader},
        {M::insertText, u"<<08>>"},
        {M::insertField, {}, {}, 1},
        {M::endHeader},
        {M::startFooter},
        {M::insertXref, u"<<09>>", u"top"},
        {M::endFooter},
        {M::startTable},
        {M::addRow},
        {M::addCell},
        {M::insertText, u"<<10>>"},
        {M::insertEndl},
        {M::insertText, u"<<11>>"},
        {M::addCell},
        {M::insertText, u"<<12>>"},
        {M::setTableRowHeight, {}, {}, 20},
        {M::addRow},
        {M::addCell},
        {M::insertText, u"<<13>>"},
        {M::insertImage, std::u16string(pictureName)},
        {M::insertText, u"<<14>>"},
        {M::addCell},
        {M::insertText, u"<<15>>"},
        {M::addRow},
        {M::addCell},
        {M::insertText, u"<<16>>"},
        {M::addCell},
        {M::insertText, u"<<17>>"},
        {M::endTable},
        {M::insertText, u"<<18>>"},
        {M::insertFile, u"letter.rtf"},
        {M::insertText, u"<<19>>"},
        {M::insertFile, u"sheet.xls"},
        {M::insertPageBreak},
        {M::startHeader},
        {M::insertText, u"<<20>>"},
        {M::endHeader},
        {M::insertText, u"<<21>>"},
        {M::insertEndl},
        {M::startTOCEntry},
        {M::insertText, u"<<22>>"},
        {M::endTOCEntry},
        {M::insertTag, u"end"},
        {M::insertPageBreak},
        {M::insertText, u"<<23>>"},
    };
}

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
        undisturbed = player.play(session);
        calls = player.wordCalls();
    }

    /// With one call that fails.
    void disturb(long call, HRESULT result)
    {
        SessionPlayer player(GetParam());
        player.setFault({call, result});
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
        player.setFault({call, serverUnavailable, true});
        const PlayedSession played = player.play(session);
        EXPECT_FALSE(played.failures.empty()) << "call " << call;
        EXPECT_EQ(player.release(), 0) << "call " << call;
    }
}

std::string nameOf(const testing::TestParamInfo<Writer>& info)
{
    return info.param == Writer::typed ? "Typed" : "Fragments";
}

INSTANTIATE_TEST_SUITE_P(Pens, ComposedFaultsTest, testing::Values(Writer::typed, Writer::fragments), nameOf);

} // namespace
} // namespace reference
