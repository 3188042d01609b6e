#include "LogFileName.h"

#include <gtest/gtest.h>

namespace {

using diagnostics::bareName;
using diagnostics::isLogFileName;
using diagnostics::logFileName;

TEST(LogFileNameTest, HasTheProcessInFrontOfTheExtension)
{
    EXPECT_EQ(logFileName(L"c:\\logs\\out.log", L"c:\\temp\\", 4711), L"c:\\logs\\out.4711.log");
    EXPECT_EQ(logFileName(L"c:\\logs.d\\out", L"c:\\temp\\", 4711), L"c:\\logs.d\\out.4711");
    EXPECT_EQ(logFileName(L"logs/a.b.txt", L"c:\\temp\\", 1), L"logs/a.b.1.txt");
}

TEST(LogFileNameTest, PutsABareNameIntoTheTemporaryFolder)
{
    EXPECT_EQ(logFileName(L"out.log", L"c:\\temp\\", 1), L"c:\\temp\\out.1.log");
    EXPECT_EQ(logFileName(L"out.log", L"c:\\temp", 1), L"c:\\temp\\out.1.log");
    EXPECT_EQ(logFileName(L"out.log", L"", 1), L"out.1.log");
}

TEST(LogFileNameTest, KnowsABareName)
{
    EXPECT_EQ(bareName(L"c:\\logs\\out.log"), L"out.log");
    EXPECT_EQ(bareName(L"c:out.log"), L"out.log");
    EXPECT_EQ(bareName(L"out.log"), L"out.log");
    EXPECT_EQ(bareName(L"c:\\logs\\"), L"");
}

TEST(LogFileNameTest, KnowsTheFilesOfAllProcesses)
{
    EXPECT_TRUE(isLogFileName(L"out.4711.log", L"c:\\logs\\out.log"));
    EXPECT_TRUE(isLogFileName(L"Out.1.LOG", L"out.log"));
    EXPECT_TRUE(isLogFileName(L"a.b.1.txt", L"logs/a.b.txt"));
    EXPECT_TRUE(isLogFileName(L"out.1", L"out"));
    for (const wchar_t* other : {L"out.log", L"out..log", L"out.x.log", L"out.4711.1.log", L"out-1.log",
                                 L"but.1.log", L"out.1.lob", L"out.1.logs", L"", L".log"})
        EXPECT_FALSE(isLogFileName(other, L"out.log")) << other;
}

} // namespace
