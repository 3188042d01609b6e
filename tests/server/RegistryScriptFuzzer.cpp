#include "RegistryScript.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

std::u16string quoted(const std::u16string& text)
{
    std::u16string result = u"'";
    for (const char16_t c : text) {
        result += c;
        if (c == u'\'' || c == u'%')
            result += c;
    }
    return result + u"'";
}

void write(const ScriptKey& key, std::u16string& text)
{
    static constexpr const char16_t* flags[] = {u"", u"NoRemove ", u"ForceRemove ", u"Delete "};
    text += flags[static_cast<std::size_t>(key.flag)] + quoted(key.name);
    if (key.defaultValue)
        text += u" = s " + quoted(*key.defaultValue);
    text += u"\n{\n";
    for (const ScriptValue& value : key.values)
        text += u"val " + quoted(value.name) + u" = s " + quoted(value.data) + u"\n";
    for (const ScriptKey& subkey : key.subkeys)
        write(subkey, text);
    text += u"}\n";
}

std::u16string written(const RegistryScript& script)
{
    static constexpr const char16_t* roots[] = {u"HKCR", u"HKCU", u"HKLM", u"HKU", u"HKPD", u"HKDD", u"HKCC"};
    std::u16string text;
    for (const ScriptRoot& root : script) {
        text += std::u16string(roots[static_cast<std::size_t>(root.root)]) + u"\n{\n";
        for (const ScriptKey& key : root.keys)
            write(key, text);
        text += u"}\n";
    }
    return text;
}

} // namespace

/// What is understood must mean the same when it is written out in full and read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ScriptVariables variables{{u"MODULE", u"C:\\it's\\a.dll"}};
    const std::u16string text(data, data + size);
    try {
        const RegistryScript script = parseRegistryScript(text, variables);
        if (parseRegistryScript(written(script), variables) != script)
            std::abort();
    } catch (const RegistryScriptError& error) {
        if (error.line() == 0 || error.column() == 0)
            std::abort();
    }
    return 0;
}
