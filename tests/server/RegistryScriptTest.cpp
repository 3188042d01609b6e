#include "RegistryScript.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const ScriptVariables variables{{u"MODULE", u"C:\\it's\\100%\\{a} b.dll"}};

RegistryScript parse(std::u16string_view text)
{
    return parseRegistryScript(text, variables);
}

/// The one key in `HKCR { ... }`.
ScriptKey parseKey(const std::u16string& text)
{
    const RegistryScript script = parse(u"HKCR { " + text + u" }");
    EXPECT_EQ(script.size(), 1u);
    EXPECT_EQ(script.at(0).keys.size(), 1u);
    return script.at(0).keys.at(0);
}

/// What the error message of a script says.
std::string errorOf(std::u16string_view text)
{
    try {
        static_cast<void>(parse(text));
        return "no error";
    } catch (const RegistryScriptError& error) {
        return error.what();
    }
}

/// "HKCR" of "HKEY_CLASSES_ROOT".
std::u16string initialsOf(std::u16string_view windowsName)
{
    std::u16string initials = u"HK";
    for (std::size_t gap = windowsName.find(u'_'); gap != windowsName.npos;
         gap = windowsName.find(u'_', gap + 1))
        initials += windowsName[gap + 1];
    return initials;
}

TEST(RegistryScript, mayBeEmpty)
{
    EXPECT_TRUE(parse(u"").empty());
    EXPECT_TRUE(parse(u" \t\r\n").empty());
}

TEST(RegistryScript, isATree)
{
    const RegistryScript script = parse(u"HKCR\r\n{\r\n"
                                        u"\tA.B = s 'first'\r\n"
                                        u"\t{\r\n"
                                        u"\t\tCLSID = s '{1}'\r\n"
                                        u"\t}\r\n"
                                        u"\tNoRemove CLSID\r\n"
                                        u"\t{\r\n"
                                        u"\t\tForceRemove {1} = s 'second'\r\n"
                                        u"\t\t{\r\n"
                                        u"\t\t\tForceRemove 'Programmable'\r\n"
                                        u"\t\t\tval Model = s 'Apartment'\r\n"
                                        u"\t\t}\r\n"
                                        u"\t}\r\n"
                                        u"}\r\n"
                                        u"HKLM { Delete Old }\r\n");
    const ScriptKey programmable{KeyFlag::forceRemove, u"Programmable", {}, {}, {}};
    const ScriptKey inner{
        KeyFlag::forceRemove, u"{1}", u"second", {{u"Model", u"Apartment"}}, {programmable}};
    const ScriptKey classId{KeyFlag::none, u"CLSID", u"{1}", {}, {}};
    const RegistryScript expected{
        {RootKey::classesRoot,
         {{KeyFlag::none, u"A.B", u"first", {}, {classId}}, {KeyFlag::noRemove, u"CLSID", {}, {}, {inner}}}},
        {RootKey::localMachine, {{KeyFlag::deleteKey, u"Old", {}, {}, {}}}}};
    EXPECT_EQ(script, expected);
}

TEST(RegistryScript, knowsRootsByWindowsNamesAndByTheirInitials)
{
    EXPECT_EQ(initialsOf(u"HKEY_CLASSES_ROOT"), u"HKCR");
    // In the order of RootKey.
    const std::u16string_view names[] = {
        u"HKEY_CLASSES_ROOT",     u"HKEY_CURRENT_USER", u"HKEY_LOCAL_MACHINE", u"HKEY_USERS",
        u"HKEY_PERFORMANCE_DATA", u"HKEY_DYN_DATA",     u"HKEY_CURRENT_CONFIG"};
    RootKey root{};
    for (const std::u16string_view name : names) {
        const RegistryScript expected{{root, {}}};
        EXPECT_EQ(parse(std::u16string(name) + u" { }"), expected);
        EXPECT_EQ(parse(initialsOf(name) + u" { }"), expected);
        root = static_cast<RootKey>(static_cast<int>(root) + 1);
    }
    EXPECT_EQ(parse(u"hkey_Current_user { }"), (RegistryScript{{RootKey::currentUser, {}}}));
    EXPECT_EQ(errorOf(u"HKXX { }"), "line 1, column 1: expected a root key such as HKCR");
    EXPECT_EQ(errorOf(u"'HKCR' { }"), "line 1, column 1: expected a root key such as HKCR");
}

TEST(RegistryScript, quotesKeepSpaceAndHideKeywords)
{
    EXPECT_EQ(parseKey(u"'a b'").name, u"a b");
    EXPECT_EQ(parseKey(u"'it''s'").name, u"it's");
    EXPECT_EQ(parseKey(u"'ForceRemove'").name, u"ForceRemove");
    EXPECT_EQ(parseKey(u"'ForceRemove'").flag, KeyFlag::none);
    EXPECT_EQ(parseKey(u"'{'").name, u"{");
    EXPECT_EQ(parseKey(u"x { 'val' }").subkeys.at(0).name, u"val");
    EXPECT_EQ(parseKey(u"x = s ''").defaultValue, u"");
}

