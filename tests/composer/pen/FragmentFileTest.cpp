#include "FragmentFile.h"

#include "Hresult.h"
#include "ScratchFolder.h"

#include <comdef.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace compose {
namespace {

DWORD errorOfOpening(const std::wstring& path, DWORD access, DWORD share)
{
    const HANDLE file = CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return GetLastError();
    CloseHandle(file);
    return ERROR_SUCCESS;
}

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

TEST(FragmentFileTest, HoldsTheText)
{
    std::string text(3U << 20U, 'x');
    text += std::string("\0\n", 2);
    const FragmentFile file(text);
    std::ifstream stream(file.path().c_str(), std::ios::binary);
    EXPECT_TRUE(std::string(std::istreambuf_iterator<char>(stream), {}) == text);
}

TEST(FragmentFileTest, CanBeReadByOthersButNeitherChangedNorDeleted)
{
    const FragmentFile file("text");
    EXPECT_EQ(errorOfOpening(file.path(), GENERIC_READ, FILE_SHARE_READ), ERROR_SUCCESS);
    EXPECT_EQ(errorOfOpening(file.path(), GENERIC_WRITE, shareAll), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(errorOfOpening(file.path(), DELETE, shareAll), ERROR_SHARING_VIOLATION);
    EXPECT_FALSE(DeleteFileW(file.path().c_str()));
}

TEST(FragmentFileTest, IsGoneAfterwards)
{
    std::wstring path;
    {
        const FragmentFile file("text");
        path = file.path();
        EXPECT_NE(GetFileAttributesW(path.c_str()), INVALID_FILE_ATTRIBUTES);
    }
    EXPECT_EQ(GetFileAttributesW(path.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(FragmentFileTest, HasANameOfItsOwn)
{
    const FragmentFile one("text");
    const FragmentFile other("text");
    EXPECT_NE(one.path(), other.path());
    EXPECT_TRUE(one.path().ends_with(L".rtf"));
}

/// Where Windows says that temporary files go, for the length of a test.
class TemporaryFolder
{
public:
    explicit TemporaryFolder(const std::string& folder)
    {
        for (std::size_t i = 0; i < 2; ++i) {
            wchar_t text[MAX_PATH] = {};
            GetEnvironmentVariableW(names[i], text, MAX_PATH);
            former_[i] = text;
            SetEnvironmentVariableW(names[i], std::wstring(folder.begin(), folder.end()).c_str());
        }
    }
    ~TemporaryFolder()
    {
        for (std::size_t i = 0; i < 2; ++i)
            SetEnvironmentVariableW(names[i], former_[i].c_str());
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

private:
    static constexpr const wchar_t* names[2] = {L"TMP", L"TEMP"};
    std::wstring former_[2];
};

TEST(FragmentFileTest, SaysSoWhereThereIsNoPlaceForIt)
{
    const ScratchFolder folder;
    const TemporaryFolder missing(folder.file("missing"));
    try {
        const FragmentFile file("text");
        FAIL() << "it was made";
    } catch (const _com_error& error) {
        EXPECT_THAT(error.Error(), isHresult(HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND)));
    }
}

} // namespace
} // namespace compose
