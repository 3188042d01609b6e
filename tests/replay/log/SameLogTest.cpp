// Which calls leave the same log, and whether the reader says so: all short sessions of calls with texts that
// are made for it.
#include "AnchorCalls.h"
#include "LogCalls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>

namespace replay {
namespace {

using Calls = std::vector<LoggedCall>;

constexpr std::array<std::string_view, 14> texts = {"",
                                                    "a",
                                                    "a\nb",
                                                    "a\r\nb",
                                                    "\"",
                                                    "\",\"",
                                                    "a\",\"b",
                                                    ",\"",
                                                    "\");",
                                                    "\");\nb",
                                                    "a\nmirovel->insertEndl();\nb",
                                                    "x<a href=\"t\">l</a>",
                                                    "\",1);",
                                                    "\r"};

/// As the object writes it.
std::string logOf(const Calls& calls)
{
    std::string log;
    for (const LoggedCall& call : calls) {
        log += echoOf(call);
        if (call.method != Method::insertText)
            continue;
        AnchorCalls own(call.texts[0]);
        for (std::string next = own.next(); !next.empty(); next = own.next())
            log += next;
    }
    return log;
}

Calls allCalls()
{
    Calls calls = {{.method = Method::insertEndl},
                   {.method = Method::setFontAttribute, .number = 1, .isOn = true},
                   {.method = Method::setFontAttribute, .number = 3, .isOn = true},
                   {.method = Method::setFontAttribute, .number = 5, .isOn = true}};
    for (const std::string_view text : texts) {
        const std::string first(text);
        calls.push_back({.method = Method::insertText, .texts = {first}});
        calls.push_back({.method = Method::insertFile, .texts = {first}, .number = 1});
        for (const std::string_view other : texts) {
            calls.push_back({.method = Method::insertXref, .texts = {first, std::string(other)}});
            calls.push_back({.method = Method::insertImage, .texts = {first, std::string(other)}});
            calls.push_back(
                {.method = Method::overrideRegistry, .texts = {"g", first, std::string(other)}, .number = 1});
        }
    }
    return calls;
}

/// With line ends and numbers as a reading has them.
Calls asRead(Calls calls)
{
    for (LoggedCall& call : calls) {
        if (call.method == Method::setFontAttribute && attributeName(call.number).empty())
            call.number = 0;
        for (std::string& text : call.texts)
            for (std::size_t at = text.find('\n'); at != text.npos; at = text.find('\n', at + 2))
                if (at == 0 || text[at - 1] != '\r')
                    text.insert(at, 1, '\r');
    }
    return calls;
}

class SameLogs
{
public:
    void add(const Calls& calls) { sessions_[logOf(calls)].push_back(calls); }

    void check() const
    {
        std::size_t shared = 0;
        for (const auto& [log, sessions] : sessions_) {
            const ReadLog read = readLog(log);
            shared += sessions.size() > 1 ? 1 : 0;
            const bool isCertain = read.doubts.empty();
            EXPECT_FALSE(isCertain && sessions.size() > 1) << sessions.size() << " sessions leave\n" << log;
            EXPECT_TRUE(!isCertain || callsOf(read) == sessions.front()) << log;
            EXPECT_TRUE(std::ranges::none_of(read.pieces, [](const Piece& piece) {
                return piece.kind == PieceKind::notUnderstood;
            })) << log;
            // In whatever way it was read, playing it leaves the same log.
            EXPECT_EQ(logOf(callsOf(read)), log);
            if (testing::Test::HasFailure())
                return;
        }
        EXPECT_GT(shared, 50U);
    }

private:
    std::map<std::string, std::vector<Calls>> sessions_;
};

TEST(SameLogTest, OneCall)
{
    SameLogs logs;
    for (const LoggedCall& call : allCalls())
        logs.add({call});
    logs.check();
}

TEST(SameLogTest, TwoCalls)
{
    SameLogs logs;
    const Calls calls = allCalls();
    for (const LoggedCall& first : calls) {
        logs.add({first});
        // The half of them is enough for a second.
        for (std::size_t i = 0; i < calls.size(); i += 7)
            logs.add({first, calls[i]});
    }
    logs.check();
}

TEST(SameLogTest, MostCallsAreReadAsTheyWereMade)
{
    const Calls calls = allCalls();
    std::size_t right = 0;
    for (const LoggedCall& call : calls)
        right += callsOf(readLog(logOf({call}))) == asRead({call}) ? 1 : 0;
    EXPECT_GT(10 * right, 7 * calls.size()) << right << " of " << calls.size();
}

} // namespace
} // namespace replay
