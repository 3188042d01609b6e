#include "Diagnostics.h"

#include "ScratchFolder.h"
#include "TextConversion.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <windows.h>

namespace {

using diagnostics::Diagnostics;
using diagnostics::Event;
using testing::HasSubstr;
using testing::MatchesRegex;

std::string processNumber()
{
    return std::to_string(GetCurrentProcessId());
}

class Environment
{
public:
    explicit Environment(const std::wstring& value)
    {
        SetEnvironmentVariableW(L"MIROVEL_DIAGNOSTICS", value.c_str());
    }
    ~Environment() { SetEnvironmentVariableW(L"MIROVEL_DIAGNOSTICS", nullptr); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
};

class DiagnosticsTest : public testing::Test
{
protected:
    [[nodiscard]] std::wstring name(const std::string& file = "a.log") const
    {
        return fromUtf8(folder.file(file));
    }
    [[nodiscard]] std::string written(const std::string& stem = "a") const
    {
        return contentOf(folder.file(stem + "." + processNumber() + ".log"));
    }

    ScratchFolder folder;
    Diagnostics diagnostics;
};

TEST_F(DiagnosticsTest, IsOffUntilAFileIsNamed)
{
    EXPECT_FALSE(diagnostics.isOn());
    diagnostics.open(L"");
    EXPECT_FALSE(diagnostics.isOn());
    diagnostics.write({.what = "nowhere"});
    int asked = 0;
    const auto make = [&asked] {
        ++asked;
        return Event{.what = "told"};
    };
    diagnostics.tell(make);
    EXPECT_EQ(asked, 0) << "what nobody reads is not put together";
    diagnostics.open(name());
    EXPECT_TRUE(diagnostics.isOn());
    diagnostics.tell(make);
    EXPECT_EQ(asked, 1);
    EXPECT_THAT(written(), HasSubstr("\ttold\t"));
}

TEST_F(DiagnosticsTest, SaysToWhomItHappened)
{
    diagnostics.open(name());
    diagnostics.write({.what = "one"});
    diagnostics.setDocument(L"c:\\\x20AC.doc");
    EXPECT_EQ(diagnostics.setMethod("create"), nullptr);
    diagnostics.write({.what = "two"});
    EXPECT_STREQ(diagnostics.setMethod(nullptr), "create");
    diagnostics.setDocument(L"");
    diagnostics.write({.what = "three"});
    EXPECT_THAT(written(), MatchesRegex(".*\tinfo\t#\\d+\t-\t-\tone\t-.*\n"
                                        ".*\t#\\d+\tc:.\xE2\x82\xAC.doc\tcreate\ttwo\t-.*\n"
                                        ".*\t#\\d+\t-\t-\tthree\t-.*\n"));
}

TEST_F(DiagnosticsTest, NumbersTheObjectsOfAProcess)
{
    Diagnostics other;
    diagnostics.open(name());
    other.open(name());
    diagnostics.write({.what = "one"});
    other.write({.what = "other"});
    const std::string lines = written();
    const int first = std::stoi(lines.substr(lines.find('#') + 1));
    EXPECT_THAT(lines, HasSubstr("#" + std::to_string(first + 1) + "\t-\t-\tother"));
}

TEST_F(DiagnosticsTest, FollowsTheName)
{
    diagnostics.open(name("a.log"));
    diagnostics.write({.what = "one"});
    diagnostics.open(name("a.log"));
    diagnostics.write({.what = "two"});
    diagnostics.open(name("b.log"));
    diagnostics.write({.what = "three"});
    diagnostics.open(L"");
    diagnostics.write({.what = "four"});
    EXPECT_THAT(written("a"), MatchesRegex(".*\tone\t.*\n.*\ttwo\t.*\n"));
    EXPECT_THAT(written("b"), MatchesRegex(".*\tthree\t.*\n"));
}

TEST_F(DiagnosticsTest, PutsABareNameIntoTheTemporaryFolder)
{
    diagnostics.open(L"mirovel-diagnostics-test.log");
    wchar_t temporary[MAX_PATH + 1];
    GetTempPathW(MAX_PATH, temporary);
    const std::filesystem::path path =
        std::filesystem::path(temporary) / ("mirovel-diagnostics-test." + processNumber() + ".log");
    EXPECT_EQ(std::filesystem::path(diagnostics.path()), path);
    EXPECT_TRUE(std::filesystem::exists(path));
    diagnostics.open(L"");
    EXPECT_TRUE(std::filesystem::remove(path)) << "and lets go of it";
}

TEST_F(DiagnosticsTest, GoesByTheEnvironmentFirst)
{
    {
        const Environment environment(name("b.log"));
        diagnostics.open(name("a.log"));
        diagnostics.write({.what = "x"});
        EXPECT_THAT(written("b"), HasSubstr("\tx\t"));
        EXPECT_EQ(written("a"), "(no file)");
        diagnostics.open(L"");
        EXPECT_TRUE(diagnostics.isOn());
    }
    const Environment environment(L"");
    diagnostics.open(name("a.log"));
    diagnostics.write({.what = "x"});
    EXPECT_THAT(written("a"), HasSubstr("\tx\t"));
}

TEST_F(DiagnosticsTest, StaysWithAFileWhenTheProcessGoesElsewhere)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::create_directory(folder.file("logs"));
    std::filesystem::current_path(folder.file(""));
    diagnostics.open(L"logs\\a.log");
    std::filesystem::current_path(before);
    EXPECT_EQ(diagnostics.path(), name("logs\\a." + processNumber() + ".log"));
}

TEST_F(DiagnosticsTest, TellsOnceOfAFileThatCannotBeWritten)
{
    folder.write("file", "");
    const std::wstring nowhere = name("file\\mirovel-nowhere-test.log");
    diagnostics.open(nowhere);
    ASSERT_TRUE(diagnostics.isOn()) << "the temporary folder takes its place";
    diagnostics.write({.what = "kept"});
    Diagnostics other;
    other.open(nowhere);
    const std::filesystem::path instead = diagnostics.path();
    EXPECT_EQ(instead.filename(), "mirovel-nowhere-test." + processNumber() + ".log");
    EXPECT_THAT(
        contentOf(instead.string()),
        MatchesRegex(".*\twarning\t.*The diagnostics file cannot be written: .*file.mirovel-nowhere-test"
                     ".*\n.*\tkept\t.*\n"));
    other.open(L"");
    diagnostics.open(L"");
    std::filesystem::remove(instead);
}

TEST_F(DiagnosticsTest, IsOffWhenNoFileCanBeWritten)
{
    folder.write("file", "");
    diagnostics.open(name("file\\"));
    diagnostics.write({.what = "nowhere"});
    diagnostics.open(name("file\\?*|.log"));
    diagnostics.write({.what = "nowhere"});
    EXPECT_FALSE(diagnostics.isOn());
}

} // namespace
