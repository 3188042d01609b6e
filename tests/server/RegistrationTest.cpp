#include "Hresult.h"
#include "PlatformDifferences.h"
#include "RegistryContents.h"
#include "ServerModule.h"

#include <IDocument.h>
#include <gtest/gtest.h>

#include <oleauto.h>

namespace {

const std::wstring documentId = L"{5C2E7A10-3B41-4D8E-9F62-A1B3C4D5E6F7}";
const std::wstring pageId = L"{5C2E7A11-3B41-4D8E-9F62-A1B3C4D5E6F7}";
const std::wstring libraryKey = L"TypeLib\\{5C2E7A12-3B41-4D8E-9F62-A1B3C4D5E6F7}";
const std::wstring interfaceKey = L"Interface\\{5C2E7A13-3B41-4D8E-9F62-A1B3C4D5E6F7}";

RegistryContents classes(const std::wstring& path)
{
    return readRegistry(HKEY_CLASSES_ROOT, path);
}

class Registration : public testing::Test
{
protected:
    Registration()
    {
        CoInitialize(nullptr);
        server_.unregisterServer();
    }

    ~Registration() override
    {
        server_.unregisterServer();
        CoUninitialize();
    }

    /// The document class's and the page's keys, complete.
    void expectRegistered() const
    {
        const std::wstring path = server_.path();
        EXPECT_EQ(classes(L"Mirovel.Mirovel.2.1.0"),
                  (RegistryContents{{L"", {{L"", L"Mirovel Class"}}}, {L"CLSID", {{L"", documentId}}}}));
        EXPECT_EQ(classes(L"Mirovel.Mirovel"),
                  (RegistryContents{{L"", {{L"", L"Mirovel Class"}}},
                                    {L"CurVer", {{L"", L"Mirovel.Mirovel.2.1.0"}}}}));
        EXPECT_EQ(classes(L"CLSID\\" + documentId),
                  (RegistryContents{{L"", {{L"", L"Document Class"}}},
                                    {L"ProgID", {{L"", L"Mirovel.Mirovel.2.1.0"}}},
                                    {L"VersionIndependentProgID", {{L"", L"Mirovel.Mirovel"}}},
                                    {L"Programmable", {}},
                                    {L"InprocServer32", {{L"", path}, {L"ThreadingModel", L"Apartment"}}}}));
        EXPECT_EQ(classes(L"MirovelComPage.MirovelComPage.2.1.0"),
                  (RegistryContents{{L"", {{L"", L"MirovelComPage Class"}}}, {L"CLSID", {{L"", pageId}}}}));
        EXPECT_EQ(classes(L"MirovelComPage.MirovelComPage"),
                  (RegistryContents{{L"", {{L"", L"MirovelComPage Class"}}},
                                    {L"CurVer", {{L"", L"MirovelComPage.MirovelComPage.2.1.0"}}}}));
        EXPECT_EQ(classes(L"CLSID\\" + pageId),
                  (RegistryContents{{L"", {{L"", L"MirovelComPage Class"}}},
                                    {L"Programmable", {}},
                                    {L"InprocServer32", {{L"", path}, {L"ThreadingModel", L"Apartment"}}}}));
    }

    void expectLibraryRegistered() const
    {
        RegistryContents library = classes(libraryKey);
        EXPECT_EQ(library[L"2.0"][L""], L"Document Word 2.0 Type Library");
        EXPECT_EQ(library[L"2.0\\0\\win64"][L""], server_.path());
        RegistryContents interfaces = classes(interfaceKey);
        EXPECT_EQ(interfaces[L""][L""], L"IDocument");
        EXPECT_EQ(interfaces[L"ProxyStubClsid32"][L""], L"{00020424-0000-0000-C000-000000000046}");
        EXPECT_EQ(interfaces[L"TypeLib"][L""], L"{5C2E7A12-3B41-4D8E-9F62-A1B3C4D5E6F7}");
        EXPECT_EQ(interfaces[L"TypeLib"][L"Version"], L"2.0");
    }

