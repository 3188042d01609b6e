#include "Script.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace replay {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// "start", "+create" for what was added, "new client", "trace in body"; names and texts in brackets.
std::vector<std::string> stepsOf(const Script& script)
{
    std::vector<std::string> steps;
    for (const Step& step : script.steps) {
        if (step.kind == Step::Kind::newClient)
            steps.emplace_back("new client");
        else if (step.kind == Step::Kind::traceInBody)
            steps.emplace_back("trace in body");
        else {
            std::string text = (step.isAdded ? "+" : "") + std::string(formOf(step.call.method).name);
            if (!step.call.texts[0].empty())
                text += "(" + step.call.texts[0] + ")";
            steps.push_back(std::move(text));
        }
    }
    return steps;
}

Script scriptOf(std::string_view log)
{
    return scriptOf(readLog(log));
}

constexpr std::string_view twoDocuments = "mirovel->overrideRegistry(\"Word\",\"Compose\",\"1\",2);\n" // 1
                                          "mirovel->start();\n"                                        // 2
                                          "mirovel->create(\"c:\\x\\a.doc\");\n"                       // 3
                                          "// Page 1\n"                                                // 4
                                          "mirovel->insertText(\"one\");\n"                            // 5
                                          "mirovel->close();\n"                                        // 6
                                          "mirovel->create(\"c:\\y\\b.doc\");\n"                       // 7
                                          "// Page 1\n"                                                // 8
                                          "mirovel->insertText(\"two\");\n"                            // 9
                                          "mirovel->insertText(\"three\");\n"                          // 10
                                          "mirovel->close();\n"                                        // 11
                                          "mirovel->stop();\n";                                        // 12

TEST(ScriptTest, HasTheCallsOfTheLog)
{
    const Script script = scriptOf(twoDocuments);
    EXPECT_THAT(stepsOf(script), ElementsAre("overrideRegistry(Word)", "start", "create(c:\\x\\a.doc)",
                                             "insertText(one)", "close", "create(c:\\y\\b.doc)",
                                             "insertText(two)", "insertText(three)", "close", "stop"));
    EXPECT_THAT(script.doubts, IsEmpty());
    EXPECT_EQ(script.callCount(), 10U);
}

TEST(ScriptTest, AddsWhatMustHaveBeenCalled)
{
    Script script = scriptOf("mirovel->insertTag(\"t\");\nmirovel->insertEndl();\n");
    EXPECT_THAT(stepsOf(script), ElementsAre("insertTag(t)", "+start", "+create", "insertEndl"));
    EXPECT_THAT(script.doubts, ElementsAre(Doubt{DoubtKind::noStart, 2}, Doubt{DoubtKind::noCreate, 2}));
    EXPECT_THROW(requireNames(script), NoSuchName);
    EXPECT_THROW(moveDocuments(script, "c:\\z"), NoSuchName);
    nameDocument(script, "c:\\a.doc");
    EXPECT_NO_THROW(requireNames(script));
    EXPECT_THAT(stepsOf(scriptOf("mirovel->create(\"a\");\n")), ElementsAre("+start", "create(a)"));
    EXPECT_THAT(stepsOf(scriptOf("mirovel->stop();\n")), ElementsAre("+start", "stop"));
}

TEST(ScriptTest, KnowsAnotherClientByItsStart)
{
    const Script script =
        scriptOf("mirovel->start();\nmirovel->create(\"a\");\nmirovel->start();\nmirovel->insertEndl();\n");
    EXPECT_THAT(stepsOf(script),
                ElementsAre("start", "create(a)", "new client", "start", "+create", "insertEndl"));
    EXPECT_THAT(script.doubts,
                ElementsAre(Doubt{DoubtKind::anotherClient, 3}, Doubt{DoubtKind::noCreate, 4}));
}

TEST(ScriptTest, TracesInFrontOfAFileThatIsMissed)
{
    const std::string begin = "mirovel->start();\nmirovel->create(\"a\");\n";
    const std::string missed = "mirovel->insertFile(\"f\",0);\nERR File not found: f\n";
    EXPECT_THAT(stepsOf(scriptOf(begin + "mirovel->insertEndl();\n" + missed + "ERR File not found: f\n")),
                ElementsAre("start", "create(a)", "insertEndl", "trace in body", "insertFile(f)"));
    EXPECT_THAT(stepsOf(scriptOf(begin + missed + missed)),
                ElementsAre("start", "create(a)", "trace in body", "insertFile(f)", "trace in body",
                            "insertFile(f)"));
    EXPECT_THAT(stepsOf(scriptOf(begin + "ERR File not found: f\n")),
                ElementsAre("start", "create(a)", "trace in body"));
    EXPECT_THAT(stepsOf(scriptOf("ERR File not found: f\n")), IsEmpty());
}

