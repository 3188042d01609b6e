#include "TypeInfoLookup.h"

#include "CComModule.h"
#include "Hresult.h"

#include <IDocument.h>
#include <gtest/gtest.h>

#include <string>

namespace {

/// {5C2E7AFF-3B41-4D8E-9F62-A1B3C4D5E6F7}: nobody's.
constexpr GUID unknownId{0x5c2e7aff, 0x3b41, 0x4d8e, {0x9f, 0x62, 0xa1, 0xb3, 0xc4, 0xd5, 0xe6, 0xf7}};

class TypeInfoLookup : public testing::Test
{
protected:
    TypeInfoLookup()
    {
        CoInitialize(nullptr);
        unregister();
    }

    ~TypeInfoLookup() override
    {
        unregister();
        CoUninitialize();
    }

    /// The program carries version 2.0 of the library.
    static void registerLibrary()
    {
        std::wstring file = comModule().path();
        ITypeLibPtr library;
        ASSERT_THAT(LoadTypeLibEx(file.c_str(), REGKIND_NONE, &library), isHresult(S_OK));
        ASSERT_THAT(RegisterTypeLib(library, file.data(), nullptr), isHresult(S_OK));
    }

    static void unregister() { UnRegisterTypeLib(LIBID_MIROVELCOMLib, 2, 0, LOCALE_NEUTRAL, SYS_WIN64); }

    static bool describes(const ITypeInfoPtr& typeInfo, const IID& iid)
    {
        TYPEATTR* attributes = nullptr;
        EXPECT_THAT(typeInfo->GetTypeAttr(&attributes), isHresult(S_OK));
        const bool result = IsEqualGUID(attributes->guid, iid);
        typeInfo->ReleaseTypeAttr(attributes);
        return result;
    }
};

TEST_F(TypeInfoLookup, findsTheAskedVersion)
{
    registerLibrary();
    EXPECT_TRUE(describes(findTypeInfo(LIBID_MIROVELCOMLib, IID_IDocument, 2, 0), IID_IDocument));
}

TEST_F(TypeInfoLookup, findsAnotherRegisteredVersion)
{
    registerLibrary();
    EXPECT_TRUE(describes(findTypeInfo(LIBID_MIROVELCOMLib, IID_IDocument, 1, 0), IID_IDocument));
}

TEST_F(TypeInfoLookup, looksIntoTheRegisteredLibraryBeforeTheModule)
{
    // A library of the system that this program does not carry.
    const GUID stdole{0x00020430, 0, 0, {0xc0, 0, 0, 0, 0, 0, 0, 0x46}};
    EXPECT_TRUE(describes(findTypeInfo(stdole, IID_IDispatch, 7, 0), IID_IDispatch));
}

TEST_F(TypeInfoLookup, fallsBackToTheModulesOwnLibrary)
{
    EXPECT_TRUE(describes(findTypeInfo(LIBID_MIROVELCOMLib, IID_IDocument, 1, 0), IID_IDocument));
}

TEST_F(TypeInfoLookup, failsWhenNoLibraryDescribesTheInterface)
{
    EXPECT_THROW(findTypeInfo(LIBID_MIROVELCOMLib, unknownId, 1, 0), _com_error);
    registerLibrary();
    EXPECT_THROW(findTypeInfo(LIBID_MIROVELCOMLib, unknownId, 1, 0), _com_error);
}

} // namespace
