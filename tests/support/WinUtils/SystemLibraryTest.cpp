#include "WinUtils/SystemLibrary.h"

#include "Hresult.h"

#include <gtest/gtest.h>

#include <comdef.h>
#include <commctrl.h>

namespace {

TEST(SystemLibraryTest, FindsFunctions)
{
    const SystemLibrary library(L"comctl32.dll");
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_UPDOWN_CLASS};
    EXPECT_NE(library.function<decltype(InitCommonControlsEx)>("InitCommonControlsEx")(&classes), FALSE);
}

TEST(SystemLibraryTest, LetsGoOfTheLibrary)
{
    ASSERT_EQ(GetModuleHandleW(L"traffic.dll"), nullptr);
    {
        const SystemLibrary library(L"traffic.dll");
        EXPECT_NE(GetModuleHandleW(L"traffic.dll"), nullptr);
    }
    EXPECT_EQ(GetModuleHandleW(L"traffic.dll"), nullptr);
}

TEST(SystemLibraryTest, LooksIntoTheSystemFolderOnly)
{
    // It lies beside this program, where Windows looks first by itself.
    const HMODULE neighbour = LoadLibraryW(GUARD_MODULE);
    ASSERT_NE(neighbour, nullptr);
    FreeLibrary(neighbour);
    EXPECT_THROW(SystemLibrary{GUARD_MODULE}, _com_error);
}

TEST(SystemLibraryTest, SaysWhatIsMissing)
{
    try {
        const SystemLibrary library(L"no-such-library.dll");
        FAIL() << "loaded";
    } catch (const _com_error& e) {
        EXPECT_THAT(e.Error(), isHresult(HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND)));
    }
    const SystemLibrary library(L"comctl32.dll");
    try {
        (void)library.function<void()>("NoSuchFunction");
        FAIL() << "found";
    } catch (const _com_error& e) {
        EXPECT_THAT(e.Error(), isHresult(HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND)));
    }
}

} // namespace