TEST(ScriptTest, KeepsLinesAndWhatTheyNeed)
{
    Script script = scriptOf(twoDocuments);
    keepLines(script, {10, 10});
    complete(script);
    EXPECT_THAT(stepsOf(script), ElementsAre("overrideRegistry(Word)", "start", "create(c:\\y\\b.doc)",
                                             "insertText(three)", "+close", "+stop"));
}

TEST(ScriptTest, KeepsLinesUpToTheEnd)
{
    Script script = scriptOf(twoDocuments);
    keepLines(script, {.first = 6});
    complete(script);
    EXPECT_THAT(stepsOf(script),
                ElementsAre("overrideRegistry(Word)", "start", "create(c:\\x\\a.doc)", "close",
                            "create(c:\\y\\b.doc)", "insertText(two)", "insertText(three)", "close", "stop"));
    keepLines(script, {.first = 100});
    EXPECT_THAT(stepsOf(script), IsEmpty());
}

TEST(ScriptTest, KeepsOnlyWhatIsInForce)
{
    Script script =
        scriptOf("mirovel->start();\nmirovel->create(\"a\");\nmirovel->close();\nmirovel->stop();\n"
                 "mirovel->start();\nmirovel->create(\"b\");\nmirovel->insertEndl();\n");
    keepLines(script, {7, 7});
    EXPECT_THAT(stepsOf(script), ElementsAre("start", "create(b)", "insertEndl"));
}

TEST(ScriptTest, KeepsTheDoubtsOfTheLines)
{
    Script script =
        scriptOf("mirovel->start();\nmirovel->setTableRowHeight();\nmirovel->setTableRowHeight();\n");
    keepLines(script, {3, 3});
    EXPECT_THAT(script.doubts, ElementsAre(Doubt{DoubtKind::rowHeight, 3}));
}

TEST(ScriptTest, CompletesWhatBreaksOff)
{
    for (const char* const log : {"", "mirovel->insertTag(\"a\");\n"}) {
        Script script = scriptOf(log);
        const std::size_t count = script.steps.size();
        complete(script);
        EXPECT_EQ(script.steps.size(), count);
    }
    Script script = scriptOf("mirovel->start();\n");
    complete(script);
    EXPECT_THAT(stepsOf(script), ElementsAre("start", "+stop"));
    script = scriptOf("mirovel->start();\nmirovel->create(\"a\");\n");
    complete(script);
    EXPECT_THAT(stepsOf(script), ElementsAre("start", "create(a)", "+close", "+stop"));
    complete(script);
    EXPECT_EQ(script.steps.size(), 4U);
    // Without Word there is no closing.
    script = scriptOf("mirovel->start();\nmirovel->create(\"a\");\nmirovel->stop();\n");
    complete(script);
    EXPECT_EQ(script.steps.size(), 3U);
}

TEST(ScriptTest, PutsSettingsInThePlaceOfItsOwn)
{
    Script script = scriptOf(twoDocuments);
    applySettings(script, {{"word", "COMPOSE", "0"}, {"Word", "TOCLevel", "3"}});
    EXPECT_EQ(
        script.steps.front().call,
        (LoggedCall{.method = Method::overrideRegistry, .texts = {"Word", "Compose", "0"}, .number = 1}));
}

TEST(ScriptTest, NamesDocuments)
{
    Script script = scriptOf(twoDocuments);
    EXPECT_THROW(nameDocument(script, "c:\\z.doc"), NoSuchName);
    moveDocuments(script, "c:\\z");
    EXPECT_EQ(script.steps[2].call.texts[0], "c:\\z\\a.doc");
    EXPECT_EQ(script.steps[5].call.texts[0], "c:\\z\\b.doc");
    moveDocuments(script, "d:\\");
    EXPECT_EQ(script.steps[2].call.texts[0], "d:\\a.doc");
    keepLines(script, {.last = 6});
    nameDocument(script, "e:\\c.doc");
    EXPECT_EQ(script.steps[2].call.texts[0], "e:\\c.doc");
}

TEST(ScriptTest, RefusesOneNameForTwoDocuments)
{
    Script script = scriptOf("mirovel->start();\nmirovel->create(\"c:\\x\\a\");\nmirovel->close();\n"
                             "mirovel->create(\"c:\\y\\a\");\n");
    EXPECT_THROW(moveDocuments(script, "c:\\z"), NoSuchName);
    script = scriptOf("mirovel->start();\nmirovel->create(\"c:\\x\\a\");\nmirovel->close();\n"
                      "mirovel->create(\"c:\\x\\a\");\n");
    EXPECT_NO_THROW(moveDocuments(script, "c:\\z"));
}

} // namespace
} // namespace replay
