#include "LogReader.h"

#include "LogCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace replay {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view endl = "mirovel->insertEndl();\r\n";

std::vector<PieceKind> kindsOf(const ReadLog& log)
{
    std::vector<PieceKind> kinds;
    for (const Piece& piece : log.pieces)
        kinds.push_back(piece.kind);
    return kinds;
}

std::vector<int> linesOf(const ReadLog& log)
{
    std::vector<int> lines;
    for (const Piece& piece : log.pieces)
        lines.push_back(piece.line);
    return lines;
}

LoggedCall text(std::string_view said)
{
    return {.method = Method::insertText, .texts = {std::string(said)}};
}

const LoggedCall paragraphEnd = {.method = Method::insertEndl};

TEST(LogReaderTest, ReadsEveryMethod)
{
    std::vector<LoggedCall> calls;
    std::string log;
    for (std::size_t i = 0; i < methodCount; ++i) {
        LoggedCall call = {.method = static_cast<Method>(i)};
        switch (formOf(call.method).arguments) {
        case Arguments::none:
            break;
        case Arguments::number:
            call.number = -32768;
            break;
        case Arguments::attribute:
            call.number = 8;
            call.isOn = true;
            break;
        case Arguments::text:
            call.texts = {"a"};
            break;
        case Arguments::textAndNumber:
            call.texts = {"a"};
            call.number = 4;
            break;
        case Arguments::twoTexts:
        case Arguments::pictureAndText:
            call.texts = {"a", "b"};
            break;
        case Arguments::setting:
            call.texts = {"a", "b", "c"};
            call.number = 2;
            break;
        }
        log += echoOf(call);
        calls.push_back(std::move(call));
    }
    const ReadLog read = readLog(log);
    EXPECT_EQ(callsOf(read), calls);
    EXPECT_THAT(read.doubts, ElementsAre(Doubt{DoubtKind::rowHeight, 27}));
}

TEST(LogReaderTest, PassesOverPagesMissingFilesAndFailures)
{
    const ReadLog log =
        readLog("mirovel->create(\"c:\\a\");\r\n// Page 1\r\nmirovel->insertPageBreak();\r\n\r\n"
                "// Page 2\r\nERR File not found: x.bmp\r\nClosing the document\r\n"
                "COMERROR 0x800706ba\r\nWord is unavailable.\r\nReally.\r\n" +
                std::string(endl));
    EXPECT_THAT(kindsOf(log), ElementsAre(PieceKind::call, PieceKind::page, PieceKind::call, PieceKind::page,
                                          PieceKind::missingFile, PieceKind::failure, PieceKind::call));
    EXPECT_THAT(linesOf(log), ElementsAre(1, 2, 3, 4, 6, 7, 11));
    EXPECT_THAT(log.doubts, IsEmpty());
}

TEST(LogReaderTest, TakesQuotesAndBracketsInTextAsText)
{
    EXPECT_THAT(callsOf(readLog("mirovel->insertText(\"a \"b\" (c); \\n\");\r\n" + std::string(endl))),
                ElementsAre(text("a \"b\" (c); \\n"), paragraphEnd));
    EXPECT_THAT(callsOf(readLog("mirovel->insertText(\"\");\");\r\n")), ElementsAre(text("\");")));
    EXPECT_THAT(callsOf(readLog("mirovel->insertText(\"\");\r\n")), ElementsAre(text("")));
}

TEST(LogReaderTest, ReadsATextOnWhereNoLineOfALogFollows)
{
    const ReadLog log = readLog("mirovel->insertText(\"print(\"a\");\r\nreturn;\");\r\n" + std::string(endl));
    EXPECT_THAT(callsOf(log), ElementsAre(text("print(\"a\");\r\nreturn;"), paragraphEnd));
    EXPECT_THAT(log.doubts, ElementsAre(Doubt{DoubtKind::endInText, 1}, Doubt{DoubtKind::lineEnd, 1}));
    EXPECT_THAT(linesOf(log), ElementsAre(1, 3));
}