    ServerModule server_;
};

void makeKey(const std::wstring& path)
{
    HKEY key = nullptr;
    ASSERT_EQ(
        RegCreateKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
        ERROR_SUCCESS);
    RegCloseKey(key);
}

TEST_F(Registration, writesTheClassesAndTheTypeLibrary)
{
    ASSERT_THAT(server_.registerServer(), isHresult(S_OK));
    expectRegistered();
    expectLibraryRegistered();
}

TEST_F(Registration, rebuildsTheClassKeysTheSecondTime)
{
    ASSERT_THAT(server_.registerServer(), isHresult(S_OK));
    makeKey(L"CLSID\\" + documentId + L"\\Stale");
    makeKey(L"CLSID\\" + pageId + L"\\Stale\\Deep");
    ASSERT_THAT(server_.registerServer(), isHresult(S_OK));
    expectRegistered();
    expectLibraryRegistered();
}

TEST_F(Registration, isUndoneButForTheTypeLibrary)
{
    ASSERT_THAT(server_.registerServer(), isHresult(S_OK));
    EXPECT_THAT(server_.unregisterServer(), isHresult(S_OK));
    for (const wchar_t* progId : {L"Mirovel.Mirovel", L"Mirovel.Mirovel.2.1.0",
                                  L"MirovelComPage.MirovelComPage", L"MirovelComPage.MirovelComPage.2.1.0"})
        EXPECT_TRUE(classes(progId).empty()) << testing::PrintToString(std::wstring(progId));
    EXPECT_TRUE(classes(L"CLSID\\" + documentId).empty());
    EXPECT_TRUE(classes(L"CLSID\\" + pageId).empty());
    HKEY classIds = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CLASSES_ROOT, L"CLSID", 0, KEY_READ, &classIds), ERROR_SUCCESS);
    RegCloseKey(classIds);
    expectLibraryRegistered();
}

TEST_F(Registration, isUndoneWithSuccessWhenThereIsNothing)
{
    EXPECT_THAT(server_.unregisterServer(), isHresult(S_OK));
    EXPECT_THAT(server_.unregisterServer(), isHresult(S_OK));
}

TEST_F(Registration, leavesAProgIdThatHoldsMore)
{
    ASSERT_THAT(server_.registerServer(), isHresult(S_OK));
    makeKey(L"Mirovel.Mirovel\\Foreign");
    EXPECT_THAT(server_.unregisterServer(), isHresult(S_OK));
    EXPECT_EQ(classes(L"Mirovel.Mirovel"), (RegistryContents{{L"", {}}, {L"Foreign", {}}}));
    RegDeleteTreeW(HKEY_CLASSES_ROOT, L"Mirovel.Mirovel");
}

/// A key whose place in the registry cannot be written: a link that leads nowhere.
class DeadKey
{
public:
    explicit DeadKey(const wchar_t* path)
    {
        const std::wstring target = L"\\Registry\\Machine\\Software\\Mirovel nowhere\\at all";
        EXPECT_EQ(RegCreateKeyExW(HKEY_CLASSES_ROOT, path, 0, nullptr, REG_OPTION_CREATE_LINK, KEY_ALL_ACCESS,
                                  nullptr, &key_, nullptr),
                  ERROR_SUCCESS);
        EXPECT_EQ(RegSetValueExW(key_, L"SymbolicLinkValue", 0, REG_LINK,
                                 reinterpret_cast<const BYTE*>(target.data()),
                                 static_cast<DWORD>(target.size() * sizeof(wchar_t))),
                  ERROR_SUCCESS);
    }
    ~DeadKey()
    {
        using DeleteKey = LONG(WINAPI*)(HANDLE);
        // RegDeleteKey would follow the link.
        const auto deleteKey = reinterpret_cast<DeleteKey>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtDeleteKey")));
        EXPECT_EQ(deleteKey(key_), 0);
        RegCloseKey(key_);
    }
    DeadKey(const DeadKey&) = delete;
    DeadKey& operator=(const DeadKey&) = delete;

private:
    HKEY key_ = nullptr;
};

