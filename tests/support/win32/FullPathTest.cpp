#include "win32/FullPath.h"

#include "ScratchFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

class FullPathTest : public testing::Test
{
protected:
    FullPathTest() : former_(std::filesystem::current_path())
    {
        std::filesystem::current_path(folder_.path());
    }
    ~FullPathTest() override { std::filesystem::current_path(former_); }

    std::wstring here(const std::wstring& name) const
    {
        return (std::filesystem::path(folder_.path()) / name).wstring();
    }

private:
    ScratchFolder folder_;
    std::filesystem::path former_;
};

TEST_F(FullPathTest, BeginsAtTheCurrentDirectory)
{
    EXPECT_EQ(fullPath(L"a.txt"), here(L"a.txt"));
    EXPECT_EQ(fullPath(L"x\\..\\a.txt"), here(L"a.txt"));
    EXPECT_EQ(fullPath(L"c:\\a.txt"), L"c:\\a.txt");
}

TEST_F(FullPathTest, MayBeLongerThanMostPaths)
{
    const std::wstring name(1000, L'x');
    EXPECT_EQ(fullPath(name), here(name));
    for (std::size_t length = 200; length < 270; ++length) // about where the first attempt no longer holds it
        EXPECT_EQ(fullPath(L"c:\\" + std::wstring(length, L'y')).size(), length + 3);
}

TEST_F(FullPathTest, OfNothingIsNothing)
{
    EXPECT_EQ(fullPath(L""), L"");
}

} // namespace
