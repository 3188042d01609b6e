#include "WordTypeLibrary.h"

#include "FrontEndTest.h"
#include "ScratchFolder.h"

#include <string>

_COM_SMARTPTR_TYPEDEF(ICreateTypeLib2, __uuidof(ICreateTypeLib2));

namespace {

constexpr GUID wordLibrary = {0x00020905, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

/// An empty library that is registered as Word's for as long as this lives.
class RegisteredLibrary
{
public:
    RegisteredLibrary(const ScratchFolder& folder, WORD minorVersion) : minorVersion_(minorVersion)
    {
        const _bstr_t file(folder.file("word" + std::to_string(minorVersion) + ".tlb").c_str());
        {
            ICreateTypeLib2Ptr library;
            _com_util::CheckError(CreateTypeLib2(SYS_WIN64, file, &library));
            _com_util::CheckError(library->SetGuid(wordLibrary));
            _com_util::CheckError(library->SetVersion(majorVersion, minorVersion));
            _com_util::CheckError(library->SaveAllChanges());
        }
        ITypeLibPtr registered;
        _com_util::CheckError(LoadTypeLibEx(file, REGKIND_REGISTER, &registered));
    }
    ~RegisteredLibrary()
    {
        UnRegisterTypeLib(wordLibrary, majorVersion, minorVersion_, LOCALE_NEUTRAL, SYS_WIN64);
    }
    RegisteredLibrary(const RegisteredLibrary&) = delete;
    RegisteredLibrary& operator=(const RegisteredLibrary&) = delete;

private:
    static constexpr WORD majorVersion = 8;
    WORD minorVersion_;
};

/// "8.1"; "none" for a null library.
std::string versionOf(const ITypeLibPtr& library)
{
    if (!library)
        return "none";
    TLIBATTR* attributes = nullptr;
    _com_util::CheckError(library->GetLibAttr(&attributes));
    const std::string version =
        std::to_string(attributes->wMajorVerNum) + "." + std::to_string(attributes->wMinorVerNum);
    library->ReleaseTLibAttr(attributes);
    return version;
}

TEST(WordTypeLibraryTest, IsNullWhereNoWordIsRegistered)
{
    EXPECT_EQ(versionOf(loadWordTypeLibrary()), "none");
}

TEST(WordTypeLibraryTest, IsTheRegisteredOne)
{
    const ScratchFolder folder;
    const RegisteredLibrary library(folder, 1);
    EXPECT_EQ(versionOf(loadWordTypeLibrary()), "8.1");
}

TEST(WordTypeLibraryTest, IsThatOfALaterWord)
{
    const ScratchFolder folder;
    const RegisteredLibrary library(folder, 7);
    EXPECT_EQ(versionOf(loadWordTypeLibrary()), "8.7");
}

class HeldWordTypeLibraryTest : public FrontEndTest
{
};

ULONG holdersOf(const ITypeLibPtr& library)
{
    library->AddRef();
    return library->Release() - 1;
}

TEST_F(HeldWordTypeLibraryTest, IsInMemoryAsLongAsTheClientIsConnected)
{
    const RegisteredLibrary library(folder, 1);
    const ITypeLibPtr again = loadWordTypeLibrary();
    ASSERT_EQ(holdersOf(again), 0U);
    start();
    EXPECT_EQ(holdersOf(again), 1U);
    client = nullptr;
    EXPECT_EQ(holdersOf(again), 0U);
}

} // namespace
