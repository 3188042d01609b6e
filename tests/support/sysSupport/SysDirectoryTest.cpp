#include "sysSupport/SysDirectory.h"

#include "TestFolder.h"

#include <gtest/gtest.h>
#include <string>
#include <windows.h>

TEST(SysDirectoryTest, TellsTheCurrentDirectory)
{
    const QdxString before = SysDirectory::current();
    ASSERT_FALSE(before.isEmpty());
    const TestFolder folder;
    ASSERT_TRUE(SetCurrentDirectoryA(folder.path().data()));
    EXPECT_STRCASEEQ(SysDirectory::current().data(), folder.path().data());
    ASSERT_TRUE(SetCurrentDirectoryA("c:\\"));
    EXPECT_STRCASEEQ(SysDirectory::current().data(), "c:\\");
    SetCurrentDirectoryA(before.data());
}
