#include "Registrar.h"

#include "RegistryContents.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const wchar_t* const scratch = L"Software\\RegistrarTest";

/// Scripts that work below HKEY_CURRENT_USER\Software\RegistrarTest. "Software" is a system key, so the keys
/// below it are still in the place where system keys lie.
class Registrar : public testing::Test
{
protected:
    Registrar() { RegDeleteTreeW(HKEY_CURRENT_USER, scratch); }
    ~Registrar() override { RegDeleteTreeW(HKEY_CURRENT_USER, scratch); }

    static RegistryScript script(const std::u16string& keys)
    {
        return parseRegistryScript(u"HKCU { Software { NoRemove RegistrarTest { " + keys + u" } } }", {});
    }

    static RegistryContents contents() { return readRegistry(HKEY_CURRENT_USER, scratch); }

    static void make(const std::wstring& path)
    {
        HKEY key = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, (std::wstring(scratch) + L"\\" + path).c_str(), 0,
                                  nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        RegCloseKey(key);
    }
};

TEST_F(Registrar, writesKeysAndValues)
{
    registerScript(script(u"A = s 'a' { B { val v = s 'x y' val '' = s 'd' } C = s '' }"));
    EXPECT_EQ(contents(), (RegistryContents{{L"", {}},
                                            {L"A", {{L"", L"a"}}},
                                            {L"A\\B", {{L"v", L"x y"}, {L"", L"d"}}},
                                            {L"A\\C", {{L"", L""}}}}));
}

TEST_F(Registrar, keepsWhatIsInKeysWithoutFlag)
{
    make(L"A\\Foreign");
    registerScript(script(u"A = s 'a'"));
    EXPECT_EQ(contents(), (RegistryContents{{L"", {}}, {L"A", {{L"", L"a"}}}, {L"A\\Foreign", {}}}));
}

TEST_F(Registrar, rebuildsKeysUnderForceRemove)
{
    make(L"A\\Stale\\Deep");
    registerScript(script(u"ForceRemove A { B }"));
    EXPECT_EQ(contents(), (RegistryContents{{L"", {}}, {L"A", {}}, {L"A\\B", {}}}));
}

TEST_F(Registrar, deletesAtRegistration)
{
    make(L"A\\Deep");
    registerScript(script(u"Delete A = s 'x' { B } Delete Missing"));
    EXPECT_EQ(contents(), (RegistryContents{{L"", {}}}));
    make(L"A\\Deep");
    unregisterScript(script(u"Delete A"));
    EXPECT_EQ(contents().count(L"A\\Deep"), 1u);
}

TEST_F(Registrar, removesWhatItWrote)
{
    const RegistryScript all = script(u"A = s 'a' { B { val v = s 'x' } } ForceRemove C { D }");
    registerScript(all);
    unregisterScript(all);
    EXPECT_EQ(contents(), (RegistryContents{{L"", {}}}));
    unregisterScript(all);
    EXPECT_EQ(contents(), (RegistryContents{{L"", {}}}));
}

TEST_F(Registrar, leavesWhatOthersWrote)
{
    const RegistryScript all = script(u"A = s 'a' { B { val v = s 'x' } }");
    registerScript(all);
    make(L"A\\B\\Foreign");
    unregisterScript(all);
    EXPECT_EQ(contents(), (RegistryContents{{L"", {}}, {L"A", {}}, {L"A\\B", {}}, {L"A\\B\\Foreign", {}}}));
}

TEST_F(Registrar, removesForceRemoveKeysWhole)
{
    make(L"A\\Foreign");
    unregisterScript(script(u"ForceRemove A"));
    EXPECT_EQ(contents(), (RegistryContents{{L"", {}}}));
}

TEST_F(Registrar, neverRemovesSystemKeys)
{
    for (const wchar_t* name :
         {L"AppID", L"CLSID", L"Component Categories", L"FileType", L"Interface", L"Hardware", L"Mime",
          L"SAM", L"SECURITY", L"SYSTEM", L"Software", L"TypeLib", L"typelib"}) {
        const std::wstring wide(name);
        std::u16string quoted = u"'";
        quoted.append(wide.begin(), wide.end()).append(u"'");
        make(wide + L"\\Foreign");
        registerScript(script(u"ForceRemove " + quoted));
        registerScript(script(u"Delete " + quoted));
        unregisterScript(script(u"ForceRemove " + quoted));
        EXPECT_EQ(contents().count(wide + L"\\Foreign"), 1u) << testing::PrintToString(wide);
        RegDeleteTreeW(HKEY_CURRENT_USER, scratch);
        registerScript(script(quoted));
        unregisterScript(script(quoted));
        EXPECT_EQ(contents().count(wide), 1u) << testing::PrintToString(wide);
        RegDeleteTreeW(HKEY_CURRENT_USER, scratch);
    }
}

TEST_F(Registrar, removesAKeyOfSuchANameInsideAnOwnedKey)
{
    const RegistryScript all = script(u"Prog.Id { CLSID = s 'x' }");
    registerScript(all);
    EXPECT_EQ(contents().count(L"Prog.Id\\CLSID"), 1u);
    unregisterScript(all);
    EXPECT_EQ(contents(), (RegistryContents{{L"", {}}}));
}

} // namespace