TEST_F(Registration, stopsAtTheFirstStepThatFails)
{
    const DeadKey dead(L"MirovelComPage.MirovelComPage.2.1.0");
    EXPECT_THAT(server_.registerServer(), isHresult(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND)));
    EXPECT_FALSE(classes(L"CLSID\\" + documentId).empty()) << "the step before";
    EXPECT_TRUE(classes(L"CLSID\\" + pageId).empty()) << "the step behind";
    EXPECT_THAT(server_.unregisterServer(), isHresult(S_OK));
    EXPECT_TRUE(classes(L"CLSID\\" + documentId).empty()) << "undone although the other script fails";
}

TEST_F(Registration, takesModulePathsWithQuotesAndSpaces)
{
    wchar_t temporary[MAX_PATH] = {};
    ASSERT_NE(GetTempPathW(MAX_PATH, temporary), 0u);
    const std::wstring folder = std::wstring(temporary) + L"it's {a} folder";
    CreateDirectoryW(folder.c_str(), nullptr);
    const std::wstring copy = folder + L"\\mirovelcom.dll";
    ASSERT_TRUE(CopyFileW(ServerModule::builtFile().c_str(), copy.c_str(), FALSE));
    {
        const ServerModule elsewhere(copy);
        EXPECT_THAT(elsewhere.registerServer(), isHresult(S_OK));
        EXPECT_EQ(classes(L"CLSID\\" + documentId)[L"InprocServer32"][L""], elsewhere.path());
        EXPECT_EQ(classes(libraryKey)[L"2.0\\0\\win64"][L""], elsewhere.path());
        EXPECT_THAT(elsewhere.unregisterServer(), isHresult(S_OK));
    }
    DeleteFileW(copy.c_str());
    RemoveDirectoryW(folder.c_str());
}

TEST_F(Registration, describesTheLibrary)
{
    ASSERT_THAT(server_.registerServer(), isHresult(S_OK));
    ITypeLib* library = nullptr;
    ASSERT_THAT(LoadRegTypeLib(LIBID_MIROVELCOMLib, 2, 0, 0, &library), isHresult(S_OK));
    const auto helpOf = [&](const GUID& id) {
        ITypeInfo* typeInfo = nullptr;
        BSTR help = nullptr;
        EXPECT_THAT(library->GetTypeInfoOfGuid(id, &typeInfo), isHresult(S_OK));
        EXPECT_THAT(typeInfo->GetDocumentation(MEMBERID_NIL, nullptr, &help, nullptr, nullptr),
                    isHresult(S_OK));
        typeInfo->Release();
        const std::wstring text(help);
        SysFreeString(help);
        return text;
    };
    EXPECT_EQ(helpOf(CLSID_Mirovel), L"Mirovel Class");
    EXPECT_EQ(helpOf(IID_IDocument), L"IDocument Interface");
    EXPECT_EQ(helpOf(CLSID_MirovelComPage), L"MirovelComPage Class");
    BSTR name = nullptr;
    EXPECT_THAT(library->GetDocumentation(-1, &name, nullptr, nullptr, nullptr), isHresult(S_OK));
    EXPECT_STREQ(name, L"MIROVELCOMLib");
    SysFreeString(name);
    library->Release();
}

TEST_F(Registration, letsClientsCreateByProgId)
{
    ASSERT_THAT(server_.registerServer(), isHresult(S_OK));
    CLSID classId{};
    ASSERT_THAT(CLSIDFromProgID(L"Mirovel.Mirovel.2.1.0", &classId), isHresult(S_OK));
    EXPECT_TRUE(IsEqualCLSID(classId, CLSID_Mirovel));
    EXPECT_THAT(CLSIDFromProgID(L"Mirovel.Mirovel", &classId),
                isHresult(isWindowsWay(Difference::currentVersionOfProgId) ? S_OK : CO_E_CLASSSTRING));
    IDocument* document = nullptr;
    ASSERT_THAT(CoCreateInstance(CLSID_Mirovel, nullptr, CLSCTX_INPROC_SERVER, IID_IDocument,
                                 reinterpret_cast<void**>(&document)),
                isHresult(S_OK));
    EXPECT_THAT(server_.canUnloadNow(), isHresult(S_FALSE));
    EXPECT_EQ(document->Release(), 0u);
    EXPECT_THAT(server_.canUnloadNow(), isHresult(S_OK));
}

} // namespace