TEST(RegistryScript, knowsKeywordsInAnyCase)
{
    EXPECT_EQ(parseKey(u"noremove x").flag, KeyFlag::noRemove);
    EXPECT_EQ(parseKey(u"FORCEREMOVE x").flag, KeyFlag::forceRemove);
    EXPECT_EQ(parseKey(u"delete x").flag, KeyFlag::deleteKey);
    EXPECT_EQ(parseKey(u"x { VAL a = S 'b' }").values, (std::vector<ScriptValue>{{u"a", u"b"}}));
}

TEST(RegistryScript, takesVariablesAsTheyAre)
{
    EXPECT_EQ(parseKey(u"x = s '%MODULE%'").defaultValue, u"C:\\it's\\100%\\{a} b.dll");
    EXPECT_EQ(parseKey(u"x = s '\"%MODULE%\" 50%%'").defaultValue, u"\"C:\\it's\\100%\\{a} b.dll\" 50%");
    EXPECT_EQ(errorOf(u"HKCR { x = s '%OTHER%' }"), "line 1, column 15: an unknown variable");
    EXPECT_EQ(errorOf(u"HKCR { x = s '50%' }"),
              "line 1, column 17: the variable's name is not closed by a percent sign");
    EXPECT_EQ(errorOf(u"HKCR { x = s '50%\nA%' }"),
              "line 1, column 17: the variable's name is not closed by a percent sign");
}

TEST(RegistryScript, saysWhereItIsWrong)
{
    EXPECT_EQ(errorOf(u"HKCR"), "line 1, column 5: expected { after the root key");
    EXPECT_EQ(errorOf(u"HKCR\r\n{"), "line 2, column 2: a { is not closed");
    EXPECT_EQ(errorOf(u"HKCR\n{\n\tval a = s 'b'\n}"), "line 3, column 2: a root key has no values");
    EXPECT_EQ(errorOf(u"HKCR { x = d '1' }"), "line 1, column 12: expected the value type s");
    EXPECT_EQ(errorOf(u"HKCR { x = s y }"), "line 1, column 14: expected the value's data in single quotes");
    EXPECT_EQ(errorOf(u"HKCR { x = s 'y }"), "line 1, column 14: the quote is not closed");
    EXPECT_EQ(errorOf(u"HKCR { x { val = s 'y' } }"), "line 1, column 16: expected the name of a value");
    EXPECT_EQ(errorOf(u"HKCR { x { val a 'y' } }"), "line 1, column 18: expected = and a value");
    EXPECT_EQ(errorOf(u"HKCR { NoRemove }"), "line 1, column 17: expected the name of a key");
    EXPECT_EQ(errorOf(u"HKCR { { } }"), "line 1, column 8: expected the name of a key");
    EXPECT_EQ(errorOf(u"HKCR { } }"), "line 1, column 10: expected a root key such as HKCR");
    EXPECT_EQ(errorOf(std::u16string_view(u"HKCR { a\0b }", 12)), "line 1, column 9: a NUL character");
    try {
        static_cast<void>(parse(u"HKCR\n{\n  a\\b\n}"));
        ADD_FAILURE();
    } catch (const RegistryScriptError& error) {
        EXPECT_EQ(error.line(), 3u);
        EXPECT_EQ(error.column(), 3u);
    }
}

TEST(RegistryScript, refusesNamesThatTheRegistryWouldTakeForOthers)
{
    EXPECT_EQ(errorOf(u"HKCR { '' }"), "line 1, column 8: a key needs a name");
    EXPECT_EQ(errorOf(u"HKCR { CLSID\\x }"), "line 1, column 8: the name of a key cannot hold a backslash");
    EXPECT_EQ(errorOf(u"HKCR { %MODULE% }"), "line 1, column 8: the name of a key cannot hold a backslash");
    EXPECT_EQ(parseKey(std::u16string(255, u'x')).name.size(), 255u);
    EXPECT_EQ(errorOf(u"HKCR { " + std::u16string(256, u'x') + u" }"),
              "line 1, column 8: the name of the key is too long");
}

TEST(RegistryScript, nestsAsDeeplyAsTheRegistry)
{
    std::u16string opened = u"HKCR { ";
    std::u16string closed = u"}";
    for (int depth = 0; depth < 512; ++depth) {
        opened += u"k { ";
        closed += u" }";
    }
    EXPECT_EQ(errorOf(opened + closed), "no error");
    EXPECT_EQ(errorOf(opened + u"k { } " + closed), "line 1, column 2058: keys are nested too deeply");
    std::u16string endless = u"HKCR { ";
    for (int depth = 0; depth < 100000; ++depth)
        endless += u"k { ";
    EXPECT_EQ(errorOf(endless), "line 1, column 2058: keys are nested too deeply");
}

} // namespace
