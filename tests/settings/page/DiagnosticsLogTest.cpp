#include "DiagnosticsLog.h"

#include <gmock/gmock.h>

#include <chrono>
#include <fstream>

namespace {

using namespace std::chrono_literals;

class DiagnosticsLogTest : public testing::Test
{
protected:
    DiagnosticsLogTest() { std::filesystem::create_directories(folder); }
    ~DiagnosticsLogTest() override { std::filesystem::remove_all(folder); }

    std::filesystem::path written(const std::wstring& bareName, std::chrono::minutes ago)
    {
        const std::filesystem::path file = folder / bareName;
        std::ofstream(file) << bareName.size();
        last_write_time(file, std::filesystem::file_time_type::clock::now() - ago);
        return file;
    }

    std::filesystem::path folder =
        std::filesystem::temp_directory_path() / (L"diagnostics-" + std::to_wstring(GetCurrentProcessId()));
    std::wstring name = (folder / L"out.log").wstring();
};

TEST_F(DiagnosticsLogTest, IsTheOneWrittenToLast)
{
    EXPECT_FALSE(newestLog(name));
    written(L"out.1.log", 3min);
    const auto newest = written(L"out.22.log", 2min);
    written(L"out.333.log", 4min);
    written(L"out.22.1.log", 1min);
    written(L"other.1.log", 1min);
    written(L"out.log", 1min);
    EXPECT_EQ(newestLog(name), newest);
}

TEST_F(DiagnosticsLogTest, IsNotThereWithoutItsFolder)
{
    EXPECT_FALSE(newestLog((folder / L"none" / L"out.log").wstring()));
}

TEST_F(DiagnosticsLogTest, LiesInTheTemporaryFolderUnderABareName)
{
    const std::wstring bare = folder.filename().wstring() + L".log";
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / (folder.filename().wstring() + L".7.log");
    std::ofstream(file) << "x";
    EXPECT_EQ(newestLog(bare), file);
    std::filesystem::remove(file);
    EXPECT_EQ(placeOfLogs(bare),
              std::filesystem::temp_directory_path() / (folder.filename().wstring() + L".<process>.log"));
}

TEST_F(DiagnosticsLogTest, IsToldToPeople)
{
    EXPECT_EQ(placeOfLogs(L"c:\\logs\\a.b.log"), L"c:\\logs\\a.b.<process>.log");
    EXPECT_EQ(placeOfLogs(L"c:\\logs\\a"), L"c:\\logs\\a.<process>");
}

} // namespace