TEST(LogReaderTest, TakesLinesOfALogWithinATextForText)
{
    const ReadLog log = readLog("mirovel->insertText(\"one\r\nmirovel->insertEndl();\r\ntwo\");\r\n");
    EXPECT_THAT(callsOf(log), ElementsAre(text("one\r\nmirovel->insertEndl();\r\ntwo")));
    EXPECT_THAT(log.doubts, ElementsAre(Doubt{DoubtKind::endInText, 1}, Doubt{DoubtKind::lineEnd, 1}));
}

TEST(LogReaderTest, EndsATextWhereNothingElseIsLeft)
{
    const ReadLog log = readLog("mirovel->insertText(\"a\");\r\nrubbish\r\n" + std::string(endl));
    EXPECT_THAT(callsOf(log), ElementsAre(text("a"), paragraphEnd));
    EXPECT_THAT(kindsOf(log), ElementsAre(PieceKind::call, PieceKind::notUnderstood, PieceKind::call));
    EXPECT_THAT(log.doubts, ElementsAre(Doubt{DoubtKind::endInText, 1}, Doubt{DoubtKind::notUnderstood, 2}));
}

TEST(LogReaderTest, GivesUpOnACallWithoutAnEnd)
{
    const ReadLog log = readLog("mirovel->insertText(\"a\r\n" + std::string(endl));
    EXPECT_THAT(kindsOf(log), ElementsAre(PieceKind::notUnderstood, PieceKind::call));
}

TEST(LogReaderTest, DividesArgumentsWhereThatIsLikely)
{
    const ReadLog log = readLog("mirovel->insertXref(\"a\",\"b\",\"c\");\r\n"
                                "mirovel->insertImage(a b,c.bmp,\"x\",\"y\");\r\n"
                                "mirovel->overrideRegistry(\"g\",\"n\",\"v\",\"w\",1);\r\n"
                                "mirovel->insertFile(\"a\",4\",2);\r\n");
    EXPECT_THAT(
        callsOf(log),
        ElementsAre(
            LoggedCall{.method = Method::insertXref, .texts = {"a\",\"b", "c"}},
            LoggedCall{.method = Method::insertImage, .texts = {"a b,c.bmp", "x\",\"y"}},
            LoggedCall{.method = Method::overrideRegistry, .texts = {"g", "n", "v\",\"w"}, .number = 1},
            LoggedCall{.method = Method::insertFile, .texts = {"a\",4"}, .number = 2}));
    EXPECT_THAT(log.doubts, ElementsAre(Doubt{DoubtKind::arguments, 1}, Doubt{DoubtKind::arguments, 2},
                                        Doubt{DoubtKind::arguments, 3}));
}

TEST(LogReaderTest, TellsWhatTheLogCannotHold)
{
    EXPECT_THAT(readLog("mirovel->setStyle(\"a?\");\r\n").doubts,
                ElementsAre(Doubt{DoubtKind::questionMark, 1}));
    EXPECT_THAT(readLog("mirovel->setTableRowHeight();\r\n").doubts,
                ElementsAre(Doubt{DoubtKind::rowHeight, 1}));
    EXPECT_THAT(readLog("mirovel->setFontAttribute(true);\r\n").doubts,
                ElementsAre(Doubt{DoubtKind::attribute, 1}));
}

TEST(LogReaderTest, LeavesTheObjectsOwnCallsToIt)
{
    const ReadLog log =
        readLog("mirovel->insertText(\"a<a href=\"t\">l</a>\");\r\nmirovel->insertText(\"a\");\r\n"
                "mirovel->insertXref(\"l\",\"t\");\r\nmirovel->insertText(\"\");\r\n"
                "mirovel->insertText(\"\");\r\n");
    EXPECT_THAT(kindsOf(log), ElementsAre(PieceKind::call, PieceKind::ownCall, PieceKind::ownCall,
                                          PieceKind::ownCall, PieceKind::call));
    EXPECT_THAT(callsOf(log), ElementsAre(text("a<a href=\"t\">l</a>"), text("")));
    EXPECT_THAT(log.doubts, IsEmpty());
}

TEST(LogReaderTest, TellsOfOwnCallsThatBreakOff)
{
    const ReadLog log =
        readLog("mirovel->insertText(\"a<a href=\"t\">l</a>\");\r\nmirovel->insertText(\"a\");\r\n" +
                std::string(endl));
    EXPECT_THAT(kindsOf(log), ElementsAre(PieceKind::call, PieceKind::ownCall, PieceKind::call));
    EXPECT_THAT(log.doubts, ElementsAre(Doubt{DoubtKind::anchorCut, 1}));
}

