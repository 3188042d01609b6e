#include "RandomSession.h"

#include "ReferenceDocument.h"
#include "SessionRules.h"
#include "SessionShrinker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace reference {
namespace {

using M = Method;

TEST(RandomSessionTest, TheSameSeedGivesTheSameSession)
{
    EXPECT_EQ(randomSession(7), randomSession(7));
    EXPECT_NE(randomSession(7), randomSession(8));
    EXPECT_EQ(arrangedSession(7), arrangedSession(7));
}

TEST(RandomSessionTest, SessionsAreValidAndUseEveryMethod)
{
    std::set<M> used;
    for (std::uint32_t seed = 1; seed <= 500; ++seed) {
        const Session session = randomSession(seed);
        ASSERT_TRUE(isValid(session)) << seed;
        for (const ClientCall& call : session)
            used.insert(call.method);
    }
    EXPECT_EQ(used.size(), static_cast<std::size_t>(M::insertImage) + 1);
}

TEST(RandomSessionTest, RulesOfWhatMayFollow)
{
    EXPECT_TRUE(isValid({{M::insertPageBreak}, {M::startHeader}, {M::endHeader}, {M::insertPageBreak}}));
    EXPECT_FALSE(isValid({{M::startHeader}, {M::insertPageBreak}}));
    EXPECT_FALSE(isValid({{M::startTOCEntry}, {M::insertTOC}}));
    EXPECT_TRUE(isValid({{M::startTOCEntry}, {M::startHeader}, {M::insertTOC}}));
    const ClientCall tag = {M::insertTag, u"here"};
    EXPECT_FALSE(isValid({{M::startHeader}, tag, {M::endHeader}, {M::startHeader}}));
    EXPECT_TRUE(isValid({{M::startHeader}, tag, {M::startFooter}, {M::startHeader}}));
    EXPECT_TRUE(isValid({{M::startHeader}, tag, {M::endHeader}, tag, {M::startHeader}}));
    EXPECT_TRUE(isValid({{M::startHeader}, tag, {M::endHeader}, {M::insertPageBreak}, {M::startHeader}}));
}

TEST(RandomSessionTest, StepsCanBePlayedByTheClientOfTheEndToEndTests)
{
    EXPECT_EQ(stepsOf({{M::insertText, u"a\tb\n\\ \u00e4\U0001f600"},
                       {M::insertEndl},
                       {M::setFontAttribute, {}, {}, 4, true},
                       {M::setTextAlign, {}, {}, 2},
                       {M::insertXref, u"label", u"GUID 1"}}),
              "insertText\ta\\tb\\n\\\\ \\u00e4\\ud83d\\ude00\n"
              "insertEndl\n"
              "setFontAttribute\t4\t1\n"
              "setTextAlign\t2\n"
              "insertXref\tlabel\tGUID 1\n");
}

TEST(SessionShrinkerTest, LeavesWhatTheDifferenceNeeds)
{
    const auto needs = [](const Session& session) {
        const auto has = [&session](M method) {
            return std::any_of(session.begin(), session.end(),
                               [method](const ClientCall& call) { return call.method == method; });
        };
        return has(M::startTable) && has(M::insertEndl);
    };
    Session session = randomSession(3);
    session.insert(session.begin() + 1, {M::startTable});
    session.push_back({M::insertEndl});
    const Session shrunk = shrink(session, needs);
    ASSERT_EQ(shrunk.size(), 2u);
    EXPECT_TRUE(needs(shrunk));
}

TEST(SessionShrinkerTest, KeepsSessionsValid)
{
    const Session session = {{M::startHeader}, {M::endHeader}, {M::insertPageBreak}};
    const auto breaksPage = [](const Session& each) {
        return std::find(each.begin(), each.end(), ClientCall{M::insertPageBreak}) != each.end() &&
               std::find(each.begin(), each.end(), ClientCall{M::startHeader}) != each.end();
    };
    EXPECT_EQ(shrink(session, breaksPage), session);
}

} // namespace
} // namespace reference
