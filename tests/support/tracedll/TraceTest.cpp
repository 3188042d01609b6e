#include "tracedll/Trace.h"

#include "TestFolder.h"
#include "general/QdxException.h"
#include "sysSupport/SysFile.h"

#include <climits>
#include <gtest/gtest.h>
#include <iostream>
#include <string>
#include <windows.h>

namespace {

QdxString inTemporaryDirectory(const char* name)
{
    char path[MAX_PATH];
    GetTempPathA(MAX_PATH, path);
    return QdxString(path).append(name);
}

} // namespace

TEST(TraceTest, AFreshTraceIsOff)
{
    Trace trace;
    EXPECT_FALSE(trace.isTrace(0));
    EXPECT_FALSE(trace.isTrace(1));
    EXPECT_FALSE(trace.isTrace(INT_MIN + 1));
    trace << "nowhere" << short{1} << 2L << QdxString("x") << std::endl;
}

TEST(TraceTest, IsOnUpToItsLevelWhileOpen)
{
    const TestFolder folder;
    Trace trace;
    trace.setLevel(10);
    EXPECT_FALSE(trace.isTrace(1)) << "not open yet";
    trace.open(folder.file("a.log"));
    EXPECT_TRUE(trace.isTrace(10));
    EXPECT_TRUE(trace.isTrace(1));
    EXPECT_FALSE(trace.isTrace(11));
    trace.setLevel(1);
    EXPECT_TRUE(trace.isTrace(1));
    EXPECT_FALSE(trace.isTrace(10));
    trace.close();
    EXPECT_FALSE(trace.isTrace(1));
    EXPECT_FALSE(trace.isTrace(0));
    trace.setLevel(10);
    EXPECT_FALSE(trace.isTrace(10)) << "a level does not open it";
}

TEST(TraceTest, WritesLinesEndedByCrLf)
{
    const TestFolder folder;
    const QdxString path = folder.file("a.log");
    Trace trace;
    trace.open(path);
    trace << "mirovel->" << QdxString("insert\xe4") << "(" << short{-7} << "," << 100000L << ");" << std::endl
          << std::endl;
    EXPECT_EQ(contentOf(path), "mirovel->insert\xe4(-7,100000);\r\n\r\n");
}

TEST(TraceTest, WritesTheExtremesOfItsNumbers)
{
    const TestFolder folder;
    const QdxString path = folder.file("a.log");
    Trace trace;
    trace.open(path);
    trace << short{SHRT_MIN} << " " << short{SHRT_MAX} << " " << LONG_MIN << " " << LONG_MAX << std::endl;
    EXPECT_EQ(contentOf(path), "-32768 32767 -2147483648 2147483647\r\n");
}

TEST(TraceTest, LineFeedsInsideATextBecomeCrLf)
{
    const TestFolder folder;
    const QdxString path = folder.file("a.log");
    Trace trace;
    trace.open(path);
    trace << "a\nb\r\nc\n\nd\re" << std::endl << "\n" << std::endl;
    EXPECT_EQ(contentOf(path), "a\r\nb\r\nc\r\n\r\nd\re\r\n\r\n\r\n");
}

TEST(TraceTest, EveryFinishedLineIsInTheFileAtOnce)
{
    const TestFolder folder;
    const QdxString path = folder.file("a.log");
    Trace trace;
    trace.open(path);
    trace << "first" << std::endl;
    EXPECT_EQ(contentOf(path), "first\r\n");
    trace << "begun";
    trace << ", ended" << std::endl;
    EXPECT_EQ(contentOf(path), "first\r\nbegun, ended\r\n");
    trace << "unfinished";
    trace.close();
    EXPECT_EQ(contentOf(path), "first\r\nbegun, ended\r\nunfinished");
}

TEST(TraceTest, Appends)
{
    const TestFolder folder;
    const QdxString path = folder.write("a.log", "mirovel->start();\r\n");
    Trace trace;
    trace.open(path);
    trace << "later" << std::endl;
    trace.close();
    trace.open(path);
    trace << "last" << std::endl;
    EXPECT_EQ(contentOf(path), "mirovel->start();\r\nlater\r\nlast\r\n");
}

TEST(TraceTest, OpeningAnotherLogLeavesTheFirst)
{
    const TestFolder folder;
    Trace trace;
    trace.open(folder.file("a.log"));
    trace << "a" << std::endl;
    trace.open(folder.file("b.log"));
    trace << "b" << std::endl;
    EXPECT_EQ(contentOf(folder.file("a.log")), "a\r\n");
    EXPECT_EQ(contentOf(folder.file("b.log")), "b\r\n");
}

TEST(TraceTest, ACopySharesTheFileAndTheLineButNotTheLevel)
{
    const TestFolder folder;
    const QdxString path = folder.file("a.log");
    Trace trace;
    trace.open(path);
    trace.setLevel(10);
    Trace copy(trace);
    trace << "begun ";
    copy << "ended" << std::endl;
    EXPECT_EQ(contentOf(path), "begun ended\r\n");
    trace.setLevel(1);
    EXPECT_TRUE(copy.isTrace(10));
    trace.close();
    EXPECT_TRUE(copy.isTrace(10)) << "the copy holds the log open";
    copy << "after" << std::endl;
    EXPECT_EQ(contentOf(path), "begun ended\r\nafter\r\n");
    copy = trace;
    EXPECT_FALSE(copy.isTrace(1));
}

