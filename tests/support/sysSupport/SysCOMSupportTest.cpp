#include "sysSupport/SysCOMSupport.h"

#include "Hresult.h"
#include "TestFolder.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <windows.h>

namespace {

/// {7B1F0D52-6C2E-4B0B-9C55-0E2F4B7A9D31}, a class of this test only.
constexpr CLSID testClass{0x7b1f0d52, 0x6c2e, 0x4b0b, {0x9c, 0x55, 0x0e, 0x2f, 0x4b, 0x7a, 0x9d, 0x31}};
constexpr char testClassText[] = "{7B1F0D52-6C2E-4B0B-9C55-0E2F4B7A9D31}";

class SysCOMSupportTest : public testing::Test
{
protected:
    SysCOMSupportTest() { EXPECT_THAT(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), isHresult(S_OK)); }
    ~SysCOMSupportTest() override { CoUninitialize(); }

    /// Some COM object to announce.
    static IUnknownPtr anObject()
    {
        IStream* stream = nullptr;
        EXPECT_THAT(CreateStreamOnHGlobal(nullptr, TRUE, &stream), isHresult(S_OK));
        return {stream, false};
    }
};

/// A file announced in the running object table as long as it lives.
class Announcement
{
public:
    Announcement(const QdxString& path, IUnknown* object)
    {
        IMonikerPtr moniker;
        EXPECT_THAT(GetRunningObjectTable(0, &table_), isHresult(S_OK));
        EXPECT_THAT(CreateFileMoniker(_bstr_t(path.data()), &moniker), isHresult(S_OK));
        EXPECT_THAT(table_->Register(ROTFLAGS_REGISTRATIONKEEPSALIVE, object, moniker, &cookie_),
                    isHresult(S_OK));
    }
    ~Announcement() { table_->Revoke(cookie_); }
    Announcement(const Announcement&) = delete;
    Announcement& operator=(const Announcement&) = delete;

private:
    IRunningObjectTablePtr table_;
    DWORD cookie_ = 0;
};

} // namespace

TEST_F(SysCOMSupportTest, FindsTheRunningServerOfAClass)
{
    EXPECT_FALSE(SysCOMSupport::getRunningIUnknown(testClassText));
    const IUnknownPtr object = anObject();
    DWORD cookie = 0;
    ASSERT_THAT(RegisterActiveObject(object, testClass, ACTIVEOBJECT_STRONG, &cookie), isHresult(S_OK));
    EXPECT_EQ(SysCOMSupport::getRunningIUnknown(testClassText).GetInterfacePtr(), object.GetInterfacePtr());
    EXPECT_EQ(SysCOMSupport::getRunningIUnknown("7b1f0d52-6c2e-4b0b-9c55-0e2f4b7a9d31").GetInterfacePtr(),
              object.GetInterfacePtr());
    EXPECT_THAT(RevokeActiveObject(cookie, nullptr), isHresult(S_OK));
    EXPECT_FALSE(SysCOMSupport::getRunningIUnknown(testClassText));
}

TEST_F(SysCOMSupportTest, NoServerRunsUnderATextThatIsNoClass)
{
    for (const char* const text : {"", "{", "no such thing", "No.Such.ProgID", "{7B1F0D52-6C2E-4B0B-9C55-}",
                                   "123456789012345678901234567890123456"})
        EXPECT_FALSE(SysCOMSupport::getRunningIUnknown(text)) << text;
}

TEST_F(SysCOMSupportTest, AnAnnouncedFileIsRunning)
{
    const TestFolder folder;
    const QdxString path = folder.write("report.doc", "x");
    EXPECT_FALSE(SysCOMSupport::isFileRunning(path));
    {
        const Announcement announcement(path, anObject());
        EXPECT_TRUE(SysCOMSupport::isFileRunning(path));
        QdxString upper(path);
        upper.toUpper();
        EXPECT_TRUE(SysCOMSupport::isFileRunning(upper));
        EXPECT_FALSE(SysCOMSupport::isFileRunning(folder.file("other.doc")));
    }
    EXPECT_FALSE(SysCOMSupport::isFileRunning(path));
}

TEST_F(SysCOMSupportTest, ARelativePathCountsFromTheCurrentDirectory)
{
    const TestFolder folder;
    const QdxString path = folder.write("report.doc", "x");
    const Announcement announcement(path, anObject());
    char before[MAX_PATH];
    GetCurrentDirectoryA(MAX_PATH, before);
    EXPECT_FALSE(SysCOMSupport::isFileRunning("report.doc"));
    ASSERT_TRUE(SetCurrentDirectoryA(folder.path().data()));
    EXPECT_TRUE(SysCOMSupport::isFileRunning("report.doc"));
    SetCurrentDirectoryA(before);
}

TEST_F(SysCOMSupportTest, OddNamesAreNotRunning)
{
    const std::string longName(40000, 'x');
    for (const char* const odd :
         {"", "*", "a|<>?", "\\\\?\\", ":", "http://a/b.doc", "\xff\xfe", longName.c_str()})
        EXPECT_NO_THROW(EXPECT_FALSE(SysCOMSupport::isFileRunning(odd)) << odd);
}

TEST(SysCOMSupportWithoutComTest, NothingIsRunning)
{
    EXPECT_FALSE(SysCOMSupport::isFileRunning("c:\\a.doc"));
    EXPECT_FALSE(SysCOMSupport::getRunningIUnknown(testClassText));
}
