#include "LogFile.h"

#include "ScratchFolder.h"
#include "TextConversion.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>
#include <windows.h>

namespace {

using diagnostics::LogFile;
using diagnostics::Severity;
using testing::MatchesRegex;

TEST(LogFileTest, WritesTimeProcessThreadAndSeverity)
{
    const ScratchFolder folder;
    const std::shared_ptr<LogFile> file = LogFile::open(fromUtf8(folder.file("a.log")));
    file->write(Severity::info, "first");
    file->write(Severity::warning, "second");
    file->write(Severity::error, "third\t\xE2\x82\xAC");
    const std::string who =
        "\t" + std::to_string(GetCurrentProcessId()) + "\t" + std::to_string(GetCurrentThreadId()) + "\t";
    const std::string time = "\\d+-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d.\\d\\d\\d .\\d\\d:\\d\\d";
    EXPECT_THAT(contentOf(folder.file("a.log")),
                MatchesRegex(time + who + "info\tfirst\r\n" + time + who + "warning\tsecond\r\n" + time +
                             who + "error\tthird\t\xE2\x82\xAC\r\n"))
        << "while the file is open";
}

TEST(LogFileTest, AppendsToWhatIsThere)
{
    const ScratchFolder folder;
    folder.write("a.log", "earlier\r\n");
    LogFile::open(fromUtf8(folder.file("a.log")))->write(Severity::info, "later");
    EXPECT_THAT(contentOf(folder.file("a.log")), MatchesRegex("earlier\r\n.*\tinfo\tlater\r\n"));
}

TEST(LogFileTest, IsOneForAllWhoOpenIt)
{
    const ScratchFolder folder;
    const std::shared_ptr<LogFile> file = LogFile::open(fromUtf8(folder.file("a.log")));
    EXPECT_EQ(LogFile::open(fromUtf8(folder.file("A.LOG"))), file);
    EXPECT_NE(LogFile::open(fromUtf8(folder.file("b.log"))), file);
}

TEST(LogFileTest, LetsGoOfTheFileWithTheLastWhoHasIt)
{
    const ScratchFolder folder;
    LogFile::open(fromUtf8(folder.file("a.log")))->write(Severity::info, "x");
    EXPECT_TRUE(std::filesystem::remove(folder.file("a.log")));
}

TEST(LogFileTest, PutsAsideAFileThatHasGrown)
{
    const ScratchFolder folder;
    const std::shared_ptr<LogFile> file = LogFile::open(fromUtf8(folder.file("a.log")), 1000);
    for (int i = 0; i < 100; ++i)
        file->write(Severity::info, "line " + std::to_string(i));
    const std::string newest = contentOf(folder.file("a.log"));
    const std::string older = contentOf(folder.file("a.1.log"));
    const std::string oldest = contentOf(folder.file("a.2.log"));
    EXPECT_EQ(contentOf(folder.file("a.3.log")), "(no file)");
    EXPECT_THAT(newest, testing::EndsWith("line 99\r\n"));
    for (const std::string& content : {newest, older, oldest})
        EXPECT_LE(content.size(), 1000U);
    // Nothing is lost in between.
    std::string all = oldest + older + newest;
    const std::size_t first = std::stoul(all.substr(all.find("line ") + 5));
    for (std::size_t i = first; i < 100; ++i)
        EXPECT_NE(all.find("\tline " + std::to_string(i) + "\r\n"), all.npos) << i;
}

TEST(LogFileTest, TakesNamesBeyondTheCodePage)
{
    const ScratchFolder folder;
    const std::wstring name = fromUtf8(folder.file("")) + L"\x65E5\x672C.log";
    LogFile::open(name)->write(Severity::info, "x");
    EXPECT_TRUE(std::filesystem::exists(name));
}

TEST(LogFileTest, RaisesWhenThereIsNoFile)
{
    const ScratchFolder folder;
    EXPECT_THROW((void)LogFile::open(fromUtf8(folder.file(""))), std::exception);
    EXPECT_THROW((void)LogFile::open(fromUtf8(folder.write("x", "") + "\\a.log")), std::exception);
}

TEST(LogFileTest, KeepsLinesOfSeveralThreadsApart)
{
    const ScratchFolder folder;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([&folder] {
                for (int line = 0; line < 50; ++line)
                    LogFile::open(fromUtf8(folder.file("a.log")))->write(Severity::info, "whole");
            });
    }
    const std::string content = contentOf(folder.file("a.log"));
    std::size_t whole = 0;
    for (std::size_t at = 0; (at = content.find("\tinfo\twhole\r\n", at)) != content.npos; ++at)
        ++whole;
    EXPECT_EQ(whole, 200U);
}

} // namespace
