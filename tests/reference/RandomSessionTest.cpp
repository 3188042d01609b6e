#include "RandomSession.h"

#include "ReferenceDocument.h"
#include "SessionRules.h"
#include "SessionShrinker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <utility>

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
    EXPECT_FALSE(used.contains(M::insertFile));
    EXPECT_FALSE(used.contains(M::setOrientation));
}

bool has(const Session& session, const std::function<bool(std::size_t)>& isAt)
{
    for (std::size_t i = 0; i < session.size(); ++i)
        if (isAt(i))
            return true;
    return false;
}

/// In how many of the first 1,000 sessions of all calls something is.
int sessionsThat(const std::function<bool(const Session&)>& hasIt)
{
    int count = 0;
    for (std::uint32_t seed = 1; seed <= 1000; ++seed)
        count += hasIt(randomSession(seed, Extent::all)) ? 1 : 0;
    return count;
}

TEST(RandomSessionTest, SessionsOfAllCallsAreValidAndUseEveryFileInEveryWay)
{
    std::set<std::pair<std::u16string, int>> files;
    std::set<int> orientations;
    for (std::uint32_t seed = 1; seed <= 1000; ++seed) {
        const Session session = randomSession(seed, Extent::all);
        ASSERT_TRUE(isValid(session)) << seed;
        for (const ClientCall& call : session) {
            if (call.method == M::insertFile)
                files.emplace(call.text, call.number);
            if (call.method == M::setOrientation)
                orientations.insert(call.number);
        }
    }
    for (const SessionFile& file : sessionFiles())
        for (const int kind : {0, 1, 2, 4})
            EXPECT_TRUE(files.contains({std::u16string(file.name), kind})) << kind;
    EXPECT_TRUE(files.contains({u"www.b.example", 0}));
    EXPECT_EQ(orientations.size(), 3U);
}

TEST(RandomSessionTest, CallsThatMeetAtAPlaceAreCommon)
{
    const auto isContent = [](const ClientCall& call) {
        const SessionFile* const file = call.method == M::insertFile ? findSessionFile(call.text) : nullptr;
        return file && !file->paragraphs.empty() && call.number < 2;
    };
    constexpr int often = 50;
    for (const M between : {M::insertText, M::insertXref, M::setStyle})
        EXPECT_GT(sessionsThat([&](const Session& session) {
                      return has(session, [&](std::size_t i) {
                          return i + 2 < session.size() && session[i].method == M::insertTOC &&
                                 session[i + 1].method == between && isContent(session[i + 2]);
                      });
                  }),
                  often / 2);
    const auto follows = [&](M method) {
        return sessionsThat([&](const Session& session) {
            return has(session, [&](std::size_t i) {
                return i + 1 < session.size() && session[i].method == method && isContent(session[i + 1]);
            });
        });
    };
    EXPECT_GT(follows(M::insertTOC), often);
    EXPECT_GT(follows(M::endTable), often);
    EXPECT_GT(sessionsThat([&](const Session& session) {
                  return has(session, [&](std::size_t i) {
                      return i > 0 && session[i].method == M::startTable && isContent(session[i - 1]);
                  });
              }),
              often);
    EXPECT_GT(sessionsThat([&](const Session& session) { return isContent(session.front()); }), often);
}

TEST(RandomSessionTest, TagsMoveAndHeadersAreGoneOnWith)
{
    constexpr int often = 100;
    EXPECT_GT(sessionsThat([](const Session& session) {
                  std::set<std::u16string> tags;
                  return has(session, [&](std::size_t i) {
                      return session[i].method == M::insertTag && !tags.insert(session[i].text).second;
                  });
              }),
              often);
    EXPECT_GT(sessionsThat([](const Session& session) {
                  bool isOpen = false;
                  return has(session, [&](std::size_t i) {
                      const bool starts = session[i].method == M::startHeader;
                      const bool again = starts && isOpen;
                      isOpen = starts || (isOpen && session[i].method != M::endHeader &&
                                          session[i].method != M::insertPageBreak);
                      return again;
                  });
              }),
              often);
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
                       {M::insertXref, u"label", u"GUID 1"},
                       {M::insertFile, u"one line.txt", {}, 4},
                       {M::setOrientation, {}, {}, 1}}),
              "insertText\ta\\tb\\n\\\\ \\u00e4\\ud83d\\ude00\n"
              "insertEndl\n"
              "setFontAttribute\t4\t1\n"
              "setTextAlign\t2\n"
              "insertXref\tlabel\tGUID 1\n"
              "insertFile\tone line.txt\t4\n"
              "setOrientation\t1\n");
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