TEST(LogReaderTest, ReadsTheLineBehindOneThatFailedInTheMiddle)
{
    const ReadLog log = readLog("mirovel->setFontAttribute(" + std::string(endl) + std::string(endl));
    EXPECT_THAT(kindsOf(log), ElementsAre(PieceKind::notUnderstood, PieceKind::call, PieceKind::call));
    EXPECT_THAT(linesOf(log), ElementsAre(1, 1, 2));
}

TEST(LogReaderTest, UnderstandsWhatPeopleWriteBetweenTheLines)
{
    const ReadLog log = readLog("// mine\n\nmirovel->insertText(\"a\");\n// more\n\nmirovel->insertEndl();");
    EXPECT_THAT(callsOf(log), ElementsAre(text("a"), paragraphEnd));
    EXPECT_THAT(log.doubts, IsEmpty());
    EXPECT_EQ(log.pieces.back().line, 6);
}

TEST(LogReaderTest, TakesARemarkInACodeSampleForText)
{
    const ReadLog log = readLog("mirovel->insertText(\"f(\"a\");\r\n// then\r\ng();\");\r\n");
    EXPECT_THAT(callsOf(log), ElementsAre(text("f(\"a\");\r\n// then\r\ng();")));
}

TEST(LogReaderTest, RefusesNumbersThatTheLogDoesNotWrite)
{
    for (const char* const line :
         {"setFontSize(012)", "setFontSize(32768)", "setFontSize(-0)", "setFontSize()", "setFontSize( 1)",
          "insertEndl(1)", "insertFile(\"a\",+1)", "insertFile(\"a\")", "setOrientation(1)", "insertText(a)",
          "insertXref(\"a\")", "insertImage(\"a\")", "setFontAttribute(DocBold)",
          "overrideRegistry(\"a\",\"b\",1)"})
        EXPECT_THAT(kindsOf(readLog("mirovel->" + std::string(line) + ";\r\n")),
                    ElementsAre(PieceKind::notUnderstood))
            << line;
}

TEST(LogReaderTest, RefusesZeroBytes)
{
    EXPECT_THROW(readLog(std::string_view("m\0i\0", 4)), NotALog);
    EXPECT_THAT(readLog("").pieces, IsEmpty());
}

TEST(LogReaderTest, DoesNotTakeLinesForTheTextOfACallWithoutAnEnd)
{
    const ReadLog log = readLog("mirovel->insertText(\"a\r\n" + std::string(endl) +
                                "mirovel->insertText(\"b\");\r\nrubbish\r\n");
    EXPECT_THAT(kindsOf(log), ElementsAre(PieceKind::notUnderstood, PieceKind::call, PieceKind::call,
                                          PieceKind::notUnderstood));
}

// A reader that looks for an end again and again would take hours here.
TEST(LogReaderTest, TakesNoLongerThanALogIsLong)
{
    const auto logOf = [](std::string_view line, int lines) {
        std::string log = "mirovel->insertText(\"\r\n";
        for (int i = 0; i < lines; ++i)
            log += line;
        return log + "rubbish";
    };
    for (const char* const line : {"mirovel->insertText(\"a\r\n", "mirovel->insertText(\"a\");\r\nx\r\n",
                                   "mirovel->insertXref(\"a\");\r\n"})
        EXPECT_FALSE(readLog(logOf(line, 200000)).pieces.empty()) << line;
    for (const char* const line : {"mirovel->insertFile(\"a\",99999);\r\n", "mirovel->insertImage(a\");\r\n",
                                   "mirovel->insertText(\"<a href=\"\r\n", "x\");\r\n", "\r\n// a\r\n",
                                   "mirovel->overrideRegistry(\"a\",\"b\",1);\r\n"}) {
        EXPECT_FALSE(readLog(logOf(line, 20000)).pieces.empty()) << line;
        EXPECT_FALSE(readLog("mirovel->insertXref(\"" + logOf(line, 20000)).pieces.empty()) << line;
    }
}

} // namespace
} // namespace replay