TEST(TraceTest, TwoTracesMayWriteOneLog)
{
    const TestFolder folder;
    const QdxString path = folder.file("a.log");
    Trace one;
    Trace two;
    one.open(path);
    two.open(path);
    one << "one" << std::endl;
    two << "two" << std::endl;
    one << "one again" << std::endl;
    EXPECT_EQ(contentOf(path), "one\r\ntwo\r\none again\r\n");
}

TEST(TraceTest, AnUnwritableLogIsAnErrorThatNamesIt)
{
    const TestFolder folder;
    const QdxString path = folder.file("missing\\a.log");
    Trace trace;
    trace.open(folder.file("good.log"));
    trace.setLevel(10);
    try {
        trace.open(path);
        ADD_FAILURE() << "opened";
    } catch (const QdxException& error) {
        const std::string expected = std::string("Cannot open trace log ") + path.data() + "\n";
        EXPECT_EQ(std::string(error.reasonText()).substr(0, expected.size()), expected);
        EXPECT_GT(std::string(error.reasonText()).size(), expected.size())
            << "the system's reason is missing";
    }
    EXPECT_TRUE(trace.isTrace(10)) << "the trace stays as it was";
    trace << "still here" << std::endl;
    EXPECT_EQ(contentOf(folder.file("good.log")), "still here\r\n");
    EXPECT_THROW(trace.open(folder.path()), QdxException) << "a directory";
}

TEST(TraceTest, ABareNameLiesInTheTemporaryDirectory)
{
    const QdxString path = inTemporaryDirectory("mirovel-trace-test.log");
    SysFile::deleteFile(path);
    Trace trace;
    trace.open("mirovel-trace-test.log");
    trace << "x" << std::endl;
    trace.close();
    EXPECT_EQ(contentOf(path), "x\r\n");
    SysFile::deleteFile(path);
}

TEST(TraceTest, AnEmptyNameIsTheDefaultLog)
{
    const QdxString path = inTemporaryDirectory("mirovelcom.log");
    SysFile::deleteFile(path);
    Trace trace;
    trace.open("");
    trace << "x" << std::endl;
    trace.close();
    EXPECT_EQ(contentOf(path), "x\r\n");
    SysFile::deleteFile(path);
}

TEST(TraceTest, PurgeRemovesTheLogOfAnEarlierProcess)
{
    const TestFolder folder;
    const QdxString path = folder.write("a.log", "mirovel->start();\r\n");
    Trace::purgeBefore(path);
    EXPECT_FALSE(SysFile::exists(path));
    Trace::purgeBefore(path);
}

TEST(TraceTest, AFileThatIsNoLogIsLeftAsItIs)
{
    const TestFolder folder;
    const QdxString path = folder.write("letter.txt", "Dear reader,\r\n");
    Trace::purgeBefore(path);
    EXPECT_EQ(contentOf(path), "Dear reader,\r\n");
    Trace trace;
    EXPECT_THROW(trace.open(path), QdxException);
    EXPECT_FALSE(trace.isTrace(0));
    Trace::purgeBefore(path); // nor has it become a log of this process
    EXPECT_EQ(contentOf(path), "Dear reader,\r\n");
    EXPECT_TRUE(DeleteFileA(path.data())) << "it is still held open";
}

TEST(TraceTest, PurgeLooksForABareNameWhereOpenDoes)
{
    const QdxString path = inTemporaryDirectory("mirovel-purge-test.log");
    HANDLE file = CreateFileA(path.data(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    CloseHandle(file);
    Trace::purgeBefore("mirovel-purge-test.log");
    EXPECT_FALSE(SysFile::exists(path));
}

TEST(TraceTest, PurgeKeepsALogThatThisProcessHasWritten)
{
    const TestFolder folder;
    const QdxString path = folder.file("a.log");
    Trace trace;
    trace.open(path);
    trace << "ours" << std::endl;
    Trace::purgeBefore(path);
    EXPECT_EQ(contentOf(path), "ours\r\n");
    trace.close();
    Trace::purgeBefore(path);
    QdxString upper(path);
    upper.toUpper();
    Trace::purgeBefore(upper);
    Trace::purgeBefore(folder.file(".\\A.LOG"));
    EXPECT_EQ(contentOf(path), "ours\r\n");
}

TEST(TraceTest, PurgeNeverFails)
{
    const TestFolder folder;
    Trace::purgeBefore(folder.path());
    Trace::purgeBefore("\\\\?\\*");
    Trace::purgeBefore(std::string(100000, 'x').c_str());
}

TEST(TraceTest, ALongLineArrivesWhole)
{
    const TestFolder folder;
    const QdxString path = folder.file("a.log");
    const std::string text(1000000, 'x');
    Trace trace;
    trace.open(path);
    trace << text.c_str() << std::endl;
    EXPECT_TRUE(contentOf(path) == text + "\r\n");
}
